// What the camera tables and the legacy identifier table hold, cell by cell.
#ifndef KEL_TEST_ATTESI_CAMERA_H
#define KEL_TEST_ATTESI_CAMERA_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Zumiko {
    std::uint32_t fid;
    const char* udm;
    float scala;
    std::uint32_t bit_scala;
    int codice;
    float fattore;
    std::uint32_t bit_fattore;
    const char* breve;
    const char* testo;
    const char* id;
    int tipo_campione;
    bool visibile;  // the walk over the camera functions stops here
};

struct Vecchia {
    const char* breve;
    const char* testo;
    const char* id;
    std::uint32_t fid;
};

// clang-format off

// Identifier, unit, scale and its bits, code, factor and its bits, names, legacy identifier, sample type, visible.
inline constexpr Zumiko zumiko_base[] = {
    {0x0000000F, "rpm",    1.0f,   0x3F800000, 1,  1.0f,    0x3F800000, "rpm",  "Engine RPM",      "RPM_MOTORE",     0,  true},
    {0x00000010, "km/h",   10.0f,  0x41200000, 2,  1.0f,    0x3F800000, "Spd",  "Speed",           "REF_SPEED",      6,  true},
    {0x0000061F, "#",      1.0f,   0x3F800000, 3,  1.0f,    0x3F800000, "Gear", "Gear",            "GEAR",           11, true},
    {0x00001091, "C",      10.0f,  0x41200000, 4,  1.0f,    0x3F800000, "WatT", "Water Temp",      "WATER_TEMP",     6,  true},
    {0x00030011, "C",      10.0f,  0x41200000, 5,  1.0f,    0x3F800000, "HeaT", "Head Temp",       "HEAD_TEMP",      6,  true},
    {0x00040091, "C",      10.0f,  0x41200000, 6,  1.0f,    0x3F800000, "ExhT", "Exhaust Temp",    "EXHAUST_TEMP",   6,  true},
    {0x00000B91, "C",      10.0f,  0x41200000, 7,  1.0f,    0x3F800000, "OilT", "Oil Temp",        "OIL_TEMP",       6,  true},
    {0x00000B8E, "bar",    100.0f, 0x42C80000, 8,  1.0f,    0x3F800000, "OilP", "Oil Pres",        "OIL_PRESS",      6,  true},
    {0x0000020E, "bar",    100.0f, 0x42C80000, 9,  1.0f,    0x3F800000, "BrkP", "Brake Pres",      "BRAKE_PRESS",    6,  true},
    {0x00000E81, "%",      1.0f,   0x3F800000, 10, 1.0f,    0x3F800000, "ThPS", "Throttle Pos",    "THROTTLE_POS",   0,  true},
    {0x00000281, "%",      1.0f,   0x3F800000, 11, 1.0f,    0x3F800000, "BkPS", "Brake Pos",       "BRAKE_POS",      0,  true},
    {0x00000301, "%",      1.0f,   0x3F800000, 12, 1.0f,    0x3F800000, "ClPS", "Clutch Pos",      "CLUTCH_POS",     0,  true},
    {0x00000D84, "deg",    1.0f,   0x3F800000, 13, 1.0f,    0x3F800000, "StPS", "Steering Pos",    "STEER_POS",      0,  true},
    {0x0004091E, "lambda", 100.0f, 0x42C80000, 14, 1.0f,    0x3F800000, "Lbda", "Lambda",          "LAMBDA",         6,  true},
    {0x00001183, "g",      100.0f, 0x42C80000, 15, 1.0f,    0x3F800000, "LatG", "Lateral Accel",   "LATERAL_ACCEL",  6,  true},
    {0x00001103, "g",      100.0f, 0x42C80000, 16, 1.0f,    0x3F800000, "LonG", "Inline Accel",    "LONG_ACCEL",     6,  true},
    {0x00000581, "%",      1.0f,   0x3F800000, 17, 1.0f,    0x3F800000, "FueL", "Fuel Level",      "FUEL_LEVEL",     0,  true},
    {0x00000195, "V",      10.0f,  0x41200000, 18, 1000.0f, 0x447A0000, "Batt", "Battery Voltage", "BATTERY",        6,  true},
    {0x00001203, "g",      100.0f, 0x42C80000, 19, 1.0f,    0x3F800000, "VerG", "Vertical Accel",  "VERTICAL_ACCEL", 6,  true},
    {0x000B9D20, "",       1.0f,   0x3F800000, -1, 1.0f,    0x3F800000, "",     "",                "",               25, false},
};

inline constexpr Zumiko zumiko_estese[] = {
    {0x00068A07, "deg7", 1.0f,      0x3F800000, 0xE001, 1.0f,    0x3F800000, "Lat",  "Latitude",         "FV_EXT_LATITUDE",     21, true},
    {0x00068A87, "deg7", 1.0f,      0x3F800000, 0xE002, 1.0f,    0x3F800000, "Lon",  "Longitude",        "FV_EXT_LONGITUDE",    21, true},
    {0x00068107, "m",    1000.0f,   0x447A0000, 0xE003, 1.0f,    0x3F800000, "Alt",  "Altitude",         "HEIGHT",              6,  true},
    {0x00069214, "m/s",  100.0f,    0x42C80000, 0xE004, 3.6f,    0x40666666, "VerV", "Vert Velocity",    "VEL_VERT",            6,  true},
    {0x00068684, "deg",  100000.0f, 0x47C35000, 0xE005, 1.0f,    0x3F800000, "Hd",   "Heading",          "HEADING",             6,  true},
    {0x00080012, "#",    1.0f,      0x3F800000, 0xE007, 1.0f,    0x3F800000, "Time", "Time",             "FV_EXT_TIME",         0,  false},
    {0x00080019, "#",    1.0f,      0x3F800000, 0xE008, 1.0f,    0x3F800000, "Date", "Date",             "FV_EXT_DATE",         0,  false},
    {0x0001150B, "#",    1.0f,      0x3F800000, 0xE009, 1.0f,    0x3F800000, "Mclk", "Master Clock",     "FV_MASTER_CLK",       0,  false},
    {0x00011586, "#",    1.0f,      0x3F800000, 0xE00A, 1.0f,    0x3F800000, "Msta", "Master Status",    "FV_MASTER_STATUS",    0,  false},
    {0x00001586, "#",    1.0f,      0x3F800000, 0xE00B, 1.0f,    0x3F800000, "Lsta", "Local Status",     "FV_LOCAL_STATUS",     0,  false},
    {0x00068B08, "km",   100000.0f, 0x47C35000, 0xE00C, 1000.0f, 0x447A0000, "LOdo", "Logging Odometer", "ODO_DISTANCE",        6,  true},
    {0x00069608, "km",   100000.0f, 0x47C35000, 0xE012, 1000.0f, 0x447A0000, "TOdo", "Total Odometer",   "FV_EXT_ODOMETRO",     6,  false},
    {0x00069688, "km",   100000.0f, 0x47C35000, 0xE013, 1000.0f, 0x447A0000, "ROdo", "Resettable Odo",   "FV_EXT_RESETODO",     6,  false},
    {0x000A940B, "#",    1.0f,      0x3F800000, 0xE00F, 1.0f,    0x3F800000, "NSat", "Sat Number",       "FG_NUM_SAT",          0,  true},
    {0x00098008, "m",    1.0f,      0x3F800000, 0xE010, 1.0f,    0x3F800000, "LMLD", "LML Distance",     "FV_EXT_LML_DIST",     0,  true},
    {0x00001392, "cs",   1.0f,      0x3F800000, 0xE011, 10.0f,   0x41200000, "Prdc", "Predictive",       "FV_EXT_PREDICTIVE",   0,  false},
    {0x0000098B, "#",    1.0f,      0x3F800000, 0xF002, 1.0f,    0x3F800000, "LapN", "Lap Number",       "LAP_NUM",             0,  false},
    {0x00000992, "cs",   1.0f,      0x3F800000, 0xF000, 10.0f,   0x41200000, "LapT", "Lap Time",         "LAP_TIME",            0,  false},
    {0x0000130B, "#",    1.0f,      0x3F800000, 0xF004, 1.0f,    0x3F800000, "BLpN", "Best Lap Number",  "BEST_LAP_NUM",        0,  false},
    {0x00001312, "cs",   1.0f,      0x3F800000, 0xF005, 10.0f,   0x41200000, "BLpT", "Best Lap Time",    "BEST_LAP_TIME",       0,  false},
    {0x00001012, "cs",   0.01f,     0x3C23D70A, 0xB00F, 10.0f,   0x41200000, "VRcT", "Video Rec Time",   "VIDEO_REC_TIME",      6,  true},
    {0x00001712, "#",    1.0f,      0x3F800000, -1,     1.0f,    0x3F800000, "RolT", "Rolling Time",     "FG_RUNNING_LAP_TIME", 6,  false},
    {0x000B9D20, "",     1.0f,      0x3F800000, -1,     1.0f,    0x3F800000, "",     "",                 "",                    25, false},
};

// The legacy identifiers: short name, long name, legacy identifier, identifier.
inline constexpr Vecchia vecchie[] = {
    {"GBxT", "Gear Box Temp",    "FG_GEAR_BOX_TEMP",        0x00048611},
    {"APPS", "Admission Pedal",  "FG_ADMISSION_PPS",        0x00008C01},
    {"AirT", "Admission AirTmp", "FG_ADMISSION_AIR_TEMP",   0x00008091},
    {"TurP", "Turbo Pressure",   "FG_EXHAUST_TURBO_PRESS",  0x0000808E},
    {"FEnP", "Fuel Eng Pres",    "FG_ENGINE_FUEL_PRESS",    0x0003058E},
    {"FAdP", "Fuel Adm Pres",    "FG_ADMISSION_FUEL_PRESS", 0x0000858E},
    {"SpRL", "Speed Wheel RL",   "REF_SPEED_RL",            0x03070010},
    {"SpRR", "Speed Wheel RR",   "REF_SPEED_RR",            0x02870010},
    {"SpFL", "Speed Wheel FL",   "REF_SPEED_FL",            0x05070010},
    {"SpFR", "Speed Wheel FR",   "REF_SPEED_FR",            0x04870010},
    {"BkBl", "Brake Balance",    "BRAKE_BALANCE",           0x00318281},
    {"BkPF", "Brake Pres Front", "BRAKE_PRESS_FRONT",       0x0400020E},
    {"BkPR", "Brake Pres Rear",  "BRAKE_PRESS_REAR",        0x0200020E},
    {"TipU", "Gear Tip Up",      "GEAR_PEDAL_SHIFT_UP",     0x1004860B},
    {"TipD", "Gear Tip Down",    "GEAR_PEDAL_SHIFT_DOWN",   0x0804860B},
    {"DfMp", "Diff Map",         "DIFFERENTIAL_MAP",        0x0006000B},
    {"GeaP", "Gear Lever Pos",   "GEAR_LEVER_POS",          0x0000060B},
    {"RolT", "Rolling Time",     "FG_RUNNING_LAP_TIME",     0x00001712},
    {"DSG",  "DSG",              "DSG",                     0x0040060B},
    {"",     "",                 "",                        0x000B9D20},
};
// clang-format on

}  // namespace attesi

#endif
