// Units of angles and rotation: value in the unit = value in the base unit * gain + offset.
//
// Defined here, and included once, where the quantity table needs the texts.
#ifndef KEL_TABLES_UDM_ROTAZIONE_H
#define KEL_TABLES_UDM_ROTAZIONE_H

#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Angle (base unit: deg).
//    unit   offset  gain        recip  default  max  min  decimals
constexpr s_udm_associata deg_udm_associate[] = {
    {{"deg", 0.0f,   1.0f,       0},    1,       1,   0},
    {{"rad", 0.0f,   0.0174533f, 0},    1,       1,   0},
};

// Angular velocity (base unit: deg/s).
//    unit       offset  gain         recip  default  max  min  decimals
constexpr s_udm_associata deg_sec_udm_associate[] = {
    {{"deg/s",   0.0f,   1.0f,        0},    0,       0,   0},
    {{"rad/s",   0.0f,   0.0174533f,  0},    0,       0,   0},
    {{"rpm",     0.0f,   0.166667f,   0},    0,       0,   0},
    {{"rpm/100", 0.0f,   0.00166667f, 0},    0,       0,   0},
    {{"rps",     0.0f,   0.0277778f,  0},    0,       0,   0},
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

namespace kel {

static_assert(base_per_prima(deg_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(deg_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(deg_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(deg_sec_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(deg_sec_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(deg_sec_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(gyro_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(gyro_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(gyro_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(rpm_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(rpm_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(rpm_udm_associate), "min <= default <= max in every row");

static_assert(base_per_prima(rpm_s_udm_associate), "row 0 is the base unit");
static_assert(unita_distinte(rpm_s_udm_associate), "each unit stands once, with a gain that can be divided by");
static_assert(decimali_ordinati(rpm_s_udm_associate), "min <= default <= max in every row");

}  // namespace kel

#endif
