// An identifier to its camera row.
#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "comune/funzioni.h"
#include "comune/mappe.h"
#include "righe.h"

using namespace prova;

namespace {

using Riga = const t_SFunzioneZumikoCam*;

// One multiplication and one comparison. At the start a multiplier is searched with which no two rows share a place.
class TabellaPerfetta {
public:
    explicit TabellaPerfetta(const std::vector<Riga>& righe) {
        Casuale casuale(3);
        do {
            posti_ = {};
            fattore_ = static_cast<std::uint32_t>(casuale()) | 1;
        } while (!std::all_of(righe.begin(), righe.end(), [this](Riga riga) {
            Riga& posto = posti_[dove(riga->fid)];
            return std::exchange(posto, riga) == nullptr;
        }));
        for (const Riga riga : righe)
            chiavi_[dove(riga->fid)] = riga->fid;
    }

    Riga cerca(kel_funpos fid) const {
        // A mask, and not a branch that the processor could not predict.
        const std::size_t posto = dove(fid);
        const std::uintptr_t uguale = std::uintptr_t{0} - (chiavi_[posto] == fid ? 1 : 0);
        return reinterpret_cast<Riga>(reinterpret_cast<std::uintptr_t>(posti_[posto]) & uguale);
    }

private:
    static constexpr unsigned BIT = 9;

    std::size_t dove(kel_funpos fid) const { return fid * fattore_ >> (32 - BIT); }

    std::uint32_t fattore_ = 1;
    std::array<Riga, 1u << BIT> posti_ = {};
    std::array<kel_funpos, 1u << BIT> chiavi_ = {};  // an empty place has no row, so its key may be anything
};

}  // namespace

void righe_camera() {
    const std::string riga = "camera row";
    const auto tutte = righe_camera_tutte();
    // Half of them are functions of the camera.
    const auto funzioni = genera([&](Casuale& casuale) -> kel_funpos {
        return sotto(casuale, 2) == 0 ? uno_di(casuale, tutte)->fid
                                      : fid_qualsiasi(casuale, sotto(casuale, std::size(grandezza_fisica_FunzKel)));
    });
    std::vector<std::pair<kel_funpos, Riga>> coppie;
    coppie.reserve(tutte.size());
    for (const Riga una : tutte)
        coppie.emplace_back(una->fid, una);
    const TabellaPerfetta perfetta(tutte);
    const auto limite = [perfetta](kel_funpos fid) { return perfetta.cerca(fid); };
    concordi(riga, funzioni, kelFunGetParamZumikoCam, limite);
    serie(riga, Ruolo::nostro, "kelFunGetParamZumikoCam", funzioni,
          [](kel_funpos fid) { return kelFunGetParamZumikoCam(fid); });
    serie(riga, Ruolo::limite, "perfect hash", funzioni, limite);
    pari_mappe<kel_funpos>(riga, coppie, funzioni,
                           [](const auto& mappa, kel_funpos fid) { return in_mappa(mappa, fid); });
}
