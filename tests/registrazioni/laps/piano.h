// Fixes on a plane in metres, whose numbers can be worked out by hand.
#ifndef KEL_TEST_REGISTRAZIONI_PIANO_H
#define KEL_TEST_REGISTRAZIONI_PIANO_H

#include <optional>

#include "gps/wgs84.h"
#include "laps/guida.h"

namespace piano {

inline constexpr double LAT = 44.8231;
inline constexpr double LON = 10.4107;

/// The place so many metres east and north of (LAT, LON).
inline kel_registrazioni::Geodetica luogo(double est, double nord) {
    using namespace kel_registrazioni;
    const Geodetica origine{LAT, LON, 0};
    const Ecef o = ecef(origine);
    const Ecef d = velocita_ecef(origine, {est, nord, 0});
    return geodetica(o.x + d.x, o.y + d.y, o.z + d.z);
}

inline kel_registrazioni::Fix fix(double tempo, double est, double nord, std::optional<double> velocita = {},
                                  std::optional<double> rotta = {}) {
    const kel_registrazioni::Geodetica qui = luogo(est, nord);
    return {tempo, true, qui.latitudine, qui.longitudine, velocita, rotta};
}

inline kel_registrazioni::Fix senza_fix(double tempo, std::optional<double> velocita = {}) {
    return {tempo, false, 0, 0, velocita, {}};
}

inline kel_registrazioni::Linea linea(double est, double nord, double rotta, double larghezza = 30) {
    const kel_registrazioni::Geodetica qui = luogo(est, nord);
    return {qui.latitudine, qui.longitudine, rotta, larghezza};
}

}  // namespace piano

#endif
