#include "traguardo.h"

#include <cmath>
#include <cstdio>

#include "circuito.h"

namespace kel::simulatore {

Traguardo traguardo() {
    const PuntoCircuito inizio = Circuito().punto(0);
    const double rotta = std::atan2(inizio.dir_est, inizio.dir_nord) * 180.0 / 3.14159265358979323846;
    return {PianoLocale(LUOGO).geodetiche({inizio.est, inizio.nord, ANTENNA_M}), rotta < 0 ? rotta + 360 : rotta};
}

std::string testo(const Traguardo& traguardo) {
    char riga[64];
    std::snprintf(riga, sizeof riga, "%.7f,%.7f,%.1f", traguardo.luogo.latitudine, traguardo.luogo.longitudine,
                  traguardo.rotta);
    return riga;
}

}  // namespace kel::simulatore
