// Long and short names of a function. The long one is that of the first table that has one, or is composed from the
// identifier's fields.
#include "CFunzioni.h"

#include <cstring>

#include "object/nome_composto.h"
#include "tables/camera.h"
#include "tables/funz_kel.h"

namespace {

// The name in the quantity table. Position variants are those of the row's own object only: a generic row names the
// other objects of its quantity at every position.
const char* nome_della_grandezza(kel_funpos fid) {
    const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(fid);
    if (riga == nullptr)
        return nullptr;
    for (int i = 0; i < riga->num_varianti; ++i)  // few rows have any
        if (riga->varianti[i].posizione == kelFidPosizione(fid) && kelFidOggetto(riga->chiave) == kelFidOggetto(fid))
            return riga->varianti[i].testo;
    return riga->testo;
}

// The name of the first table that has the function: the camera's, the legacy one, the quantity table. Null where none
// has it, and for the end marker of the tables. All three are asked, the last one first, and conditional moves choose
// the name: in a list of mixed functions a branch on which table has one would be unpredictable.
const char* nome_nelle_tabelle(kel_funpos fid) {
    if (kelFidFineTabella(fid) != 0)
        return nullptr;
    const t_SFunzioneZumikoCam& camera = kel::riga_camera(kel::INDICE_CAMERA_FID.riga(fid));
    const t_SFunzioneVecchia& vecchia = funz_Kel[kel::INDICE_KEL_FID.riga(fid)];
    const char* nome = nome_della_grandezza(fid);
    const char* const nome_vecchio = vecchia.testo;
    const char* const nome_camera = camera.testo;
    nome = vecchia.fid == fid ? nome_vecchio : nome;
    return camera.fid == fid ? nome_camera : nome;
}

}  // namespace

std::string CFunzioni::getNomeFunzione(kel_funpos fid, bool tutti) const {
    if (const char* nome = nome_nelle_tabelle(fid))
        return nome;  // the tables' whole names are handed out unchanged, unlike the texts that a name is composed of
    return kel::nome_composto(*this, fid, tutti);
}

// The flat face's text unchanged, its NUL included: clients compare and print short names with it.
std::string CFunzioni::getNomeFunzioneShort(kel_funpos fid) const {
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(&set_, fid);
    return std::string(nome.testo, std::strlen(nome.testo) + 1);
}
