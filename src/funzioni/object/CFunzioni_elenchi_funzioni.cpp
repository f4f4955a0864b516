// The functions that a configuration program may offer, by quantity, and the choices that make sense for each.
#include "CFunzioni.h"

#include <algorithm>

#include "tables/fid.h"

namespace {

// An element of the filter that has no object keeps all rows of its quantity, one with an object only the row of that
// one.
bool nel_filtro(kel_funpos chiave, const std::vector<unsigned int>& filtro) {
    return filtro.empty() || std::any_of(filtro.begin(), filtro.end(), [chiave](kel_funpos elemento) {
               return kelFidGrandezza(elemento) == kelFidGrandezza(chiave) &&
                      ((elemento & kel::BIT_OGGETTO) == 0 || kelFidOggetto(elemento) == kelFidOggetto(chiave));
           });
}

const s_variante_posizione* cerca_variante(const s_grandezza_fisica_uiv& grandezza, unsigned posizione) {
    const s_variante_posizione* fine = grandezza.varianti + grandezza.num_varianti;
    const auto* variante = std::find_if(
        grandezza.varianti, fine, [posizione](const s_variante_posizione& v) { return v.posizione == posizione; });
    return variante != fine ? variante : nullptr;
}

}  // namespace

void CFunzioni::getFunzioni(std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>& funzioni,
                            std::vector<unsigned int>& filtro) const {
    funzioni.clear();
    for (const s_grandezza_fisica_uiv* riga = uib_grandezza_fisica_uiv; kelFidFineTabella(riga->chiave) == 0; ++riga) {
        if (!nel_filtro(riga->chiave, filtro))
            continue;
        auto& elenco = funzioni[static_cast<GRANDEZZA_FISICA_FUNZKEL>(kelFidGrandezza(riga->chiave))];
        // A row that has position variants is not on offer itself: its variants are.
        if (riga->num_varianti == 0)
            elenco.push_back({riga->chiave, ConvertiDa8(riga->testo)});
        for (int i = 0; i < riga->num_varianti; ++i) {
            const s_variante_posizione& variante = riga->varianti[i];
            const kel_funpos posizione = kelFidComponi(0, 0, variante.posizione);
            elenco.push_back({(riga->chiave & ~kel::BIT_POSIZIONE) | posizione, ConvertiDa8(variante.testo)});
        }
    }
}

void CFunzioni::RiempiMapGrandezzaFisica(std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>& mappa) const {
    for (const s_campo_fid& riga : grandezza_fisica_FunzKel)
        mappa.insert({static_cast<GRANDEZZA_FISICA_FUNZKEL>(riga.valore), ConvertiDa8(riga.testo)});
}

void CFunzioni::getFunzDettagli(kel_funpos fid, std::map<unsigned int, std::string>& lati,
                                std::map<unsigned int, std::string>& inout, int& primo, int& ultimo) const {
    lati.clear();
    inout.clear();
    const s_grandezza_fisica_uiv* grandezza = kelFunGetUIVs(fid);
    if (grandezza == nullptr)
        return;
    const s_variante_posizione* variante = cerca_variante(*grandezza, kelFidPosizione(fid));
    if (variante == nullptr)
        return;
    for (int i = 0; i < variante->num_lati; ++i)
        lati.emplace(variante->lati[i].chiave, ConvertiDa8(variante->lati[i].testo));
    for (int i = 0; i < variante->num_inout; ++i)
        inout.emplace(variante->inout[i].chiave, ConvertiDa8(variante->inout[i].testo));
    primo = variante->primo;
    ultimo = variante->ultimo;
}

kel_funpos CFunzioni::getFidEquivalente(kel_funpos fid) const {
    const s_grandezza_fisica_uiv* grandezza = kelFunGetUIVs(fid);
    return grandezza != nullptr ? grandezza->chiave : 0;
}
