// Position variants: functions that have a name, and choices, of their own at one position of the vehicle.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/fid.h"
#include "tables/invarianti.h"

namespace kel {
namespace {

// Variants without choices and without instance numbers.
constexpr s_variante_posizione variante(POSIZIONE_FUNZKEL posizione, const char* breve, const char* testo) {
    return {static_cast<uint32_t>(posizione), breve, testo, 0, nullptr, -1, -1, 0, nullptr};
}

template <std::size_t N>
constexpr s_variante_posizione con_lati(s_variante_posizione variante, const s_scelta_fid (&lati)[N]) {
    variante.num_lati = static_cast<int>(N);
    variante.lati = lati;
    return variante;
}

template <std::size_t N>
constexpr s_variante_posizione con_inout(s_variante_posizione variante, const s_scelta_fid (&inout)[N], int primo,
                                         int ultimo) {
    variante.num_inout = static_cast<int>(N);
    variante.inout = inout;
    variante.primo = primo;
    variante.ultimo = ultimo;
    return variante;
}

}  // namespace
}  // namespace kel

using kel::con_inout;
using kel::con_lati;
using kel::variante;

// clang-format off
extern "C" {

//           position             short   name
constexpr s_variante_posizione z4_pres_brk[] = {
    variante(FID_POS_BRAKE,       "BP",   "Brake Press"),
    variante(FID_POS_WHEEL,       "BP",   "Wheel Brk Pr"),
};

constexpr s_variante_posizione z4_velocity[] = {
    variante(FID_POS_SUSPENSION,  "SuVe", "Susp Velocity"),
};

constexpr s_variante_posizione z4_time_off[] = {
    variante(FID_POS_ENGINE,      "EOff", "Engine Off Time"),
};

// One probe for each of up to twelve cylinders.
constexpr s_variante_posizione z4_num_lambda[] = {
    con_inout(variante(FID_POS_EXHAUST, "Lbda", "Lambda"), ios_solo_inout, 1, 12),
};

constexpr s_variante_posizione z4_speed[] = {
    variante(FID_POS_VEHICLE,     "VSpd", "Vehicle Spd"),
    con_lati(variante(FID_POS_WHEEL, "WSpd", "Wheel Spd"), udfrlrs_solo_frlr),
};

}  // extern "C"
// clang-format on

namespace kel {

// The counts need no check: `con_inout` and `con_lati` take them from the lists.
template <std::size_t N>
constexpr bool varianti_distinte(const s_variante_posizione (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        const s_variante_posizione& riga = tabella[i];
        if (riga.posizione == FID_POS_UNDEFINED || riga.posizione >= POSIZIONI_NOTE)
            return false;
        if (!ascii(riga.breve, 4) || !ascii(riga.testo, 15))
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (riga.posizione == tabella[j].posizione)
                return false;
    }
    return true;
}
static_assert(varianti_distinte(z4_pres_brk), "positions have descriptors, each once; texts fit their fields");
static_assert(varianti_distinte(z4_velocity), "positions have descriptors, each once; texts fit their fields");
static_assert(varianti_distinte(z4_time_off), "positions have descriptors, each once; texts fit their fields");
static_assert(varianti_distinte(z4_num_lambda), "positions have descriptors, each once; texts fit their fields");
static_assert(varianti_distinte(z4_speed), "positions have descriptors, each once; texts fit their fields");

}  // namespace kel
