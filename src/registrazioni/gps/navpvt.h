// NAV-PVT, the solution that today's receivers send in the place of NAV-SOL.
#ifndef KEL_REGISTRAZIONI_NAVPVT_H
#define KEL_REGISTRAZIONI_NAVPVT_H

#include <array>
#include <cstdint>
#include <span>

#include "gps/soluzione.h"

namespace kel_registrazioni {

constexpr std::uint8_t NAV_PVT_CLASSE = 0x01;
constexpr std::uint8_t NAV_PVT_ID = 0x07;
constexpr std::size_t NAV_PVT_BYTE = 92;

/// From the payload of NAV-PVT.
Soluzione da_nav_pvt(std::span<const std::uint8_t, NAV_PVT_BYTE> payload);

/// The same solution as a payload of NAV-SOL, because that is what the logger's packet holds. Numbers are rounded to
/// centimetres. A position or velocity that is missing, or does not fit, is zeros.
std::array<std::uint8_t, NAV_SOL_BYTE> nav_sol_da_pvt(std::span<const std::uint8_t, NAV_PVT_BYTE> payload);

}  // namespace kel_registrazioni

#endif
