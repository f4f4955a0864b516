// What the 43 unit tables hold, cell by cell.
#ifndef KEL_TEST_ATTESI_UDM_H
#define KEL_TEST_ATTESI_UDM_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Udm {
    const char* tabella;
    int riga;
    const char* udm;
    float offset;
    float gain;
    std::uint32_t bit_gain;  // the nearest IEEE 754 single to the gain
    int reciproco;
    int decimali_default;
    int decimali_max;
    int decimali_min;
};

struct TabellaUdm {
    const char* nome;
    const s_udm_associata* tabella;
    std::size_t righe;
};

// clang-format off

inline const TabellaUdm tabelle_udm[] = {
    {"NULL_udm_associate",       NULL_udm_associate,       std::size(NULL_udm_associate)},
    {"kmh_udm_associate",        kmh_udm_associate,        std::size(kmh_udm_associate)},
    {"kmh_vel_udm_associate",    kmh_vel_udm_associate,    std::size(kmh_vel_udm_associate)},
    {"C_udm_associate",          C_udm_associate,          std::size(C_udm_associate)},
    {"bar_udm_associate",        bar_udm_associate,        std::size(bar_udm_associate)},
    {"bar_oil_udm_associate",    bar_oil_udm_associate,    std::size(bar_oil_udm_associate)},
    {"bar_brake_udm_associate",  bar_brake_udm_associate,  std::size(bar_brake_udm_associate)},
    {"g_udm_associate",          g_udm_associate,          std::size(g_udm_associate)},
    {"km_udm_associate",         km_udm_associate,         std::size(km_udm_associate)},
    {"Hz_udm_associate",         Hz_udm_associate,         std::size(Hz_udm_associate)},
    {"ms_udm_associate",         ms_udm_associate,         std::size(ms_udm_associate)},
    {"s_udm_associate",          s_udm_associate,          std::size(s_udm_associate)},
    {"time_udm_associate",       time_udm_associate,       std::size(time_udm_associate)},
    {"deg_udm_associate",        deg_udm_associate,        std::size(deg_udm_associate)},
    {"mV_udm_associate",         mV_udm_associate,         std::size(mV_udm_associate)},
    {"battery_udm_associate",    battery_udm_associate,    std::size(battery_udm_associate)},
    {"deg_sec_udm_associate",    deg_sec_udm_associate,    std::size(deg_sec_udm_associate)},
    {"gyro_udm_associate",       gyro_udm_associate,       std::size(gyro_udm_associate)},
    {"kW_sec_udm_associate",     kW_sec_udm_associate,     std::size(kW_sec_udm_associate)},
    {"l_udm_associate",          l_udm_associate,          std::size(l_udm_associate)},
    {"l_sec_udm_associate",      l_sec_udm_associate,      std::size(l_sec_udm_associate)},
    {"pct_udm_associate",        pct_udm_associate,        std::size(pct_udm_associate)},
    {"pct_sec_udm_associate",    pct_sec_udm_associate,    std::size(pct_sec_udm_associate)},
    {"code_udm_associate",       code_udm_associate,       std::size(code_udm_associate)},
    {"coord_alt_udm_associate",  coord_alt_udm_associate,  std::size(coord_alt_udm_associate)},
    {"coord_lat_udm_associate",  coord_lat_udm_associate,  std::size(coord_lat_udm_associate)},
    {"coord_lon_udm_associate",  coord_lon_udm_associate,  std::size(coord_lon_udm_associate)},
    {"coord_udm_associate",      coord_udm_associate,      std::size(coord_udm_associate)},
    {"m_udm_associate",          m_udm_associate,          std::size(m_udm_associate)},
    {"pos_udm_associate",        pos_udm_associate,        std::size(pos_udm_associate)},
    {"kg_sec_udm_associate",     kg_sec_udm_associate,     std::size(kg_sec_udm_associate)},
    {"afr_udm_associate",        afr_udm_associate,        std::size(afr_udm_associate)},
    {"hash_udm_associate",       hash_udm_associate,       std::size(hash_udm_associate)},
    {"rpm_udm_associate",        rpm_udm_associate,        std::size(rpm_udm_associate)},
    {"rpm_s_udm_associate",      rpm_s_udm_associate,      std::size(rpm_s_udm_associate)},
    {"lambda_udm_associate",     lambda_udm_associate,     std::size(lambda_udm_associate)},
    {"lambda_tot_udm_associate", lambda_tot_udm_associate, std::size(lambda_tot_udm_associate)},
    {"gear_udm_associate",       gear_udm_associate,       std::size(gear_udm_associate)},
    {"Nm_udm_associate",         Nm_udm_associate,         std::size(Nm_udm_associate)},
    {"l_lap_udm_associate",      l_lap_udm_associate,      std::size(l_lap_udm_associate)},
    {"date_udm_associate",       date_udm_associate,       std::size(date_udm_associate)},
    {"pckt_udm_associate",       pckt_udm_associate,       std::size(pckt_udm_associate)},
    {"A_udm_associate",          A_udm_associate,          std::size(A_udm_associate)},
};

// Table, row, unit, offset, gain, bits of the gain, reciprocal, decimals: default, max, min.
inline constexpr Udm righe_udm[] = {
    {"NULL_udm_associate",       0, "",        0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"kmh_udm_associate",        0, "km/h",    0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"kmh_udm_associate",        1, "mph",     0.0f,  0.621371f,    0x3F1F122B, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    0, "km/h",    0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    1, "mph",     0.0f,  0.621371f,    0x3F1F122B, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    2, "m/s",     0.0f,  0.277778f,    0x3E8E38EB, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    3, "ft/s",    0.0f,  0.911344f,    0x3F694DD7, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    4, "cm/s",    0.0f,  27.7778f,     0x41DE38EF, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    5, "m/min",   0.0f,  16.6667f,     0x41855567, 0, 1, 1, 0},
    {"kmh_vel_udm_associate",    6, "min/km",  0.0f,  0.016667f,    0x3C88893B, 1, 1, 1, 0},
    {"C_udm_associate",          0, "C",       0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"C_udm_associate",          1, "F",       32.0f, 1.8f,         0x3FE66666, 0, 1, 1, 0},
    {"bar_udm_associate",        0, "bar",     0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"bar_udm_associate",        1, "psi",     0.0f,  14.5038f,     0x41680F91, 0, 1, 1, 0},
    {"bar_udm_associate",        2, "kPa",     0.0f,  100.0f,       0x42C80000, 0, 0, 0, 0},
    {"bar_udm_associate",        3, "mbar",    0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"bar_udm_associate",        4, "inHg",    0.0f,  29.5301f,     0x41EC3DA5, 0, 0, 0, 0},
    {"bar_oil_udm_associate",    0, "bar",     0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"bar_oil_udm_associate",    1, "psi",     0.0f,  14.5038f,     0x41680F91, 0, 1, 1, 0},
    {"bar_oil_udm_associate",    2, "kPa",     0.0f,  100.0f,       0x42C80000, 0, 0, 0, 0},
    {"bar_brake_udm_associate",  0, "bar",     0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"bar_brake_udm_associate",  1, "psi",     0.0f,  14.5038f,     0x41680F91, 0, 0, 0, 0},
    {"g_udm_associate",          0, "g",       0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"km_udm_associate",         0, "km",      0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"km_udm_associate",         1, "mi",      0.0f,  0.621371f,    0x3F1F122B, 0, 1, 1, 0},
    {"km_udm_associate",         2, "m",       0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"km_udm_associate",         3, "ft",      0.0f,  3280.84f,     0x454D0D71, 0, 0, 0, 0},
    {"km_udm_associate",         4, "cm",      0.0f,  100000.0f,    0x47C35000, 0, 0, 0, 0},
    {"km_udm_associate",         5, "in",      0.0f,  39370.1f,     0x4719CA1A, 0, 0, 0, 0},
    {"km_udm_associate",         6, "mm",      0.0f,  1000000.0f,   0x49742400, 0, 0, 0, 0},
    {"Hz_udm_associate",         0, "Hz",      0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"Hz_udm_associate",         1, "kHz",     0.0f,  0.001f,       0x3A83126F, 0, 3, 3, 0},
    {"ms_udm_associate",         0, "ms",      0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"ms_udm_associate",         1, "s",       0.0f,  0.001f,       0x3A83126F, 0, 3, 3, 0},
    {"ms_udm_associate",         2, "min",     0.0f,  1.66667e-05f, 0x378BCF77, 0, 0, 0, 0},
    {"ms_udm_associate",         3, "us",      0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"ms_udm_associate",         4, "h",       0.0f,  2.77778e-07f, 0x34952185, 0, 0, 0, 0},
    {"s_udm_associate",          0, "s",       0.0f,  1.0f,         0x3F800000, 0, 0, 3, 0},
    {"s_udm_associate",          1, "ms",      0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"s_udm_associate",          2, "min",     0.0f,  0.0166667f,   0x3C88889A, 0, 0, 0, 0},
    {"s_udm_associate",          3, "h",       0.0f,  0.000277778f, 0x3991A2BB, 0, 0, 0, 0},
    {"time_udm_associate",       0, "time",    0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"deg_udm_associate",        0, "deg",     0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"deg_udm_associate",        1, "rad",     0.0f,  0.0174533f,   0x3C8EFA39, 0, 1, 1, 0},
    {"mV_udm_associate",         0, "mV",      0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"mV_udm_associate",         1, "V",       0.0f,  0.001f,       0x3A83126F, 0, 3, 3, 0},
    {"battery_udm_associate",    0, "V",       0.0f,  0.001f,       0x3A83126F, 0, 1, 1, 1},
    {"deg_sec_udm_associate",    0, "deg/s",   0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"deg_sec_udm_associate",    1, "rad/s",   0.0f,  0.0174533f,   0x3C8EFA39, 0, 0, 0, 0},
    {"deg_sec_udm_associate",    2, "rpm",     0.0f,  0.166667f,    0x3E2AAAC1, 0, 0, 0, 0},
    {"deg_sec_udm_associate",    3, "rpm/100", 0.0f,  0.00166667f,  0x3ADA742A, 0, 0, 0, 0},
    {"deg_sec_udm_associate",    4, "rps",     0.0f,  0.0277778f,   0x3CE38E45, 0, 0, 0, 0},
    {"gyro_udm_associate",       0, "deg/s",   0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"kW_sec_udm_associate",     0, "kW",      0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"kW_sec_udm_associate",     1, "HP",      0.0f,  1.35962f,     0x3FAE0807, 0, 2, 2, 0},
    {"kW_sec_udm_associate",     2, "CV",      0.0f,  1.34102f,     0x3FABA68B, 0, 2, 2, 0},
    {"kW_sec_udm_associate",     3, "W",       0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"l_udm_associate",          0, "l",       0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"l_udm_associate",          1, "gal",     0.0f,  0.264172f,    0x3E87418D, 0, 0, 0, 0},
    {"l_sec_udm_associate",      0, "l/s",     0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"l_sec_udm_associate",      1, "gal/s",   0.0f,  0.264172f,    0x3E87418D, 0, 0, 0, 0},
    {"l_sec_udm_associate",      2, "l/h",     0.0f,  3600.0f,      0x45610000, 0, 0, 0, 0},
    {"l_sec_udm_associate",      3, "gal/h",   0.0f,  951.0192f,    0x446DC13B, 0, 0, 0, 0},
    {"pct_udm_associate",        0, "%",       0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"pct_sec_udm_associate",    0, "%/s",     0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"code_udm_associate",       0, "#",       0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"coord_alt_udm_associate",  0, "m",       0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"coord_alt_udm_associate",  1, "ft",      0.0f,  3.28084f,     0x4051F948, 0, 2, 2, 0},
    {"coord_lat_udm_associate",  0, "deg",     0.0f,  1.0f,         0x3F800000, 0, 5, 5, 0},
    {"coord_lon_udm_associate",  0, "deg",     0.0f,  1.0f,         0x3F800000, 0, 5, 5, 0},
    {"coord_udm_associate",      0, "Coord",   0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"m_udm_associate",          0, "m",       0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"m_udm_associate",          1, "km",      0.0f,  0.001f,       0x3A83126F, 0, 3, 3, 0},
    {"m_udm_associate",          2, "mi",      0.0f,  0.000621371f, 0x3A22E380, 0, 3, 3, 0},
    {"m_udm_associate",          3, "ft",      0.0f,  3.28084f,     0x4051F948, 0, 0, 0, 0},
    {"pos_udm_associate",        0, "mm",      0.0f,  1000.0f,      0x447A0000, 0, 0, 0, 0},
    {"pos_udm_associate",        1, "in",      0.0f,  39.3701f,     0x421D7AFB, 0, 1, 1, 0},
    {"kg_sec_udm_associate",     0, "kg/s",    0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"afr_udm_associate",        0, "AFR",     0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"hash_udm_associate",       0, "#",       0.0f,  1.0f,         0x3F800000, 0, 0, 1, 0},
    {"rpm_udm_associate",        0, "rpm",     0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"rpm_s_udm_associate",      0, "rpm/s",   0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"lambda_udm_associate",     0, "#",       0.0f,  1.0f,         0x3F800000, 0, 2, 2, 1},
    {"lambda_tot_udm_associate", 0, "#",       0.0f,  1.0f,         0x3F800000, 0, 2, 2, 1},
    {"gear_udm_associate",       0, "gear",    0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"Nm_udm_associate",         0, "Nm",      0.0f,  1.0f,         0x3F800000, 0, 1, 1, 0},
    {"l_lap_udm_associate",      0, "l*Lap",   0.0f,  1.0f,         0x3F800000, 0, 2, 2, 0},
    {"date_udm_associate",       0, "Date",    0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"pckt_udm_associate",       0, "Pckt",    0.0f,  1.0f,         0x3F800000, 0, 0, 0, 0},
    {"A_udm_associate",          0, "A",       0.0f,  1.0f,         0x3F800000, 0, 3, 3, 0},
};
// clang-format on

}  // namespace attesi

#endif
