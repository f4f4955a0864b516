// The solution of a GPS packet, for the columns that show its fields.
#ifndef KEL_REGISTRAZIONI_ULTIMA_SOLUZIONE_H
#define KEL_REGISTRAZIONI_ULTIMA_SOLUZIONE_H

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "gps/soluzione.h"

namespace kel_registrazioni {

/// Decodes NAV-SOL payloads, and remembers the last: every column of a packet asks for the same one, and a logger that is
/// faster than its receiver records each more than once.
class UltimaSoluzione {
public:
    /// The solution holds until another payload is given.
    const Soluzione& di(std::span<const std::uint8_t, NAV_SOL_BYTE> payload);

private:
    std::array<std::uint8_t, NAV_SOL_BYTE> payload_{};
    std::optional<Soluzione> soluzione_;  // nothing before the first payload
};

}  // namespace kel_registrazioni

#endif
