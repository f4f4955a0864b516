// The catalogue's walks over the camera's functions, and its legacy identifiers.
#include <iterator>

#include "CFunzioni.h"
#include "tables/camera.h"
#include "tables/fid.h"

namespace {

// The end row, as the walks know it: by the quantity alone.
bool fine_scansione(const t_SFunzioneZumikoCam& riga) {
    return kel::grandezza_di_fine(riga.fid);
}

// The whole-table selections know the end row by its whole identifier: quantity, object and position.
void aggiungi_tutte(const t_SFunzioneZumikoCam* tabella, std::vector<const t_SFunzioneZumikoCam*>& funzioni) {
    for (; tabella->fid != kel::fine_tabella; ++tabella)
        funzioni.push_back(tabella);
}

}  // namespace

// Not const, nor is is_est_valid: programs look for the names without it.
// NOLINTNEXTLINE(readability-make-member-function-const)
const t_SFunzioneZumikoCam* CFunzioni::get_funz_vis_zumiko_cam() {
    const t_SFunzioneZumikoCam* riga = &funz_ZumikoCam_base[cursore_base_];
    return fine_scansione(*riga) ? nullptr : riga;
}

// The end row stops the skipping: nothing else bounds the cursor.
const t_SFunzioneZumikoCam* CFunzioni::get_funz_vis_zumiko_cam_estese() {
    for (;; ++cursore_estese_) {
        const t_SFunzioneZumikoCam* riga = &funz_ZumikoCam_estese[cursore_estese_];
        if (fine_scansione(*riga))
            return nullptr;
        if (is_est_valid(riga->codice))
            return riga;
    }
}

// NOLINTNEXTLINE(readability-make-member-function-const)
bool CFunzioni::is_est_valid(int codice) {
    return kel::estesa_visibile(codice);
}

const t_SFunzioneZumikoCam* CFunzioni::getFirstFunzVisZumikoCam() {
    cursore_base_ = 0;
    return get_funz_vis_zumiko_cam();
}

const t_SFunzioneZumikoCam* CFunzioni::getNextFunzVisZumikoCam() {
    if (cursore_base_ >= dimensione_base_ - 1)
        return nullptr;
    ++cursore_base_;
    return get_funz_vis_zumiko_cam();
}

const t_SFunzioneZumikoCam* CFunzioni::getFirstFunzVisZumikoCamEstese() {
    cursore_estese_ = 0;
    return get_funz_vis_zumiko_cam_estese();
}

const t_SFunzioneZumikoCam* CFunzioni::getNextFunzVisZumikoCamEstese() {
    if (cursore_estese_ >= dimensione_estese_ - 1)
        return nullptr;
    ++cursore_estese_;
    return get_funz_vis_zumiko_cam_estese();
}

void CFunzioni::getAllFunzZumikoCamBasePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) {
    aggiungi_tutte(funz_ZumikoCam_base, funzioni);
}

void CFunzioni::getAllFunzZumikoCamEstesePerSw(std::vector<const t_SFunzioneZumikoCam*>& funzioni) {
    aggiungi_tutte(funz_ZumikoCam_estese, funzioni);
}

const t_SFunzioneZumikoCam* CFunzioni::getParamZumikoCam(kel_funpos fid) const {
    return kelFunGetParamZumikoCam(fid);
}

bool CFunzioni::FunGetParamZumikoCam(int fid, int& codice, float& scala, std::string& udm) const {
    const t_SFunzioneZumikoCam* riga = kelFunGetParamZumikoCam(static_cast<kel_funpos>(fid));
    if (riga == nullptr)
        return false;
    codice = riga->codice;
    scala = riga->scala;  // every row has one
    if (*riga->udm != '\0')
        udm = riga->udm;
    return true;
}

const t_SFunzioneZumikoCam* CFunzioni::getFunVecchiaZumikoDaFID(kel_funpos fid) {
    return kelFunGetFunVecchiaZumikoDaFID(fid);
}

const t_SFunzioneZumikoCam* CFunzioni::getFunVecchiaZumikoDaID(const std::string& id) {
    return kelFunGetFunVecchiaZumikoDaID(ConvertiIn8(id).c_str());
}

// Through the interface: a derived catalogue's own camera rows are found by this search too.
kel_funpos CFunzioni::getFidDaID(const std::string& id) {
    if (const t_SFunzioneZumikoCam* riga = getFunVecchiaZumikoDaID(id))
        return riga->fid;
    return kelFunGetFidDaID(ConvertiIn8(id).c_str());
}
