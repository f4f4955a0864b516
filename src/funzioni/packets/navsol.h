// Layout of the u-blox UBX-NAV-SOL payload, bytes.
#ifndef KEL_PACKETS_NAVSOL_H
#define KEL_PACKETS_NAVSOL_H

#include <cstddef>

namespace kel {

inline constexpr std::size_t navsol_fix = 10;        // u8: 0 none, 2 2D, 3 3D
inline constexpr std::size_t navsol_x = 12;          // i32, cm, ECEF
inline constexpr std::size_t navsol_y = 16;          // i32, cm
inline constexpr std::size_t navsol_z = 20;          // i32, cm
inline constexpr std::size_t navsol_vx = 28;         // i32, cm/s, ECEF
inline constexpr std::size_t navsol_vy = 32;         // i32, cm/s
inline constexpr std::size_t navsol_vz = 36;         // i32, cm/s
inline constexpr std::size_t navsol_satelliti = 47;  // u8: satellites used

// The logger's GPS packet is a 32-bit time and then the payload.
inline constexpr std::size_t payload_in_gps_kel = 4;

}  // namespace kel

#endif
