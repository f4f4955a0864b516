// What the position variants and the choice lists hold, cell by cell.
#ifndef KEL_TEST_ATTESI_VARIANTI_H
#define KEL_TEST_ATTESI_VARIANTI_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Variante {
    const char* tabella;
    const s_variante_posizione* record;
    int riga;
    unsigned posizione;
    const char* breve;
    const char* testo;
    int num_inout;
    const s_scelta_fid* inout;
    int primo;
    int ultimo;
    int num_lati;
    const s_scelta_fid* lati;
};

struct Scelta {
    const char* tabella;
    const s_scelta_fid* record;
    std::size_t righe;
    int riga;
    std::uint32_t chiave;
    const char* breve;
    const char* testo;
};

// clang-format off

inline const Variante varianti[] = {
    {"z4_pres_brk",   z4_pres_brk,   0, 3,  "BP",   "Brake Press",     0, nullptr,        -1, -1, 0, nullptr},
    {"z4_pres_brk",   z4_pres_brk,   1, 14, "BP",   "Wheel Brk Pr",    0, nullptr,        -1, -1, 0, nullptr},
    {"z4_velocity",   z4_velocity,   0, 11, "SuVe", "Susp Velocity",   0, nullptr,        -1, -1, 0, nullptr},
    {"z4_time_off",   z4_time_off,   0, 6,  "EOff", "Engine Off Time", 0, nullptr,        -1, -1, 0, nullptr},
    {"z4_num_lambda", z4_num_lambda, 0, 8,  "Lbda", "Lambda",          2, ios_solo_inout, 1,  12, 0, nullptr},
    {"z4_speed",      z4_speed,      0, 13, "VSpd", "Vehicle Spd",     0, nullptr,        -1, -1, 0, nullptr},
    {"z4_speed",      z4_speed,      1, 14, "WSpd", "Wheel Spd",       0, nullptr,        -1, -1, 6, udfrlrs_solo_frlr},
};

inline const Scelta scelte[] = {
    {"ios_completo",      ios_completo,      std::size(ios_completo),      0, 1,          "I",    "In"},
    {"ios_completo",      ios_completo,      std::size(ios_completo),      1, 2,          "O",    "Out"},
    {"ios_completo",      ios_completo,      std::size(ios_completo),      2, 3,          "C",    "Center"},
    {"ios_solo_inout",    ios_solo_inout,    std::size(ios_solo_inout),    0, 1,          "O",    "Out"},
    {"ios_solo_inout",    ios_solo_inout,    std::size(ios_solo_inout),    1, 2,          "I",    "In"},
    {"udfrlrs_solo_fr",   udfrlrs_solo_fr,   std::size(udfrlrs_solo_fr),   0, 0x04000000, "Fr",   "Front"},
    {"udfrlrs_solo_fr",   udfrlrs_solo_fr,   std::size(udfrlrs_solo_fr),   1, 0x02000000, "Re",   "Rear"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 0, 0x04000000, "Fr",   "Front"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 1, 0x05000000, "FrLe", "Front Left"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 2, 0x04800000, "FrRi", "Front Right"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 3, 0x03000000, "ReLe", "Rear Left"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 4, 0x02800000, "ReRi", "Rear Right"},
    {"udfrlrs_solo_frlr", udfrlrs_solo_frlr, std::size(udfrlrs_solo_frlr), 5, 0x02000000, "Re",   "Rear"},
};
// clang-format on

}  // namespace attesi

#endif
