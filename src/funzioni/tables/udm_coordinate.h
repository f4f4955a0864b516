// Units of coordinates: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_COORDINATE_H
#define KEL_TABLES_UDM_COORDINATE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Altitude (base unit: m).
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata coord_alt_udm_associate[] = {
    {{"m",  0.0f,   1.0f,     0},    2,       2,   0},
    {{"ft", 0.0f,   3.28084f, 0},    2,       2,   0},
};

// Latitude (base unit: deg). Five decimals are offered, which is a metre. The numeric text shows three at most, so that
// many are seen, except for samples of the type coordinate: these have a text of their own, with seven.
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata coord_lat_udm_associate[] = {
    {{"deg", 0.0f,   1.0f, 0},    5,       5,   0},
};

// Longitude (base unit: deg). Decimals as for the latitude.
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata coord_lon_udm_associate[] = {
    {{"deg", 0.0f,   1.0f, 0},    5,       5,   0},
};

// Any other coordinate.
//    unit     offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata coord_udm_associate[] = {
    {{"Coord", 0.0f,   1.0f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(coord_alt_udm_associate, {1, METRO / PIEDE}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(coord_lat_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(coord_lon_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(coord_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
