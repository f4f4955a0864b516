// Units of pressure: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_PRESSIONE_H
#define KEL_TABLES_UDM_PRESSIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Any pressure (base unit: bar).
//    unit    offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata bar_udm_associate[] = {
    {{"bar",  0.0f,   1.0f,     0},    2,       2,   0},
    {{"psi",  0.0f,   14.5038f, 0},    1,       1,   0},
    {{"kPa",  0.0f,   100.0f,   0},    0,       0,   0},
    {{"mbar", 0.0f,   1000.0f,  0},    0,       0,   0},
    {{"inHg", 0.0f,   29.5301f, 0},    0,       0,   0},
};

// Oil pressure (base unit: bar).
//    unit   offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata bar_oil_udm_associate[] = {
    {{"bar", 0.0f,   1.0f,     0},    2,       2,   0},
    {{"psi", 0.0f,   14.5038f, 0},    1,       1,   0},
    {{"kPa", 0.0f,   100.0f,   0},    0,       0,   0},
};

// Brake circuits (base unit: bar), two digits more on the left than other pressures.
//    unit   offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata bar_brake_udm_associate[] = {
    {{"bar", 0.0f,   1.0f,     0},    1,       1,   0},
    {{"psi", 0.0f,   14.5038f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(bar_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(bar_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(bar_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(bar_oil_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(bar_oil_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(bar_oil_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(bar_brake_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(bar_brake_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(bar_brake_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
