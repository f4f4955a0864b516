#include "units/grandezza.h"

#include <cstddef>
#include <cstring>

#include "tables/posti_udm.h"
#include "tables/righe_grandezze.h"

namespace kel {

const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept {
    const unsigned riga = RIGHE_GRANDEZZE.riga(fid);
    return riga != RIGA_FINE_GRANDEZZE ? &uib_grandezza_fisica_uiv[riga] : nullptr;
}

const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept {
    const std::ptrdiff_t riga = &grandezza - uib_grandezza_fisica_uiv;
    const s_udm_associata* const fine = grandezza.udm + grandezza.num_udm;
    // From the place of the text on; two units (gal/h, rpm/100) need a second comparison.
    const s_udm_associata* trovata = &grandezza.udm[POSTI_UDM.udm[riga][posto_udm(udm)]];
    do {
        if (std::strcmp(trovata->dati.udm, udm) == 0)
            return trovata;
    } while (++trovata != fine);
    return nullptr;
}

}  // namespace kel

const s_grandezza_fisica_uiv* kelFunGetUIVs(kel_funpos fid) noexcept {
    return kel::cerca_grandezza(fid);
}

const char* kelFunGetUnitaBase(kel_funpos fid) noexcept {
    const s_grandezza_fisica_uiv* grandezza = kel::cerca_grandezza(fid);
    return (grandezza != nullptr ? grandezza->udm : NULL_udm_associate)[0].dati.udm;
}
