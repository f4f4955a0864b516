// Units of frequency: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_FREQUENZA_H
#define KEL_TABLES_UDM_FREQUENZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Frequency (base unit: Hz).
//    unit   offset  gain    recip  default  max  min  decimals
constexpr s_udm_associata Hz_udm_associate[] = {
    {{"Hz",  0.0f,   1.0f,   0},    1,       1,   0},
    {{"kHz", 0.0f,   0.001f, 0},    3,       3,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(Hz_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(Hz_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(Hz_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
