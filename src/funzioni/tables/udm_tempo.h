// Units of time: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_TEMPO_H
#define KEL_TABLES_UDM_TEMPO_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

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

// Time spent switched off (base unit: s). Whole seconds unless the user asks for more: default 0, maximum 3.
//    unit   offset  gain          recip  default  max  min  decimals
constexpr s_udm_associata s_udm_associate[] = {
    {{"s",   0.0f,   1.0f,         0},    0,       3,   0},
    {{"ms",  0.0f,   1000.0f,      0},    0,       0,   0},
    {{"min", 0.0f,   0.0166667f,   0},    0,       0,   0},
    {{"h",   0.0f,   0.000277778f, 0},    0,       0,   0},
};

// Lap times, which have a text form of their own.
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

namespace kel {

static_assert(base_per_prima(ms_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(ms_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(ms_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(s_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(s_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(s_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(time_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(time_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(time_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(date_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(date_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(date_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
