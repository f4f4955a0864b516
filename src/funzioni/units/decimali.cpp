// How many decimals a function has in a unit.
#include "kelfunzioni.h"
#include "units/grandezza.h"

namespace {

// The row that has the decimals. For an unknown unit it is the base unit's row, for an identifier without units the row
// of no unit, with 0 decimals.
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
