// Units of acceleration: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_ACCELERAZIONE_H
#define KEL_TABLES_UDM_ACCELERAZIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Acceleration (base unit: g).
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata g_udm_associate[] = {
    {{"g", 0.0f,   1.0f, 0},    2,       2,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(g_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(g_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(g_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
