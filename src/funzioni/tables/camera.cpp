// The functions that the on-board camera can show: the basic ones, and the extended ones.
//
// The camera is sent whole numbers: the value in the row's unit times the scale. The library does not use the second
// factor; programs that read the tables may.
#include "tables/camera.h"

#include <string_view>

using kel::fid;
using kel::FINE_TABELLA;

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
    {FINE_TABELLA,                                                "",       1.0f,   -1,   1.0f,    "",     "",                "",                KEL_TIPO_CALCOLATO},
};

// The rows are not in the order of their codes, and the rolling time has no code. Programs know the rows by their
// numbers, so they stay where they are. The camera shows only the codes that `estesa_visibile` accepts; look-ups find
// every row.
//
// "deg7" is 1e-7 degree, "cs" a hundredth of a second. The rolling time is a row of `funz_Kel` too, with the same
// identifier.
//   function                                                             unit    scale      code    factor   short   name                legacy identifier      type
constexpr t_SFunzioneZumikoCam funz_ZumikoCam_estese[] = {
    {fid(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_VEHICLE),          "deg7", 1.0f,      0xE001, 1.0f,    "Lat",  "Latitude",         "FV_EXT_LATITUDE",     KEL_TIPO_COORDINATA},
    {fid(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_VEHICLE),         "deg7", 1.0f,      0xE002, 1.0f,    "Lon",  "Longitude",        "FV_EXT_LONGITUDE",    KEL_TIPO_COORDINATA},
    {fid(FID_PHI_COORDINATE, FID_OBJ_ALTITUDE, FID_POS_VEHICLE),          "m",    1000.0f,   0xE003, 1.0f,    "Alt",  "Altitude",         "HEIGHT",              KEL_TIPO_FLOAT},
    {fid(FID_PHI_VELOCITY, FID_OBJ_Z, FID_POS_VEHICLE),                   "m/s",  100.0f,    0xE004, 3.6f,    "VerV", "Vert Velocity",    "VEL_VERT",            KEL_TIPO_FLOAT},
    {fid(FID_PHI_ANGLE, FID_OBJ_HEADING, FID_POS_VEHICLE),                "deg",  100000.0f, 0xE005, 1.0f,    "Hd",   "Heading",          "HEADING",             KEL_TIPO_FLOAT},
    {fid(FID_PHI_TIME, FID_OBJ_UNDEFINED, FID_POS_EVENT_RUN),             "#",    1.0f,      0xE007, 1.0f,    "Time", "Time",             "FV_EXT_TIME",         KEL_TIPO_INT32},
    {fid(FID_PHI_DATE, FID_OBJ_UNDEFINED, FID_POS_EVENT_RUN),             "#",    1.0f,      0xE008, 1.0f,    "Date", "Date",             "FV_EXT_DATE",         KEL_TIPO_INT32},
    {fid(FID_PHI_NUMBER, FID_OBJ_MASTER_CLOCK, FID_POS_KELDEVICE),        "#",    1.0f,      0xE009, 1.0f,    "Mclk", "Master Clock",     "FV_MASTER_CLK",       KEL_TIPO_INT32},
    {fid(FID_PHI_CODE, FID_OBJ_STATUS, FID_POS_KELDEVICE),                "#",    1.0f,      0xE00A, 1.0f,    "Msta", "Master Status",    "FV_MASTER_STATUS",    KEL_TIPO_INT32},
    {fid(FID_PHI_CODE, FID_OBJ_STATUS),                                   "#",    1.0f,      0xE00B, 1.0f,    "Lsta", "Local Status",     "FV_LOCAL_STATUS",     KEL_TIPO_INT32},
    {fid(FID_PHI_DISTANCE, FID_OBJ_LOGGING_ODOMETER, FID_POS_VEHICLE),    "km",   100000.0f, 0xE00C, 1000.0f, "LOdo", "Logging Odometer", "ODO_DISTANCE",        KEL_TIPO_FLOAT},
    {fid(FID_PHI_DISTANCE, FID_OBJ_TOTAL_ODOMETER, FID_POS_VEHICLE),      "km",   100000.0f, 0xE012, 1000.0f, "TOdo", "Total Odometer",   "FV_EXT_ODOMETRO",     KEL_TIPO_FLOAT},
    {fid(FID_PHI_DISTANCE, FID_OBJ_RESETTABLE_ODOMETER, FID_POS_VEHICLE), "km",   100000.0f, 0xE013, 1000.0f, "ROdo", "Resettable Odo",   "FV_EXT_RESETODO",     KEL_TIPO_FLOAT},
    {fid(FID_PHI_NUMBER, FID_OBJ_SATELLITE, FID_POS_GPS),                 "#",    1.0f,      0xE00F, 1.0f,    "NSat", "Sat Number",       "FG_NUM_SAT",          KEL_TIPO_INT32},
    {fid(FID_PHI_DISTANCE, FID_OBJ_UNDEFINED, FID_POS_TRACK),             "m",    1.0f,      0xE010, 1.0f,    "LMLD", "LML Distance",     "FV_EXT_LML_DIST",     KEL_TIPO_INT32},
    {fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE),                               "cs",   1.0f,      0xE011, 10.0f,   "Prdc", "Predictive",       "FV_EXT_PREDICTIVE",   KEL_TIPO_INT32},
    {fid(FID_PHI_NUMBER, FID_OBJ_LAP),                                    "#",    1.0f,      0xF002, 1.0f,    "LapN", "Lap Number",       "LAP_NUM",             KEL_TIPO_INT32},
    {fid(FID_PHI_TIME, FID_OBJ_LAP),                                      "cs",   1.0f,      0xF000, 10.0f,   "LapT", "Lap Time",         "LAP_TIME",            KEL_TIPO_INT32},
    {fid(FID_PHI_NUMBER, FID_OBJ_BEST_LAP),                               "#",    1.0f,      0xF004, 1.0f,    "BLpN", "Best Lap Number",  "BEST_LAP_NUM",        KEL_TIPO_INT32},
    {fid(FID_PHI_TIME, FID_OBJ_BEST_LAP),                                 "cs",   1.0f,      0xF005, 10.0f,   "BLpT", "Best Lap Time",    "BEST_LAP_TIME",       KEL_TIPO_INT32},
    {fid(FID_PHI_TIME, FID_OBJ_VIDEORECORDING),                           "cs",   0.01f,     0xB00F, 10.0f,   "VRcT", "Video Rec Time",   "VIDEO_REC_TIME",      KEL_TIPO_FLOAT},
    {fid(FID_PHI_TIME, FID_OBJ_RUNNING_LAP),                              "#",    1.0f,      -1,     1.0f,    "RolT", "Rolling Time",     "FG_RUNNING_LAP_TIME", KEL_TIPO_FLOAT},
    {FINE_TABELLA,                                                        "",     1.0f,      -1,     1.0f,    "",     "",                 "",                    KEL_TIPO_CALCOLATO},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(camera_in_regola(funz_ZumikoCam_base),
              "end row last; each function and each code once; texts ASCII and in measure; scales above 0");
static_assert(camera_in_regola(funz_ZumikoCam_estese),
              "end row last; each function and each code once; texts ASCII and in measure; scales above 0");

constexpr bool codici_in_fila() {
    for (std::size_t i = 0; i + 1 < std::size(funz_ZumikoCam_base); ++i)
        if (funz_ZumikoCam_base[i].codice != static_cast<int>(i) + 1)
            return false;
    return true;
}
static_assert(codici_in_fila(), "the camera counts its basic functions from 1, without a gap");

// The rows that the camera shows are those that `estesa_visibile` accepts.
constexpr bool visibili_come_sulla_camera() {
    constexpr std::size_t visibili[] = {0, 1, 2, 3, 4, 10, 13, 14, 20};
    std::size_t prossima = 0;
    for (std::size_t i = 0; i + 1 < std::size(funz_ZumikoCam_estese); ++i) {
        const bool attesa = prossima < std::size(visibili) && visibili[prossima] == i;
        if (estesa_visibile(funz_ZumikoCam_estese[i].codice) != attesa)
            return false;
        prossima += attesa ? 1 : 0;
    }
    return prossima == std::size(visibili);
}
static_assert(visibili_come_sulla_camera(),
              "position, heading, odometer, satellites, distance and recording time show");

// --- The indexes over both tables, the basic functions first -------------------------------------------------------

namespace {

constexpr std::size_t RIGHE_TUTTE = RIGHE_BASE + RIGHE_ESTESE;

constexpr const t_SFunzioneZumikoCam& riga_numero(std::size_t numero) {
    return numero < RIGHE_BASE ? funz_ZumikoCam_base[numero] : funz_ZumikoCam_estese[numero - RIGHE_BASE];
}

constexpr auto FID_DELLE_RIGHE = raccogli<RIGHE_TUTTE>([](std::size_t i) { return riga_numero(i).fid; });
constexpr auto ID_DELLE_RIGHE =
    raccogli<RIGHE_TUTTE>([](std::size_t i) { return std::string_view(riga_numero(i).id); });

}  // namespace

constexpr IndicePerfetto<128> INDICE_CAMERA_FID = indice_perfetto<128>(FID_DELLE_RIGHE);
constexpr IndiceTesti<128, RIGHE_TUTTE> INDICE_CAMERA_ID = indice_testi<128>(ID_DELLE_RIGHE);
static_assert(come_la_scansione(INDICE_CAMERA_FID, FID_DELLE_RIGHE), "every row is found by its function");
static_assert(come_la_scansione(INDICE_CAMERA_ID, ID_DELLE_RIGHE), "every row is found by its legacy identifier");

}  // namespace kel
