// Units of power and torque: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_POTENZA_H
#define KEL_TABLES_UDM_POTENZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Power (base unit: kW).
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata kW_sec_udm_associate[] = {
    {{"kW", 0.0f,   1.0f,     0},    2,       2,   0},
    {{"HP", 0.0f,   1.35962f, 0},    2,       2,   0},
    {{"CV", 0.0f,   1.34102f, 0},    2,       2,   0},
    {{"W",  0.0f,   1000.0f,  0},    0,       0,   0},
};

// Torque (base unit: Nm).
//    unit  offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata Nm_udm_associate[] = {
    {{"Nm", 0.0f,   1.0f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(kW_sec_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(kW_sec_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(kW_sec_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(Nm_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(Nm_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(Nm_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
