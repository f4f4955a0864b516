// Camera rows by function, and by legacy identifier, which is a text.
//
// The end rows are found like the others: the end marker and the empty text find the end row of the basic table.
// Programs may depend on that, so it stays.
#include <string_view>

#include "kelfunzioni.h"
#include "tables/camera.h"

const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) noexcept {
    const t_SFunzioneZumikoCam& riga = kel::riga_camera(kel::INDICE_CAMERA_FID.riga(fid));
    return riga.fid == fid ? &riga : nullptr;
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) noexcept {
    return kelFunGetParamZumikoCam(fid);
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) noexcept {
    const std::string_view testo(id);
    const std::size_t numero = kel::INDICE_CAMERA_ID.riga(testo);
    const t_SFunzioneZumikoCam& riga = kel::riga_camera(numero);
    return kel::INDICE_CAMERA_ID.uguale(numero, riga.id, testo) ? &riga : nullptr;
}

unsigned getFunzVisSize() noexcept {
    return kel::RIGHE_BASE;
}

unsigned getFunzVisEstSize() noexcept {
    return kel::RIGHE_ESTESE;
}
