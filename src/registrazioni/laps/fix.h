// What a receiver says of one moment: the raw material of laps.
#ifndef KEL_REGISTRAZIONI_FIX_H
#define KEL_REGISTRAZIONI_FIX_H

#include <optional>

namespace kel_registrazioni {

struct Fix {
    double tempo = 0;       ///< s; runs forward within a session
    bool valido = false;    ///< there is a position to go by
    double latitudine = 0;  ///< degrees, WGS 84
    double longitudine = 0;
    std::optional<double> velocita;  ///< over ground, m/s
    std::optional<double> rotta;     ///< direction of travel, degrees from north, clockwise
};

}  // namespace kel_registrazioni

#endif
