// Units of pressure: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_PRESSIONE_H
#define KEL_TABLES_UDM_PRESSIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

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

// Brake circuits (base unit: bar). Their pressures are tens of times those of oil or air, so one decimal less is shown.
//    unit   offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata bar_brake_udm_associate[] = {
    {{"bar", 0.0f,   1.0f,     0},    1,       1,   0},
    {{"psi", 0.0f,   14.5038f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(bar_udm_associate,
                              {1, BAR / PSI, BAR / CHILOPASCAL, BAR / MILLIBAR, BAR / POLLICE_MERCURIO}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(bar_oil_udm_associate, {1, BAR / PSI, BAR / CHILOPASCAL}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(bar_brake_udm_associate, {1, BAR / PSI}),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
