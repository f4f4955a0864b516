#include "units/grandezza.h"

#include "tables/indice_grandezze.h"
#include "units/confronto.h"

namespace kel {
namespace {

// The first two bytes of a text, its NUL among them.
unsigned primi_due(const char* testo) noexcept {
    const auto primo = static_cast<unsigned char>(testo[0]);
    return primo != 0 ? primo | static_cast<unsigned>(static_cast<unsigned char>(testo[1])) << 8 : 0;
}

}  // namespace

const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept {
    const unsigned riga = indice_grandezze.riga(fid);
    return riga != IndiceGrandezze::nessuna ? &uib_grandezza_fisica_uiv[riga] : nullptr;
}

const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept {
    // Which unit is asked for cannot be foretold: the rows are looked at by their first two characters, all of them and
    // without a branch, and only the row found is compared.
    const unsigned inizio = primi_due(udm);
    int trovata = 0;
    for (int i = grandezza.num_udm - 1; i >= 0; --i)
        trovata = primi_due(grandezza.udm[i].dati.udm) == inizio ? i : trovata;
    if (uguali(grandezza.udm[trovata].dati.udm, udm))
        return &grandezza.udm[trovata];
    // Another row may begin like the one found.
    for (int i = trovata + 1; i < grandezza.num_udm; ++i)
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
