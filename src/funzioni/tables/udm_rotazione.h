// Units of angles and rotation: value in the unit = value in the base unit * gain + offset.
//
// The tables are defined in this header because the quantity table computes its index from their texts. No other file
// may include it.
#ifndef KEL_TABLES_UDM_ROTAZIONE_H
#define KEL_TABLES_UDM_ROTAZIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/misure.h"
#include "tables/unita_in_regola.h"

// clang-format off
extern "C" {

// Angle (base unit: deg).
//    unit   offset  gain        recip  default  max  min  decimals
constexpr s_udm_associata deg_udm_associate[] = {
    {{"deg", 0.0f,   1.0f,       0},    1,       1,   0},
    {{"rad", 0.0f,   0.0174533f, 0},    1,       1,   0},
};

// Angular velocity (base unit: deg/s).
//
// The gain of rps is ten times that of revolutions per second: 1/36, where a revolution has 360 degrees. 360 deg/s show
// as 10 rps. It stays, because displays must show the same for a recording in every release.
//    unit       offset  gain         recip  default  max  min  decimals
constexpr s_udm_associata deg_sec_udm_associate[] = {
    {{"deg/s",   0.0f,   1.0f,        0},    0,       0,   0},
    {{"rad/s",   0.0f,   0.0174533f,  0},    0,       0,   0},
    {{"rpm",     0.0f,   0.166667f,   0},    0,       0,   0},
    {{"rpm/100", 0.0f,   0.00166667f, 0},    0,       0,   0},  // hundreds of rpm
    {{"rps",     0.0f,   0.0277778f,  0},    0,       0,   0},  // 0.00277778 would be revolutions per second
};

// Roll, pitch and yaw rate (base unit: deg/s).
//    unit     offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata gyro_udm_associate[] = {
    {{"deg/s", 0.0f,   1.0f, 0},    0,       0,   0},
};

// Rotational speed (base unit: rpm).
//    unit   offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata rpm_udm_associate[] = {
    {{"rpm", 0.0f,   1.0f, 0},    0,       0,   0},
};

// Its rate of change (base unit: rpm/s).
//    unit     offset  gain  recip  default  max  min  decimals
constexpr s_udm_associata rpm_s_udm_associate[] = {
    {{"rpm/s", 0.0f,   1.0f, 0},    0,       0,   0},
};

}  // extern "C"
// clang-format on

namespace kel::misure {

static_assert(unita_in_regola(deg_udm_associate, {1, GRADO / RADIANTE}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(deg_sec_udm_associate, {1, GRADO / RADIANTE, GRADO / (GIRO / MINUTO),
                                                      GRADO / (GIRO / MINUTO) / 100, 10 * GRADO / GIRO}),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(gyro_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(rpm_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");
static_assert(unita_in_regola(rpm_s_udm_associate),
              "base unit first, each unit once, gains as derived, min <= default <= max");

}  // namespace kel::misure

#endif
