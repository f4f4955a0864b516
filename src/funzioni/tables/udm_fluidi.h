// Units of volume and flow: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_FLUIDI_H
#define KEL_TABLES_UDM_FLUIDI_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Volume (base unit: l).
//    unit   offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata l_udm_associate[] = {
    {{"l",   0.0f,   1.0f,      0},    0,       0,   0},
    {{"gal", 0.0f,   0.264172f, 0},    0,       0,   0},
};

// Volume flow (base unit: l/s). The gain of gal/h is 3600 times that of gal/s as it is written here, with six figures;
// from the gallon itself it would be 951.0194.
//    unit     offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata l_sec_udm_associate[] = {
    {{"l/s",   0.0f,   1.0f,      0},    0,       0,   0},
    {{"gal/s", 0.0f,   0.264172f, 0},    0,       0,   0},
    {{"l/h",   0.0f,   3600.0f,   0},    0,       0,   0},
    {{"gal/h", 0.0f,   951.0192f, 0},    0,       0,   0},
};

// Volume used on a lap.
//    unit     offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata l_lap_udm_associate[] = {
    {{"l*Lap", 0.0f,   1.0f, 0},    2,       2,   0},
};

// Mass flow (base unit: kg/s).
//    unit    offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata kg_sec_udm_associate[] = {
    {{"kg/s", 0.0f,   1.0f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(l_udm_associate, {1, LITRO / GALLONE}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(l_sec_udm_associate, {1, LITRO / GALLONE, ORA / SECONDO, 3600 * 0.264172}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(l_lap_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(kg_sec_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
