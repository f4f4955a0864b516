// Function identifiers to ask for.
#ifndef KEL_BENCH_FUNZIONI_H
#define KEL_BENCH_FUNZIONI_H

#include <iterator>
#include <vector>

#include "comune/prova.h"
#include "kelfunzioni.h"

namespace prova {

/// The rows of the camera tables, the end rows left out.
inline std::vector<const t_SFunzioneZumikoCam*> righe_camera_tutte() {
    std::vector<const t_SFunzioneZumikoCam*> righe;
    for (unsigned i = 0; i + 1 < std::size(funz_ZumikoCam_base); ++i)
        righe.push_back(&funz_ZumikoCam_base[i]);
    for (unsigned i = 0; i + 1 < std::size(funz_ZumikoCam_estese); ++i)
        righe.push_back(&funz_ZumikoCam_estese[i]);
    return righe;
}

/// An element at random.
template <typename Contenitore>
const auto& uno_di(Casuale& casuale, const Contenitore& contenitore) {
    return contenitore[sotto(casuale, static_cast<std::uint32_t>(std::size(contenitore)))];
}

/// An identifier whose fields have values that mean something. Every third one is numbered.
inline kel_funpos fid_qualsiasi(Casuale& casuale, std::uint32_t grandezza) {
    const kel_funpos campi = kelFidComponi(grandezza, sotto(casuale, std::size(oggetto_misurato_FunzKel)),
                                           sotto(casuale, std::size(posizione_FunzKel))) |
                             kelFidBitInOut(sotto(casuale, 4));
    return campi | (sotto(casuale, 3) == 0 ? kelFidIstanza(sotto(casuale, 64))
                                           : kelFidLati(sotto(casuale, 4), sotto(casuale, 4), sotto(casuale, 4)));
}

}  // namespace prova

#endif
