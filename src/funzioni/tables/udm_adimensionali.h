// Quantities without a physical unit.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_ADIMENSIONALI_H
#define KEL_TABLES_UDM_ADIMENSIONALI_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// The answer for an identifier that has no units.
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

// Numbers: whole unless the user asks for one decimal.
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

static_assert(base_per_prima(NULL_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(NULL_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(NULL_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(pct_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(pct_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(pct_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(pct_sec_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(pct_sec_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(pct_sec_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(code_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(code_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(code_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(hash_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(hash_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(hash_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(gear_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(gear_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(gear_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(pckt_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(pckt_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(pckt_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
