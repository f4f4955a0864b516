// Units of length: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_DISTANZA_H
#define KEL_TABLES_UDM_DISTANZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Long distance (base unit: km). No row of the quantity table uses it; client programs read it.
//    unit  offset  gain        recip  default  max  min  decimals
constexpr s_udm_associata km_udm_associate[] = {
    {{"km", 0.0f,   1.0f,       0},    1,       1,   0},
    {{"mi", 0.0f,   0.621371f,  0},    1,       1,   0},
    {{"m",  0.0f,   1000.0f,    0},    0,       0,   0},
    {{"ft", 0.0f,   3280.84f,   0},    0,       0,   0},
    {{"cm", 0.0f,   100000.0f,  0},    0,       0,   0},
    {{"in", 0.0f,   39370.1f,   0},    0,       0,   0},
    {{"mm", 0.0f,   1000000.0f, 0},    0,       0,   0},
};

// Distance (base unit: m).
//    unit  offset  gain          recip  default  max  min  decimals
constexpr s_udm_associata m_udm_associate[] = {
    {{"m",  0.0f,   1.0f,         0},    0,       0,   0},
    {{"km", 0.0f,   0.001f,       0},    3,       3,   0},
    {{"mi", 0.0f,   0.000621371f, 0},    3,       3,   0},
    {{"ft", 0.0f,   3.28084f,     0},    0,       0,   0},
};

// Position of a moving part: the value recorded is in metres, of which the table shows only multiples;
// "mm" is reported as the base unit all the same.
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata pos_udm_associate[] = {
    {{"mm", 0.0f,   1000.0f,  0},    0,       0,   0},
    {{"in", 0.0f,   39.3701f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(base_per_prima(km_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(km_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(km_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(m_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(m_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(m_udm_associate), "min <= default <= max in every row");

static_assert(unita_distinte(pos_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(pos_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
