// The finish line of the circuit.
#ifndef KELSIM_TRAGUARDO_H
#define KELSIM_TRAGUARDO_H

#include <string>

#include "wgs84.h"

namespace kel::simulatore {

/// The line stands across the circuit where a lap begins; the logger's lap times are taken there.
struct Traguardo {
    Geodetiche luogo;  ///< on the middle of the track, at the height of the receiver
    double rotta = 0;  ///< in which the karts cross it, degrees from north, clockwise
};

Traguardo traguardo();

/// "LAT,LON,HEADING" in degrees.
std::string testo(const Traguardo& traguardo);

}  // namespace kel::simulatore

#endif
