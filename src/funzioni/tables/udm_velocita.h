// Units of speed: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_VELOCITA_H
#define KEL_TABLES_UDM_VELOCITA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Speed (base unit: km/h).
//    unit    offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata kmh_udm_associate[] = {
    {{"km/h", 0.0f,   1.0f,      0},    1,       1,   0},
    {{"mph",  0.0f,   0.621371f, 0},    1,       1,   0},
};

// Velocity (base unit: km/h). The pace stands last: the only unit that shows a quantity as its reciprocal.
//    unit      offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata kmh_vel_udm_associate[] = {
    {{"km/h",   0.0f,   1.0f,      0},    1,       1,   0},
    {{"mph",    0.0f,   0.621371f, 0},    1,       1,   0},
    {{"m/s",    0.0f,   0.277778f, 0},    1,       1,   0},
    {{"ft/s",   0.0f,   0.911344f, 0},    1,       1,   0},
    {{"cm/s",   0.0f,   27.7778f,  0},    1,       1,   0},
    {{"m/min",  0.0f,   16.6667f,  0},    1,       1,   0},
    {{"min/km", 0.0f,   0.016667f, 1},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(kmh_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(kmh_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(kmh_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(kmh_vel_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(kmh_vel_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(kmh_vel_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
