// Units of volume and flow: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_FLUIDI_H
#define KEL_TABLES_UDM_FLUIDI_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Volume (base unit: l).
//    unit   offset  gain       recip  default  max  min  decimals
constexpr s_udm_associata l_udm_associate[] = {
    {{"l",   0.0f,   1.0f,      0},    0,       0,   0},
    {{"gal", 0.0f,   0.264172f, 0},    0,       0,   0},
};

// Volume flow (base unit: l/s).
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

namespace kel {

static_assert(base_per_prima(l_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(l_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(l_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(l_sec_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(l_sec_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(l_sec_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(l_lap_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(l_lap_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(l_lap_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(kg_sec_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(kg_sec_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(kg_sec_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
