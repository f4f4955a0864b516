// Legacy texts to identifiers and camera rows.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "comune/funzioni.h"
#include "comune/mappe.h"
#include "righe.h"

#ifdef KEL_PARI_GPERF
#include "gperf_camera.h"
#include "gperf_vecchi.h"
#endif

using namespace prova;

namespace {

// Every fourth text is unknown, but similar to the others.
Ingressi<std::string> testi(const std::vector<std::string>& noti) {
    return genera([&](Casuale& casuale) {
        std::string testo = uno_di(casuale, noti);
        if (sotto(casuale, 4) == 0)
            testo[sotto(casuale, static_cast<std::uint32_t>(testo.size()))] = 'X';
        return testo;
    });
}

void funzioni() {
    const std::string riga = "legacy text to identifier";
    std::vector<std::pair<std::string_view, kel_funpos>> coppie;
    std::vector<std::string> noti;
    for (const t_SFunzioneVecchia& una : funz_Kel)
        if (kelFidFineTabella(una.fid) == 0) {
            coppie.emplace_back(una.id, una.fid);
            noti.emplace_back(una.id);
        }
    const auto ingressi = testi(noti);
    const auto nostro = [](const std::string& testo) { return kelFunGetFidDaID(testo.c_str()); };
    serie(riga, Ruolo::nostro, "kelFunGetFidDaID", ingressi, nostro);
#ifdef KEL_PARI_GPERF
    const auto gperf = [](const std::string& testo) -> kel_funpos {
        const VoceVecchia* voce = GperfVecchi::cerca(testo.data(), testo.size());
        return voce != nullptr ? voce->valore : 0;
    };
    concordi(riga, ingressi, nostro, gperf);
    serie(riga, Ruolo::pari, "gperf", ingressi, gperf);
#endif
    pari_mappe<std::string_view>(riga, coppie, ingressi, [](const auto& mappa, const std::string& testo) {
        return in_mappa(mappa, std::string_view(testo));
    });
}

void righe() {
    const std::string riga = "legacy text to camera row";
    using Riga = const t_SFunzioneZumikoCam*;
    std::vector<std::pair<std::string_view, Riga>> coppie;
    std::vector<std::string> noti;
    static std::vector<Riga> tutte = righe_camera_tutte();
    for (const Riga una : tutte) {
        coppie.emplace_back(una->id, una);
        noti.emplace_back(una->id);
    }
    const auto ingressi = testi(noti);
    const auto nostro = [](const std::string& testo) { return kelFunGetFunVecchiaZumikoDaID(testo.c_str()); };
    serie(riga, Ruolo::nostro, "kelFunGetFunVecchiaZumikoDaID", ingressi, nostro);
#ifdef KEL_PARI_GPERF
    const auto gperf = [](const std::string& testo) -> Riga {
        const VoceCamera* voce = GperfCamera::cerca(testo.data(), testo.size());
        return voce != nullptr ? tutte[voce->valore] : nullptr;
    };
    concordi(riga, ingressi, nostro, gperf);
    serie(riga, Ruolo::pari, "gperf", ingressi, gperf);
#endif
    pari_mappe<std::string_view>(riga, coppie, ingressi, [](const auto& mappa, const std::string& testo) {
        return in_mappa(mappa, std::string_view(testo));
    });
}

}  // namespace

void righe_identificatori_vecchi() {
    funzioni();
    righe();
}
