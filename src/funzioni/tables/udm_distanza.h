// Units of length: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_DISTANZA_H
#define KEL_TABLES_UDM_DISTANZA_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Long distance (base unit: km). No row of the quantity table uses it; it is there for programs that read it.
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

// Position of a moving part. Values are recorded in metres, which no row shows: so the first row, which the library
// reports as the base unit, has a gain that is not 1.
//    unit  offset  gain      recip  default  max  min  decimals
constexpr s_udm_associata pos_udm_associate[] = {
    {{"mm", 0.0f,   1000.0f,  0},    0,       0,   0},
    {{"in", 0.0f,   39.3701f, 0},    1,       1,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(km_udm_associate,
                              {1, CHILOMETRO / MIGLIO, CHILOMETRO / METRO, CHILOMETRO / PIEDE, CHILOMETRO / CENTIMETRO,
                               CHILOMETRO / POLLICE, CHILOMETRO / MILLIMETRO}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(m_udm_associate, {1, METRO / CHILOMETRO, METRO / MIGLIO, METRO / PIEDE}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(pos_udm_associate, {METRO / MILLIMETRO, METRO / POLLICE}),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
