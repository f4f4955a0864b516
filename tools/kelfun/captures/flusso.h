// Samples of a file or of standard input, pushed into a recording piece by piece.
#ifndef KELFUN_CAPTURES_FLUSSO_H
#define KELFUN_CAPTURES_FLUSSO_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "captures/registrazione.h"
#include "io/ingresso.h"

namespace kel::strumento {

/// Memory stays the same for any length: the rows of a piece are at hand until the next piece comes. Nothing waits: a piece
/// is what has arrived.
class Flusso {
public:
    /// @param nome  "-" for standard input.
    /// @param reg    must live as long as this.
    /// @param pezzo  bytes of a piece at most.
    Flusso(const std::string& nome, const Registrazione& reg, std::size_t pezzo = PEZZO);

    static constexpr std::size_t PEZZO = 65536;

    /// Reads until the rows of another piece are at hand; false at the end of the stream.
    /// @throws NonTrovato  when it cannot be read, or used: its framing may not be clear.
    bool prossimo();

    /// How many rows there have been so far, and bytes.
    std::uint64_t righe() const { return kelRegPrima(reg_) + kelRegRighe(reg_); }
    std::uint64_t byte() const { return byte_; }
    Ingresso& ingresso() { return ingresso_; }
    const Ingresso& ingresso() const { return ingresso_; }

    /// One piece more, whether it makes a row or not; false behind the last.
    bool spingi();

private:
    Ingresso ingresso_;
    s_kel_registrazione* reg_;
    std::vector<std::uint8_t> pezzo_;
    std::uint64_t byte_ = 0;
    bool finito_ = false;
};

}  // namespace kel::strumento

#endif
