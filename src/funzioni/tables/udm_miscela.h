// Units of the mixture: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_MISCELA_H
#define KEL_TABLES_UDM_MISCELA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Air/fuel ratio.
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata afr_udm_associate[] = {
    {{"AFR", 0.0f,   1.0f, 0},    2,       2,   0},
};

// Lambda of one engine or probe. At least one decimal, because a mixture differs from another one in the decimals.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata lambda_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    2,       2,   1},
};

// Any other lambda. At least one decimal, for the same reason.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata lambda_tot_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    2,       2,   1},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(unita_in_regola(afr_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(lambda_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(lambda_tot_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
