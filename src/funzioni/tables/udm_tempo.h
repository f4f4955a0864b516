// Units of time: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_TEMPO_H
#define KEL_TABLES_UDM_TEMPO_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Time (base unit: ms).
//    unit   offset  gain          recip  default  max  min  decimals
constexpr s_udm_associata ms_udm_associate[] = {
    {{"ms",  0.0f,   1.0f,         0},    0,       0,   0},
    {{"s",   0.0f,   0.001f,       0},    3,       3,   0},
    {{"min", 0.0f,   1.66667e-05f, 0},    0,       0,   0},
    {{"us",  0.0f,   1000.0f,      0},    0,       0,   0},
    {{"h",   0.0f,   2.77778e-07f, 0},    0,       0,   0},
};

// Time spent switched off (base unit: s). Shown in whole seconds; the user may ask for up to three decimals.
//    unit   offset  gain          recip  default  max  min  decimals
constexpr s_udm_associata s_udm_associate[] = {
    {{"s",   0.0f,   1.0f,         0},    0,       3,   0},
    {{"ms",  0.0f,   1000.0f,      0},    0,       0,   0},
    {{"min", 0.0f,   0.0166667f,   0},    0,       0,   0},
    {{"h",   0.0f,   0.000277778f, 0},    0,       0,   0},
};

// Lap times, which show as minutes, seconds and hundredths.
//    unit    offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata time_udm_associate[] = {
    {{"time", 0.0f,   1.0f, 0},    0,       0,   0},
};

// Date.
//    unit    offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata date_udm_associate[] = {
    {{"Date", 0.0f,   1.0f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(ms_udm_associate, {1, MILLISECONDO / SECONDO, MILLISECONDO / MINUTO,
                                                 MILLISECONDO / MICROSECONDO, MILLISECONDO / ORA}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(s_udm_associate, {1, SECONDO / MILLISECONDO, SECONDO / MINUTO, SECONDO / ORA}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(time_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(date_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
