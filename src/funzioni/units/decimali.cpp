// Decimals of a function in a unit.
#include "kelfunzioni.h"
#include "units/grandezza.h"

namespace {

// An unknown unit has the decimals of the base unit, an identifier without units those of no unit: 0.
const s_udm_associata& riga_decimali(kel_funpos fid, const char* udm) noexcept {
    const s_grandezza_fisica_uiv* grandezza = kel::cerca_grandezza(fid);
    if (grandezza == nullptr)
        return NULL_udm_associate[0];
    const s_udm_associata* riga = kel::cerca_udm(*grandezza, udm);
    return riga != nullptr ? *riga : grandezza->udm[0];
}

}  // namespace

int kelFunGetNumDecimaliDefault(kel_funpos fid, const char* udm) noexcept {
    return riga_decimali(fid, udm).decimali_default;
}

int kelFunGetNumDecimaliMax(kel_funpos fid, const char* udm) noexcept {
    return riga_decimali(fid, udm).decimali_max;
}

int kelFunGetNumDecimaliMin(kel_funpos fid, const char* udm) noexcept {
    return riga_decimali(fid, udm).decimali_min;
}
