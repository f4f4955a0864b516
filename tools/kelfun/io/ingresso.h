// Where a command's bytes come from: a file, or standard input.
#ifndef KELFUN_IO_INGRESSO_H
#define KELFUN_IO_INGRESSO_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "io/avanzamento.h"

namespace kel::strumento {

/// A file, or standard input for "-", as its bytes come.
class Ingresso {
public:
    /// @throws NonTrovato  when the file cannot be opened, or is a folder.
    explicit Ingresso(const std::string& nome);
    ~Ingresso();
    Ingresso(const Ingresso&) = delete;
    Ingresso& operator=(const Ingresso&) = delete;

    /// At most so many bytes; 0 at the end. What has been printed so far is flushed before the wait for them.
    /// @throws NonTrovato  when they cannot be read, or what has been printed cannot be written, as to a closed pipe.
    std::size_t leggi(std::uint8_t* byte, std::size_t quanti);

    /// Shows on standard error how far the reading has come, if that is a terminal.
    /// @param con_righe  what is read is printed row by row: on a terminal the rows themselves show the progress.
    void mostra_avanzamento(bool con_righe);

    /// So many bytes, or fewer at the end.
    std::size_t leggi_tutti(std::uint8_t* byte, std::size_t quanti);

    /// Length of a file in bytes; nothing where it is not known, as for standard input.
    std::optional<std::uint64_t> lunghezza() const;

    /// What to call it in a message.
    const std::string& nome() const { return nome_; }

private:
    void chiudi() const;

    std::string nome_;
    int fd_;
    std::uint64_t letti_ = 0;
    std::optional<Avanzamento> avanzamento_;
};

}  // namespace kel::strumento

#endif
