// The catalogue's names of a function. The long one is from the first table that knows it, or composed from its fields.
#include <cstring>

#include "CFunzioni.h"
#include "object/nome_composto.h"
#include "tables/camera.h"
#include "tables/funz_kel.h"

namespace {

// The name of the quantity's row. A position variant counts only where the object is exactly the row's: a generic row
// names every other object of its quantity, at any position.
const char* nome_della_grandezza(kel_funpos fid) {
    const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(fid);
    if (riga == nullptr)
        return nullptr;
    for (int i = 0; i < riga->num_varianti; ++i)  // few rows have any: asked for first
        if (riga->varianti[i].posizione == kelFidPosizione(fid) && kelFidOggetto(riga->chiave) == kelFidOggetto(fid))
            return riga->varianti[i].testo;
    return riga->testo;
}

// The first table that knows the function names it: the camera's, the legacy one, the quantity table. Which one does cannot be
// foretold, so all three are asked, the last one first. End markers are no functions.
const char* nome_nelle_tabelle(kel_funpos fid) {
    if (kelFidFineTabella(fid) != 0)
        return nullptr;
    const t_SFunzioneZumikoCam& camera = kel::riga_camera(kel::indice_camera_fid.riga(fid));
    const t_SFunzioneVecchia& vecchia = funz_Kel[kel::indice_kel_fid.riga(fid)];
    const char* nome = nome_della_grandezza(fid);
    const char* const nome_vecchio = vecchia.testo;
    const char* const nome_camera = camera.testo;
    nome = vecchia.fid == fid ? nome_vecchio : nome;
    return camera.fid == fid ? nome_camera : nome;
}

}  // namespace

std::string CFunzioni::getNomeFunzione(kel_funpos fid, bool tutti) const {
    if (const char* nome = nome_nelle_tabelle(fid))
        return nome;  // as it stands, without a conversion
    return kel::nome_composto(fid, tutti);
}

// The NUL is part of the string: clients compare and print short names with it.
std::string CFunzioni::getNomeFunzioneShort(kel_funpos fid) const {
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(&set_, fid);
    return std::string(nome.testo, std::strlen(nome.testo) + 1);
}
