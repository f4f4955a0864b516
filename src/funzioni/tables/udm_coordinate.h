// Units of coordinates: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_COORDINATE_H
#define KEL_TABLES_UDM_COORDINATE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Altitude (base unit: m).
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata coord_alt_udm_associate[] = {
    {{"m",  0.0f,   1.0f,     0},    2,       2,   0},
    {{"ft", 0.0f,   3.28084f, 0},    2,       2,   0},
};

// Latitude (base unit: deg).
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata coord_lat_udm_associate[] = {
    {{"deg", 0.0f,   1.0f, 0},    5,       5,   0},
};

// Longitude (base unit: deg).
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

namespace kel {

static_assert(base_per_prima(coord_alt_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(coord_alt_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(coord_alt_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(coord_lat_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(coord_lat_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(coord_lat_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(coord_lon_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(coord_lon_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(coord_lon_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(coord_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(coord_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(coord_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
