// The solution message of today's receivers.
#ifndef KELSIM_NAV_PVT_H
#define KELSIM_NAV_PVT_H

#include <string>

#include "kart.h"
#include "wgs84.h"

namespace kel::simulatore {

/// NAV-PVT (01 07), 92 bytes: UTC, geodetic position, velocity north, east, down, and their accuracies.
std::string nav_pvt(const Istante& istante, const PianoLocale& piano);

}  // namespace kel::simulatore

#endif
