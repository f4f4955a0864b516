// Electrical units: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_ELETTRICHE_H
#define KEL_TABLES_UDM_ELETTRICHE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Voltage (base unit: mV).
//    unit  offset  gain    recip  default  max  min  decimals
constexpr s_udm_associata mV_udm_associate[] = {
    {{"mV", 0.0f,   1.0f,   0},    0,       0,   0},
    {{"V",  0.0f,   0.001f, 0},    3,       3,   0},
};

// Battery voltage: the value recorded is in millivolts, shown in volts with at least one decimal;
// "V" is reported as the base unit all the same.
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

static_assert(base_per_prima(mV_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(mV_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(mV_udm_associate), "min <= default <= max in every row");

static_assert(unita_distinte(battery_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(battery_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(A_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(A_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(A_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
