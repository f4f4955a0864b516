// Texts that come as lines, from a file or standard input.
#ifndef KELFUN_IO_RIGHE_H
#define KELFUN_IO_RIGHE_H

#include <optional>
#include <string>
#include <vector>

#include "io/ingresso.h"

namespace kel::strumento {

/// The lines of a file, or of standard input for "-", as they come: without their ends (line feed, or carriage return
/// and line feed).
class Righe {
public:
    /// @throws NonTrovato  as `Ingresso`.
    explicit Righe(const std::string& nome) : ingresso_(nome) {}

    /// The next line; nothing at the end. What has been printed so far is flushed before the wait for it.
    /// @throws NonTrovato  when it cannot be read.
    std::optional<std::string> prossima();
    /// The number of the line that was read last, from 1 on.
    std::size_t numero() const { return numero_; }

private:
    Ingresso ingresso_;
    std::string letti_;     // bytes that were read
    std::size_t dati_ = 0;  // how many of them have been returned
    bool finito_ = false;
    std::size_t numero_ = 0;
};

/// All lines at once.
/// @throws NonTrovato  when they cannot be read.
std::vector<std::string> leggi_righe(const std::string& nome);

}  // namespace kel::strumento

#endif
