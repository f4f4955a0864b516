// Where a command's bytes come from: a file, or standard input.
#ifndef KELFUN_INGRESSO_H
#define KELFUN_INGRESSO_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace kel::strumento {

/// A file, or standard input for "-", as its bytes come.
class Ingresso {
public:
    /// @throws NonTrovato  when the file cannot be opened.
    explicit Ingresso(const std::string& nome);
    ~Ingresso();
    Ingresso(const Ingresso&) = delete;
    Ingresso& operator=(const Ingresso&) = delete;

    /// At most so many bytes; 0 at the end. What has been printed so far is shown before the wait for them.
    /// @throws NonTrovato  when they cannot be read.
    std::size_t leggi(std::uint8_t* byte, std::size_t quanti);

    /// As many of so many bytes as there are before the end.
    std::size_t leggiTutti(std::uint8_t* byte, std::size_t quanti);

    /// What to call it in a message.
    const std::string& nome() const { return nome_; }

private:
    std::string nome_;
    int fd_;
};

}  // namespace kel::strumento

#endif
