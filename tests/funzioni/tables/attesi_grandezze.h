// What the quantity table holds, cell by cell; unit tables and variants are compared by address.
#ifndef KEL_TEST_ATTESI_GRANDEZZE_H
#define KEL_TEST_ATTESI_GRANDEZZE_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Grandezza {
    std::uint32_t chiave;
    unsigned grandezza;
    unsigned oggetto;
    const char* breve;
    const char* testo;
    int num_udm;
    const char* nome_udm;
    const s_udm_associata* udm;
    int num_varianti;
    const char* nome_varianti;
    const s_variante_posizione* varianti;
};

// clang-format off

// The rows before the end row: key, quantity, object, short and long label, units, variants.
inline const Grandezza grandezze_uiv[] = {
    {0x0281, 1,  5,  "X",    "Pct Brake Load",    1, "pct_udm_associate",        pct_udm_associate,        0, "",              nullptr},
    {0x0401, 1,  8,  "X",    "Pct Engine Load",   1, "pct_udm_associate",        pct_udm_associate,        0, "",              nullptr},
    {0x0E81, 1,  29, "X",    "Pct Throttle Load", 1, "pct_udm_associate",        pct_udm_associate,        0, "",              nullptr},
    {0x0001, 1,  0,  "X",    "Percent",           1, "pct_udm_associate",        pct_udm_associate,        0, "",              nullptr},
    {0x0282, 2,  5,  "Xs",   "Rate Brake Load",   1, "pct_sec_udm_associate",    pct_sec_udm_associate,    0, "",              nullptr},
    {0x0402, 2,  8,  "Xs",   "Rate Engine Load",  1, "pct_sec_udm_associate",    pct_sec_udm_associate,    0, "",              nullptr},
    {0x0E82, 2,  29, "Xs",   "Rate Thrtle Load",  1, "pct_sec_udm_associate",    pct_sec_udm_associate,    0, "",              nullptr},
    {0x0002, 2,  0,  "Xs",   "Rate",              1, "pct_sec_udm_associate",    pct_sec_udm_associate,    0, "",              nullptr},
    {0x1103, 3,  34, "G",    "Inline Accel",      1, "g_udm_associate",          g_udm_associate,          0, "",              nullptr},
    {0x1183, 3,  35, "G",    "Lateral Accel",     1, "g_udm_associate",          g_udm_associate,          0, "",              nullptr},
    {0x1203, 3,  36, "G",    "Vertical Accel",    1, "g_udm_associate",          g_udm_associate,          0, "",              nullptr},
    {0x1283, 3,  37, "G",    "GSum",              1, "g_udm_associate",          g_udm_associate,          0, "",              nullptr},
    {0x0003, 3,  0,  "G",    "Acceleration",      1, "g_udm_associate",          g_udm_associate,          0, "",              nullptr},
    {0x0004, 4,  0,  "A",    "Angle",             2, "deg_udm_associate",        deg_udm_associate,        0, "",              nullptr},
    {0x1105, 5,  34, "As",   "Roll Rate",         1, "gyro_udm_associate",       gyro_udm_associate,       0, "",              nullptr},
    {0x1185, 5,  35, "As",   "Pitch Rate",        1, "gyro_udm_associate",       gyro_udm_associate,       0, "",              nullptr},
    {0x1205, 5,  36, "As",   "Yaw Rate",          1, "gyro_udm_associate",       gyro_udm_associate,       0, "",              nullptr},
    {0x0005, 5,  0,  "As",   "Ang Velocity",      5, "deg_sec_udm_associate",    deg_sec_udm_associate,    0, "",              nullptr},
    {0x0606, 6,  12, "GeaN", "Gear",              1, "code_udm_associate",       code_udm_associate,       0, "",              nullptr},
    {0x0506, 6,  10, "ErrN", "Error Code",        1, "code_udm_associate",       code_udm_associate,       0, "",              nullptr},
    {0x0006, 6,  0,  "N",    "Code",              1, "code_udm_associate",       code_udm_associate,       0, "",              nullptr},
    {0x090B, 11, 18, "LDgn", "Lambda Diagn",      1, "code_udm_associate",       code_udm_associate,       0, "",              nullptr},
    {0x0A07, 7,  20, "La",   "Latitude",          1, "coord_lat_udm_associate",  coord_lat_udm_associate,  0, "",              nullptr},
    {0x0A87, 7,  21, "Lo",   "Longitude",         1, "coord_lon_udm_associate",  coord_lon_udm_associate,  0, "",              nullptr},
    {0x0107, 7,  2,  "Al",   "Altitude",          2, "coord_alt_udm_associate",  coord_alt_udm_associate,  0, "",              nullptr},
    {0x0007, 7,  0,  "C",    "Coordinate",        1, "coord_udm_associate",      coord_udm_associate,      0, "",              nullptr},
    {0x0008, 8,  0,  "D",    "Distance",          4, "m_udm_associate",          m_udm_associate,          0, "",              nullptr},
    {0x0009, 9,  0,  "F",    "Frequency",         2, "Hz_udm_associate",         Hz_udm_associate,         0, "",              nullptr},
    {0x008A, 10, 1,  "Ms",   "Air Mass Flow",     1, "kg_sec_udm_associate",     kg_sec_udm_associate,     0, "",              nullptr},
    {0x000A, 10, 0,  "Ms",   "Mass Flow",         1, "kg_sec_udm_associate",     kg_sec_udm_associate,     0, "",              nullptr},
    {0x000B, 11, 0,  "N",    "Number",            1, "hash_udm_associate",       hash_udm_associate,       0, "",              nullptr},
    {0x000C, 12, 0,  "P",    "Position",          2, "pos_udm_associate",        pos_udm_associate,        0, "",              nullptr},
    {0x000D, 13, 0,  "Pw",   "Power",             4, "kW_sec_udm_associate",     kW_sec_udm_associate,     0, "",              nullptr},
    {0x0B8E, 14, 23, "OP",   "Oil Pressure",      3, "bar_oil_udm_associate",    bar_oil_udm_associate,    0, "",              nullptr},
    {0x020E, 14, 4,  "BP",   "Brake Press",       2, "bar_brake_udm_associate",  bar_brake_udm_associate,  2, "z4_pres_brk",   z4_pres_brk},
    {0x000E, 14, 0,  "P",    "Pressure",          5, "bar_udm_associate",        bar_udm_associate,        0, "",              nullptr},
    {0x000F, 15, 0,  "R",    "RPM",               1, "rpm_udm_associate",        rpm_udm_associate,        0, "",              nullptr},
    {0x0010, 16, 0,  "S",    "Speed",             2, "kmh_udm_associate",        kmh_udm_associate,        2, "z4_speed",      z4_speed},
    {0x0011, 17, 0,  "T",    "Temperature",       2, "C_udm_associate",          C_udm_associate,          0, "",              nullptr},
    {0x0992, 18, 19, "lt",   "Lap Time",          1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x1B12, 18, 54, "of",   "Time",              4, "s_udm_associate",          s_udm_associate,          1, "z4_time_off",   z4_time_off},
    {0x1712, 18, 46, "lt",   "Time",              1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x1392, 18, 39, "lt",   "Time",              1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x1B92, 18, 55, "lt",   "Time",              1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x1C12, 18, 56, "lt",   "Time",              1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x1C92, 18, 57, "lt",   "Time",              1, "time_udm_associate",       time_udm_associate,       0, "",              nullptr},
    {0x0012, 18, 0,  "t",    "Time",              5, "ms_udm_associate",         ms_udm_associate,         0, "",              nullptr},
    {0x0013, 19, 0,  "Tr",   "Torque",            1, "Nm_udm_associate",         Nm_udm_associate,         0, "",              nullptr},
    {0x0014, 20, 0,  "Ve",   "Velocity",          7, "kmh_vel_udm_associate",    kmh_vel_udm_associate,    1, "z4_velocity",   z4_velocity},
    {0x0195, 21, 3,  "BV",   "Battery Voltage",   1, "battery_udm_associate",    battery_udm_associate,    0, "",              nullptr},
    {0x0015, 21, 0,  "V",    "Voltage",           2, "mV_udm_associate",         mV_udm_associate,         0, "",              nullptr},
    {0x0596, 22, 11, "FL",   "Fuel Level",        2, "l_udm_associate",          l_udm_associate,          0, "",              nullptr},
    {0x0016, 22, 0,  "v",    "Volume",            2, "l_udm_associate",          l_udm_associate,          0, "",              nullptr},
    {0x0017, 23, 0,  "vl",   "Volume in lap",     1, "l_lap_udm_associate",      l_lap_udm_associate,      0, "",              nullptr},
    {0x0018, 24, 0,  "vs",   "Volume Flow",       4, "l_sec_udm_associate",      l_sec_udm_associate,      0, "",              nullptr},
    {0x0019, 25, 0,  "dt",   "Date",              1, "date_udm_associate",       date_udm_associate,       0, "",              nullptr},
    {0x001A, 26, 0,  "pc",   "Pckg",              1, "pckt_udm_associate",       pckt_udm_associate,       0, "",              nullptr},
    {0x001B, 27, 0,  "C",    "Current",           1, "A_udm_associate",          A_udm_associate,          0, "",              nullptr},
    {0x001D, 29, 0,  "Rs",   "RPM on sec",        1, "rpm_s_udm_associate",      rpm_s_udm_associate,      0, "",              nullptr},
    {0x049E, 30, 9,  "Lb",   "Lambda",            1, "lambda_udm_associate",     lambda_udm_associate,     0, "",              nullptr},
    {0x091E, 30, 18, "Lb",   "Lambda",            1, "lambda_udm_associate",     lambda_udm_associate,     0, "",              nullptr},
    {0x0C9E, 30, 25, "AFR",  "AFR",               1, "afr_udm_associate",        afr_udm_associate,        1, "z4_num_lambda", z4_num_lambda},
    {0x001E, 30, 0,  "Lb",   "Lambda",            1, "lambda_tot_udm_associate", lambda_tot_udm_associate, 0, "",              nullptr},
    {0x061F, 31, 12, "GeaN", "Gear",              1, "gear_udm_associate",       gear_udm_associate,       0, "",              nullptr},
    {0x001F, 31, 0,  "GeaN", "Generic Gear",      1, "gear_udm_associate",       gear_udm_associate,       0, "",              nullptr},
};
// clang-format on

}  // namespace attesi

#endif
