// Units of speed: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_VELOCITA_H
#define KEL_TABLES_UDM_VELOCITA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Speed (base unit: km/h).
//    unit    offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata kmh_udm_associate[] = {
    {{"km/h", 0.0f,   1.0f,      0},    1,       1,   0},
    {{"mph",  0.0f,   0.621371f, 0},    1,       1,   0},
};

// Velocity (base unit: km/h). The pace stands last: it is the only unit that shows a quantity as its reciprocal.
//
// The gain of min/km is not the one that gives a pace. The converters show gain / speed, so a pace in minutes needs 60;
// the table has 1/60, and what is shown is too small by a factor of 3600: 12 km/h shows as 0.00139 min/km and not as 5.
// It stays, because displays must show the same for a recording in every release.
//    unit      offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata kmh_vel_udm_associate[] = {
    {{"km/h",   0.0f,   1.0f,      0},    1,       1,   0},
    {{"mph",    0.0f,   0.621371f, 0},    1,       1,   0},
    {{"m/s",    0.0f,   0.277778f, 0},    1,       1,   0},
    {{"ft/s",   0.0f,   0.911344f, 0},    1,       1,   0},
    {{"cm/s",   0.0f,   27.7778f,  0},    1,       1,   0},
    {{"m/min",  0.0f,   16.6667f,  0},    1,       1,   0},
    {{"min/km", 0.0f,   0.016667f, 1},    1,       1,   0},  // 60 would be a pace
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(kmh_udm_associate, {1, CHILOMETRO / MIGLIO}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(kmh_vel_udm_associate,
                              {1, CHILOMETRO / MIGLIO, CHILOMETRO / METRO / ORA, CHILOMETRO / PIEDE / ORA,
                               CHILOMETRO / CENTIMETRO / ORA, CHILOMETRO / METRO / (ORA / MINUTO), 0.016667}),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
