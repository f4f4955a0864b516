// Units of acceleration: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_ACCELERAZIONE_H
#define KEL_TABLES_UDM_ACCELERAZIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

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

static_assert(unita_in_regola(g_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
