// Choices of a side or of in/out, as position variants offer them.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

namespace {

constexpr uint32_t DAVANTI = kel::davanti_dietro(FID_FRONTREAR_FRONT);
constexpr uint32_t DIETRO = kel::davanti_dietro(FID_FRONTREAR_REAR);
constexpr uint32_t SINISTRA = kel::destra_sinistra(FID_LEFTRIGHT_LEFT);
constexpr uint32_t DESTRA = kel::destra_sinistra(FID_LEFTRIGHT_RIGHT);

}  // namespace

// clang-format off
extern "C" {

// In/out: the key is the field's value. In this list In is 1 and Out is 2; in an identifier, and in the list below, it
// is the other way round. The library does not use this list. It stays so, because programs may read it.
//   key  short text
constexpr s_scelta_fid ios_completo[] = {
    {1,   "I",  "In"},
    {2,   "O",  "Out"},
    {3,   "C",  "Center"},
};

//   key             short text
constexpr s_scelta_fid ios_solo_inout[] = {
    {FID_INOUT_OUT,  "O",  "Out"},
    {FID_INOUT_IN,   "I",  "In"},
};

// Sides: the key is the bits to set in the identifier. The library does not use the first list; programs may read it.
//   key       short  text
constexpr s_scelta_fid udfrlrs_solo_fr[] = {
    {DAVANTI,  "Fr",  "Front"},
    {DIETRO,   "Re",  "Rear"},
};

//   key                  short    text
constexpr s_scelta_fid udfrlrs_solo_frlr[] = {
    {DAVANTI,             "Fr",    "Front"},
    {DAVANTI | SINISTRA,  "FrLe",  "Front Left"},
    {DAVANTI | DESTRA,    "FrRi",  "Front Right"},
    {DIETRO | SINISTRA,   "ReLe",  "Rear Left"},
    {DIETRO | DESTRA,     "ReRi",  "Rear Right"},
    {DIETRO,              "Re",    "Rear"},
};

}  // extern "C"
// clang-format on

namespace kel {

template <std::size_t N>
constexpr bool scelte_distinte(const s_scelta_fid (&tabella)[N], uint32_t bit_ammessi) {
    for (std::size_t i = 0; i < N; ++i) {
        if (tabella[i].chiave == 0 || (tabella[i].chiave & ~bit_ammessi) != 0)
            return false;
        if (!ascii(tabella[i].breve, 4) || !ascii(tabella[i].testo, 11))
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (tabella[i].chiave == tabella[j].chiave)
                return false;
    }
    return true;
}

constexpr uint32_t BIT_LATERALI = kelFidLati(FID_MASK_LEFTRIGHT, FID_MASK_FRONTREAR, 0);
static_assert(scelte_distinte(ios_completo, FID_MASK_INOUT), "keys are values of the in/out field, each once");
static_assert(scelte_distinte(ios_solo_inout, FID_MASK_INOUT), "keys are values of the in/out field, each once");
static_assert(scelte_distinte(udfrlrs_solo_fr, BIT_LATERALI), "keys are side bits in their place, each once");
static_assert(scelte_distinte(udfrlrs_solo_frlr, BIT_LATERALI), "keys are side bits in their place, each once");

}  // namespace kel
