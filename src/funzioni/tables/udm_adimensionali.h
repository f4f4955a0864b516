// Quantities without a physical unit.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_ADIMENSIONALI_H
#define KEL_TABLES_UDM_ADIMENSIONALI_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// No unit: what an identifier that has no units gets.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata NULL_udm_associate[] = {
    {{"",  0.0f,   1.0f, 0},    0,       0,   0},
};

// Percent.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata pct_udm_associate[] = {
    {{"%", 0.0f,   1.0f, 0},    2,       2,   0},
};

// Percent per second.
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata pct_sec_udm_associate[] = {
    {{"%/s", 0.0f,   1.0f, 0},    1,       1,   0},
};

// Codes.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata code_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    0,       0,   0},
};

// Numbers. Shown whole; the user may ask for one decimal.
//    unit offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata hash_udm_associate[] = {
    {{"#", 0.0f,   1.0f, 0},    0,       1,   0},
};

// Gear.
//    unit    offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata gear_udm_associate[] = {
    {{"gear", 0.0f,   1.0f, 0},    0,       0,   0},
};

// Packets.
//    unit    offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata pckt_udm_associate[] = {
    {{"Pckt", 0.0f,   1.0f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(unita_in_regola(NULL_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(pct_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(pct_sec_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(code_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(hash_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(gear_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(pckt_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel

#endif
