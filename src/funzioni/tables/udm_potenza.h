// Units of power and torque: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_POTENZA_H
#define KEL_TABLES_UDM_POTENZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Power (base unit: kW).
//
// The gains of HP and CV are swapped: 1.35962 is that of the metric horsepower, the Italian CV, and 1.34102 that of the
// imperial one. They stay swapped, because displays must show the same for a recording in every release.
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata kW_sec_udm_associate[] = {
    {{"kW", 0.0f,   1.0f,     0},    2,       2,   0},
    {{"HP", 0.0f,   1.35962f, 0},    2,       2,   0},  // the gain of CV
    {{"CV", 0.0f,   1.34102f, 0},    2,       2,   0},  // the gain of HP
    {{"W",  0.0f,   1000.0f,  0},    0,       0,   0},
};

// Torque (base unit: Nm).
//    unit  offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata Nm_udm_associate[] = {
    {{"Nm", 0.0f,   1.0f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(kW_sec_udm_associate,
                              {1, CHILOWATT / CAVALLO_METRICO, CHILOWATT / CAVALLO_IMPERIALE, CHILOWATT / WATT}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(Nm_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
