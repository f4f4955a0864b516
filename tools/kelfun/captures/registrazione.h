// A recording or a u-blox stream that is open in the library, and the errors that it gives.
#ifndef KELFUN_CAPTURES_REGISTRAZIONE_H
#define KELFUN_CAPTURES_REGISTRAZIONE_H

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "kelregistrazioni.h"

namespace kel::strumento {

struct ChiudiRegistrazione {
    void operator()(s_kel_registrazione* reg) const { kelRegChiudi(reg); }
};

/// A channel record and its name: the long one, else the short one, else that of its function.
struct CanaleRecord {
    s_kel_canale record{};
    std::string nome;
};

class Registrazione {
public:
    /// The channels of a file, or of standard input for "-"; their samples will be pushed.
    /// @throws NonTrovato  when it cannot be read, or holds no channel records: one line that names the file.
    Registrazione(const std::string& file_canali, const s_kel_apertura& apertura);

    /// The same of bytes.
    /// @param nome  what a message calls them.
    Registrazione(std::span<const std::uint8_t> canali, const std::string& nome, const s_kel_apertura& apertura);

    /// A u-blox stream, to be pushed.
    Registrazione();

    /// For the functions of the library.
    s_kel_registrazione* reg() const { return reg_.get(); }
    const std::vector<CanaleRecord>& canali() const { return canali_; }

private:
    std::unique_ptr<s_kel_registrazione, ChiudiRegistrazione> reg_;
    std::vector<CanaleRecord> canali_;
};

}  // namespace kel::strumento

#endif
