#include "units/grandezza.h"

#include "tables/indice_grandezze.h"
#include "units/confronto.h"

namespace kel {

const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept {
    const unsigned riga = indice_grandezze.riga(fid);
    return riga != IndiceGrandezze::nessuna ? &uib_grandezza_fisica_uiv[riga] : nullptr;
}

const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept {
    for (int i = 0; i < grandezza.num_udm; ++i)
        if (uguali(grandezza.udm[i].dati.udm, udm))
            return &grandezza.udm[i];
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
