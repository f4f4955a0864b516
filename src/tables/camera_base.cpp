// The basic functions that the on-board camera can show.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/camera.h"

using kel::fid;
using kel::fine_tabella;

// clang-format off
extern "C" {

//   function                                                     unit      scale   code  factor   short   name               legacy identifier  type
constexpr t_SFunzioneZumikoCam funz_ZumikoCam_base[] = {
    {fid(FID_PHI_RPM),                                            "rpm",    1.0f,   1,    1.0f,    "rpm",  "Engine RPM",      "RPM_MOTORE",      KEL_TIPO_INT32},
    {fid(FID_PHI_SPEED),                                          "km/h",   10.0f,  2,    1.0f,    "Spd",  "Speed",           "REF_SPEED",       KEL_TIPO_FLOAT},
    {fid(FID_PHI_GEAR, FID_OBJ_GEAR),                             "#",      1.0f,   3,    1.0f,    "Gear", "Gear",            "GEAR",            KEL_TIPO_MARCIA},
    {fid(FID_PHI_TEMPERATURE, FID_OBJ_WATER),                     "C",      10.0f,  4,    1.0f,    "WatT", "Water Temp",      "WATER_TEMP",      KEL_TIPO_FLOAT},
    {fid(FID_PHI_TEMPERATURE, FID_OBJ_UNDEFINED, FID_POS_ENGINE), "C",      10.0f,  5,    1.0f,    "HeaT", "Head Temp",       "HEAD_TEMP",       KEL_TIPO_FLOAT},
    {fid(FID_PHI_TEMPERATURE, FID_OBJ_AIR, FID_POS_EXHAUST),      "C",      10.0f,  6,    1.0f,    "ExhT", "Exhaust Temp",    "EXHAUST_TEMP",    KEL_TIPO_FLOAT},
    {fid(FID_PHI_TEMPERATURE, FID_OBJ_OIL),                       "C",      10.0f,  7,    1.0f,    "OilT", "Oil Temp",        "OIL_TEMP",        KEL_TIPO_FLOAT},
    {fid(FID_PHI_PRESSURE, FID_OBJ_OIL),                          "bar",    100.0f, 8,    1.0f,    "OilP", "Oil Pres",        "OIL_PRESS",       KEL_TIPO_FLOAT},
    {fid(FID_PHI_PRESSURE, FID_OBJ_BRAKE_FLUID),                  "bar",    100.0f, 9,    1.0f,    "BrkP", "Brake Pres",      "BRAKE_PRESS",     KEL_TIPO_FLOAT},
    {fid(FID_PHI_PERCENT, FID_OBJ_THROTTLE_LOAD),                 "%",      1.0f,   10,   1.0f,    "ThPS", "Throttle Pos",    "THROTTLE_POS",    KEL_TIPO_INT32},
    {fid(FID_PHI_PERCENT, FID_OBJ_BRAKE_LOAD),                    "%",      1.0f,   11,   1.0f,    "BkPS", "Brake Pos",       "BRAKE_POS",       KEL_TIPO_INT32},
    {fid(FID_PHI_PERCENT, FID_OBJ_CLUTCH_ENGAGEMENT),             "%",      1.0f,   12,   1.0f,    "ClPS", "Clutch Pos",      "CLUTCH_POS",      KEL_TIPO_INT32},
    {fid(FID_PHI_ANGLE, FID_OBJ_STEERING),                        "deg",    1.0f,   13,   1.0f,    "StPS", "Steering Pos",    "STEER_POS",       KEL_TIPO_INT32},
    {fid(FID_PHI_LAMBDA, FID_OBJ_LAMBDA, FID_POS_EXHAUST),        "lambda", 100.0f, 14,   1.0f,    "Lbda", "Lambda",          "LAMBDA",          KEL_TIPO_FLOAT},
    {fid(FID_PHI_ACCELERATION, FID_OBJ_Y),                        "g",      100.0f, 15,   1.0f,    "LatG", "Lateral Accel",   "LATERAL_ACCEL",   KEL_TIPO_FLOAT},
    {fid(FID_PHI_ACCELERATION, FID_OBJ_X),                        "g",      100.0f, 16,   1.0f,    "LonG", "Inline Accel",    "LONG_ACCEL",      KEL_TIPO_FLOAT},
    {fid(FID_PHI_PERCENT, FID_OBJ_FUEL),                          "%",      1.0f,   17,   1.0f,    "FueL", "Fuel Level",      "FUEL_LEVEL",      KEL_TIPO_INT32},
    {fid(FID_PHI_VOLTAGE, FID_OBJ_BATTERY),                       "V",      10.0f,  18,   1000.0f, "Batt", "Battery Voltage", "BATTERY",         KEL_TIPO_FLOAT},
    {fid(FID_PHI_ACCELERATION, FID_OBJ_Z),                        "g",      100.0f, 19,   1.0f,    "VerG", "Vertical Accel",  "VERTICAL_ACCEL",  KEL_TIPO_FLOAT},
    {fine_tabella,                                                "",       1.0f,   -1,   1.0f,    "",     "",                "",                KEL_TIPO_CALCOLATO},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(fine_solo_in_fondo(funz_ZumikoCam_base, &t_SFunzioneZumikoCam::fid), "the end row is last and only last");
static_assert(chiavi_uniche(funz_ZumikoCam_base, &t_SFunzioneZumikoCam::fid), "a function stands once");
static_assert(chiavi_note(funz_ZumikoCam_base, &t_SFunzioneZumikoCam::fid), "functions have fields with descriptors");
static_assert(codici_unici(funz_ZumikoCam_base), "a camera code stands for one function");
static_assert(testi_in_misura(funz_ZumikoCam_base), "texts are ASCII and fit their fields");

constexpr bool codici_in_fila() {
    for (std::size_t i = 0; i + 1 < std::size(funz_ZumikoCam_base); ++i)
        if (funz_ZumikoCam_base[i].codice != static_cast<int>(i) + 1)
            return false;
    return true;
}
static_assert(codici_in_fila(), "the camera counts its basic functions from 1, without a gap");

}  // namespace kel
