// Camera rows by identifier and by legacy textual identifier.
//
// End rows take part in the searches: the end marker finds the base table's end row, and so does the empty text.
#include <cstring>

#include "kelfunzioni.h"
#include "tables/camera.h"

namespace {

// Chosen by an index, not by a branch: which table a request falls into cannot be foretold.
constexpr struct {
    const t_SFunzioneZumikoCam* righe;
    std::size_t prima;
} tabelle[] = {{funz_ZumikoCam_base, 0}, {funz_ZumikoCam_estese, kel::righe_base}};

const t_SFunzioneZumikoCam& riga_numero(std::size_t numero) noexcept {
    const auto& tabella = tabelle[numero >= kel::righe_base ? 1 : 0];
    return tabella.righe[numero - tabella.prima];
}

}  // namespace

const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) noexcept {
    const t_SFunzioneZumikoCam& riga = riga_numero(kel::indice_camera_fid.riga(fid));
    return riga.fid == fid ? &riga : nullptr;
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) noexcept {
    return kelFunGetParamZumikoCam(fid);
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) noexcept {
    const t_SFunzioneZumikoCam& riga = riga_numero(kel::indice_camera_id.riga(kel::chiave_testo(id)));
    return std::strcmp(riga.id, id) == 0 ? &riga : nullptr;
}

unsigned getFunzVisSize() noexcept {
    return kel::righe_base;
}

unsigned getFunzVisEstSize() noexcept {
    return kel::righe_estese;
}
