// Layout of the payload of a u-blox UBX-NAV-SOL message: offsets in bytes. Source: NAV-SOL in the
// protocol descriptions of the u-blox receivers.
#ifndef KEL_PACKETS_NAVSOL_H
#define KEL_PACKETS_NAVSOL_H

#include <cstdint>

#include "kelfunzioni.h"
#include "tables/byte_campione.h"

namespace kel {

inline constexpr uint32_t NAVSOL_FIX = 10;                    // u8: 0 none, 2 2D, 3 3D
inline constexpr uint32_t NAVSOL_X = 12;                      // i32, cm, ECEF
inline constexpr uint32_t NAVSOL_Y = 16;                      // i32, cm
inline constexpr uint32_t NAVSOL_Z = 20;                      // i32, cm
inline constexpr uint32_t NAVSOL_ACCURATEZZA_POSIZIONE = 24;  // u32, cm
inline constexpr uint32_t NAVSOL_VX = 28;                     // i32, cm/s, ECEF
inline constexpr uint32_t NAVSOL_VY = 32;                     // i32, cm/s
inline constexpr uint32_t NAVSOL_VZ = 36;                     // i32, cm/s
inline constexpr uint32_t NAVSOL_ACCURATEZZA_VELOCITA = 40;   // u32, cm/s
inline constexpr uint32_t NAVSOL_SATELLITI = 47;              // u8: satellites used

// The logger's GPS packet is a 32-bit time and then the payload.
inline constexpr uint32_t PAYLOAD_IN_GPS_KEL = 4;
static_assert(byte_campione(KEL_TIPO_GPS_KEL) == PAYLOAD_IN_GPS_KEL + byte_campione(KEL_TIPO_GPS_NAVSOL));

}  // namespace kel

#endif
