// One solution of a GPS receiver, in WGS 84 and double precision, from the message's own numbers.
#ifndef KEL_REGISTRAZIONI_SOLUZIONE_H
#define KEL_REGISTRAZIONI_SOLUZIONE_H

#include <cstdint>
#include <optional>
#include <span>

#include "gps/tempo_gps.h"
#include "gps/wgs84.h"

namespace kel_registrazioni {

/// A solution. What the receiver did not know is nothing.
struct Soluzione {
    std::uint32_t settimana_ms = 0;  ///< GPS time of week
    std::optional<Utc> utc;
    unsigned fix = 0;  ///< as the receiver numbers them: 0 none, 2 in the plane, 3 in space
    unsigned satelliti = 0;
    std::optional<Geodetica> luogo;               ///< in a fix in the plane the height is that of an earlier fix
    std::optional<VelocitaLocale> velocita;       ///< m/s, east, north and up
    std::optional<double> accuratezza_posizione;  ///< m, in space, one standard deviation
    std::optional<double> accuratezza_velocita;   ///< m/s

    /// Metres above the ellipsoid: of a fix in space alone.
    std::optional<double> altezza() const;
    /// m/s, in space.
    std::optional<double> andatura() const;
    /// Degrees from north by east; nothing where nothing moves over ground.
    std::optional<double> rotta() const;
    /// m/s up: of a fix in space alone.
    std::optional<double> salita() const;
};

/// Whether a fix gives a position and a velocity: in the plane (2), in space (3), in space with dead reckoning (4).
///
/// Only the kind of fix decides. Fixes in the plane count: the receiver has computed them, and the accuracy tells how good
/// they are. The receiver's flag "fix good" is not used: it says only that the accuracy is within limits set in the
/// receiver, and it may be off for minutes. Dead reckoning alone (1) and time alone (5) are no fix.
constexpr bool con_posizione(unsigned fix) {
    return fix >= 2 && fix <= 4;
}

/// Whether the height was solved too.
constexpr bool con_altezza(unsigned fix) {
    return fix == 3 || fix == 4;
}

constexpr std::uint8_t NAV_SOL_CLASSE = 0x01;
constexpr std::uint8_t NAV_SOL_ID = 0x06;
constexpr std::size_t NAV_SOL_BYTE = 52;

/// From the payload of NAV-SOL.
Soluzione da_nav_sol(std::span<const std::uint8_t, NAV_SOL_BYTE> payload);

}  // namespace kel_registrazioni

#endif
