// Electrical units: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_ELETTRICHE_H
#define KEL_TABLES_UDM_ELETTRICHE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Voltage (base unit: mV).
//    unit  offset  gain    recip  default  max  min  decimals
constexpr s_udm_associata mV_udm_associate[] = {
    {{"mV", 0.0f,   1.0f,   0},    0,       0,   0},
    {{"V",  0.0f,   0.001f, 0},    3,       3,   0},
};

// Battery voltage. Values are recorded in millivolts and shown in volts, with at least one decimal: so the first row,
// which the library reports as the base unit, has a gain that is not 1.
//    unit offset  gain    recip  default  max  min  decimals
constexpr s_udm_associata battery_udm_associate[] = {
    {{"V", 0.0f,   0.001f, 0},    1,       1,   1},
};

// Current (base unit: A).
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata A_udm_associate[] = {
    {{"A", 0.0f,   1.0f, 0},    3,       3,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(unita_in_regola(mV_udm_associate, {1, 1e-3}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(battery_udm_associate, {1e-3}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(A_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
