// Units of temperature: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_TEMPERATURA_H
#define KEL_TABLES_UDM_TEMPERATURA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

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

static_assert(base_per_prima(C_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(C_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(C_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
