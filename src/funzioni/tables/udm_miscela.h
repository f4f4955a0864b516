// Units of the mixture: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_MISCELA_H
#define KEL_TABLES_UDM_MISCELA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Air/fuel ratio.
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata afr_udm_associate[] = {
    {{"AFR", 0.0f,   1.0f, 0},    2,       2,   0},
};

// Lambda of one engine or probe, with at least one decimal.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata lambda_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    2,       2,   1},
};

// Any other lambda, with at least one decimal.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata lambda_tot_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    2,       2,   1},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(afr_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(afr_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(afr_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(lambda_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(lambda_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(lambda_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(lambda_tot_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(lambda_tot_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(lambda_tot_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
