// Units of frequency: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_FREQUENZA_H
#define KEL_TABLES_UDM_FREQUENZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

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

static_assert(unita_in_regola(Hz_udm_associate, {1, 1e-3}),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
