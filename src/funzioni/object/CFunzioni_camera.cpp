// The camera's functions: the walks over those that it shows, the lists of all, and a function's parameters.
#include "CFunzioni.h"
#include "tables/camera.h"
#include "tables/fid.h"

namespace {

// The walks tell the end row by its quantity alone.
bool fine_scansione(const t_SFunzioneZumikoCam& riga) {
    return kel::grandezza_di_fine(riga.fid);
}

// The lists of all rows tell it by its whole identifier: quantity, object and position.
void aggiungi_tutte(const t_SFunzioneZumikoCam* tabella, std::vector<const t_SFunzioneZumikoCam*>& funzioni) {
    for (; tabella->fid != kel::FINE_TABELLA; ++tabella)
        funzioni.push_back(tabella);
}

}  // namespace

// Not const, like is_est_valid below: programs are linked against the names that these members have without it.
// NOLINTNEXTLINE(readability-make-member-function-const)
const t_SFunzioneZumikoCam* CFunzioni::get_funz_vis_zumiko_cam() {
    const t_SFunzioneZumikoCam* riga = &funz_ZumikoCam_base[cursore_base_];
    return fine_scansione(*riga) ? nullptr : riga;
}

// Hidden rows are skipped up to the end row at the latest: nothing else bounds the cursor.
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
    scala = riga->scala;  // above 0 in every row
    if (*riga->udm != '\0')
        udm = ConvertiDa8(riga->udm);
    return true;
}
