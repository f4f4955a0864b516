// What a receiver says of one moment: the raw material of laps.
#ifndef KELFUN_LAPS_FIX_H
#define KELFUN_LAPS_FIX_H

#include <optional>

namespace kel::strumento {

struct Fix {
    double tempo = 0;       ///< s; runs forward within a session
    bool valido = false;    ///< there is a position to go by
    double latitudine = 0;  ///< degrees, WGS 84
    double longitudine = 0;
    std::optional<double> velocita;  ///< over ground, m/s
    std::optional<double> rotta;     ///< direction of travel, degrees from north, clockwise
};

}  // namespace kel::strumento

#endif
