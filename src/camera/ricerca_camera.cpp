// Camera rows by identifier and by legacy textual identifier.
//
// End rows take part in the searches: the end marker finds the base table's end row, and so does the empty text.
#include <cstring>
#include <iterator>

#include "kelfunzioni.h"

namespace {

template <typename Condizione>
const t_SFunzioneZumikoCam* prima_riga(Condizione condizione) noexcept {
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_base)
        if (condizione(riga))
            return &riga;
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_estese)
        if (condizione(riga))
            return &riga;
    return nullptr;
}

}  // namespace

const t_SFunzioneZumikoCam* kelFunGetParamZumikoCam(kel_funpos fid) noexcept {
    return prima_riga([fid](const t_SFunzioneZumikoCam& riga) { return riga.fid == fid; });
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaFID(kel_funpos fid) noexcept {
    return kelFunGetParamZumikoCam(fid);
}

const t_SFunzioneZumikoCam* kelFunGetFunVecchiaZumikoDaID(const char* id) noexcept {
    return prima_riga([id](const t_SFunzioneZumikoCam& riga) { return std::strcmp(riga.id, id) == 0; });
}

unsigned getFunzVisSize() noexcept {
    return static_cast<unsigned>(std::size(funz_ZumikoCam_base));
}

unsigned getFunzVisEstSize() noexcept {
    return static_cast<unsigned>(std::size(funz_ZumikoCam_estese));
}
