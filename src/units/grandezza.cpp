#include "units/grandezza.h"

#include <cstring>

#include "tables/fid.h"

namespace kel {

const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept {
    for (const s_grandezza_fisica_uiv* riga = uib_grandezza_fisica_uiv; riga->chiave != fine_grandezze; ++riga) {
        const unsigned oggetto = kelFidOggetto(riga->chiave);
        if (kelFidGrandezza(riga->chiave) == kelFidGrandezza(fid) && (oggetto == kelFidOggetto(fid) || oggetto == 0))
            return riga;
    }
    return nullptr;
}

const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept {
    for (int i = 0; i < grandezza.num_udm; ++i)
        if (std::strcmp(grandezza.udm[i].dati.udm, udm) == 0)
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
