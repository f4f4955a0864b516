// Camera rows by identifier and by legacy textual identifier.
//
// End rows take part in the searches: the end marker finds the base table's end row, and so does the empty text.
#include <string_view>

#include "kelfunzioni.h"
#include "tables/camera.h"

const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) noexcept {
    const t_SFunzioneZumikoCam& riga = kel::riga_camera(kel::indice_camera_fid.riga(fid));
    return riga.fid == fid ? &riga : nullptr;
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) noexcept {
    return kelFunGetParamZumikoCam(fid);
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) noexcept {
    const std::string_view testo(id);
    const std::size_t numero = kel::indice_camera_id.riga(testo);
    const t_SFunzioneZumikoCam& riga = kel::riga_camera(numero);
    return kel::indice_camera_id.uguale(numero, riga.id, testo) ? &riga : nullptr;
}

unsigned getFunzVisSize() noexcept {
    return kel::righe_base;
}

unsigned getFunzVisEstSize() noexcept {
    return kel::righe_estese;
}
