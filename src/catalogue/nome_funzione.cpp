// The long name of a function: from the first table that knows it, or composed from its fields.
#include "CFunzioni.h"
#include "catalogue/nome_composto.h"
#include "tables/funz_kel.h"

namespace {

// The name of the quantity's row. A position variant counts only where the object is exactly the row's: a generic row
// names every other object of its quantity, at any position.
const char* nome_della_grandezza(kel_funpos fid) {
    const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(fid);
    if (riga == nullptr)
        return nullptr;
    if (kelFidOggetto(riga->chiave) == kelFidOggetto(fid))
        for (int i = 0; i < riga->num_varianti; ++i)
            if (riga->varianti[i].posizione == kelFidPosizione(fid))
                return riga->varianti[i].testo;
    return riga->testo;
}

// The first table that knows the function names it: the camera's, the legacy one, the quantity table. End markers are no
// functions.
const char* nome_nelle_tabelle(kel_funpos fid) {
    if (kelFidFineTabella(fid) != 0)
        return nullptr;
    if (const t_SFunzioneZumikoCam* riga = kelFunGetParamZumikoCam(fid))
        return riga->testo;
    const t_SFunzioneVecchia& vecchia = funz_Kel[kel::indice_kel_fid.riga(fid)];
    return vecchia.fid == fid ? vecchia.testo : nome_della_grandezza(fid);
}

}  // namespace

std::string CFunzioni::getNomeFunzione(kel_funpos fid, bool tutti) const {
    if (const char* nome = nome_nelle_tabelle(fid))
        return nome;  // as it stands, without a conversion
    return kel::nome_composto(*this, fid, tutti);
}
