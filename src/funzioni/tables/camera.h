// Rules of the camera tables, and the indexes over both.
#ifndef KEL_TABLES_CAMERA_H
#define KEL_TABLES_CAMERA_H

#include <iterator>

#include "kelfunzioni.h"
#include "tables/indice_perfetto.h"
#include "tables/invarianti.h"

namespace kel {

// Whether the camera shows the extended function of a parameter code.
//
// It shows the codes 0xB0nn and 0xE0nn, but for eight numbers nn that are hidden on purpose:
//
//     7 time     9 master clock      11 local status       18 total odometer
//     8 date    10 master status     17 predictive time    19 resettable odometer
constexpr bool estesa_visibile(int codice) {
    constexpr unsigned nascoste = 1u << 7 | 1u << 8 | 1u << 9 | 1u << 10 | 1u << 11 | 1u << 17 | 1u << 18 | 1u << 19;
    const unsigned famiglia = static_cast<unsigned>(codice) & 0xFF00u;
    const unsigned numero = static_cast<unsigned>(codice) & 0xFFu;
    if (famiglia != 0xB000u && famiglia != 0xE000u)
        return false;
    return numero >= 20 || (nascoste >> numero & 1u) == 0;
}

// -1 says that the camera has no code for a row, so several rows may have it.
template <std::size_t N>
constexpr bool codici_unici(const t_SFunzioneZumikoCam (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (tabella[i].codice != -1 && tabella[i].codice == tabella[j].codice)
                return false;
    return true;
}

// Where the scale is not above 0, the parameter look-up leaves the caller's scale as it was: such a row would have
// none.
template <std::size_t N>
constexpr bool scale_positive(const t_SFunzioneZumikoCam (&tabella)[N]) {
    for (const t_SFunzioneZumikoCam& riga : tabella)
        if (!(riga.scala > 0.0f))
            return false;
    return true;
}

template <std::size_t N>
constexpr bool camera_in_regola(const t_SFunzioneZumikoCam (&tabella)[N]) {
    return chiavi_in_regola(tabella, &t_SFunzioneZumikoCam::fid) && codici_unici(tabella) && scale_positive(tabella) &&
           testi_entro(tabella, &t_SFunzioneZumikoCam::udm, 6) &&
           testi_entro(tabella, &t_SFunzioneZumikoCam::breve, 4) &&
           testi_entro(tabella, &t_SFunzioneZumikoCam::testo, 16) &&
           testi_entro(tabella, &t_SFunzioneZumikoCam::id, 24);
}

// The rows of both tables are numbered together, the basic functions first. The end rows are numbered too, because the
// look-ups find them: the end marker and the empty text lead to the end row of the basic table.
inline constexpr std::size_t RIGHE_BASE = std::size(funz_ZumikoCam_base);
inline constexpr std::size_t RIGHE_ESTESE = std::size(funz_ZumikoCam_estese);
extern const IndicePerfetto<128> INDICE_CAMERA_FID;
extern const IndiceTesti<128, RIGHE_BASE + RIGHE_ESTESE> INDICE_CAMERA_ID;

// The row of a number. The table is chosen by an index and not by a branch: requests fall into either table in no order
// that a processor could predict, and a mispredicted branch costs it ten cycles and more.
inline const t_SFunzioneZumikoCam& riga_camera(std::size_t numero) noexcept {
    static constexpr struct {
        const t_SFunzioneZumikoCam* righe;
        std::size_t prima;
    } tabelle[] = {{funz_ZumikoCam_base, 0}, {funz_ZumikoCam_estese, RIGHE_BASE}};
    const auto& tabella = tabelle[numero >= RIGHE_BASE ? 1 : 0];
    return tabella.righe[numero - tabella.prima];
}

}  // namespace kel

#endif
