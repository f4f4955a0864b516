// Units of temperature: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_TEMPERATURA_H
#define KEL_TABLES_UDM_TEMPERATURA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Temperature (base unit: degree Celsius).
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata C_udm_associate[] = {
    {{"C", 0.0f,   1.0f, 0},    1,       1,   0},
    {{"F", 32.0f,  1.8f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(unita_in_regola(C_udm_associate, {1, 9.0 / 5}),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
