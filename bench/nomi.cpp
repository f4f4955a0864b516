// Short and long names of functions that have them in a table.
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "IFunzioni.h"
#include "comune/funzioni.h"
#include "comune/mappe.h"
#include "righe.h"

using namespace prova;

namespace {

using Coppie = std::vector<std::pair<kel_funpos, std::string_view>>;

void breve() {
    const std::string riga = "short name";
    Coppie coppie;
    for (const t_SFunzioneZumikoCam* una : righe_camera_tutte())
        coppie.emplace_back(una->fid, una->breve);
    const auto funzioni = genera([&](Casuale& casuale) { return uno_di(casuale, coppie).first; });
    serie(riga, Ruolo::nostro, "kelFunGetNomeFunzioneShort", funzioni,
          [](kel_funpos fid) { return kelFunGetNomeFunzioneShort(nullptr, fid); });
    pari_mappe<kel_funpos>(riga, coppie, funzioni, [](const auto& mappa, kel_funpos fid) {
        s_nome_breve nome = {};
        const std::string_view testo = in_mappa(mappa, fid);
        std::memcpy(nome.testo, testo.data(), testo.size());
        return nome;
    });
}

void lungo() {
    const std::string riga = "long name";
    Coppie coppie;
    for (const t_SFunzioneZumikoCam* una : righe_camera_tutte())
        coppie.emplace_back(una->fid, una->testo);
    for (const t_SFunzioneVecchia& una : funz_Kel)
        if (kelFidFineTabella(una.fid) == 0)
            coppie.emplace_back(una.fid, una.testo);
    // A row without variants names every function of its quantity and object.
    for (const s_grandezza_fisica_uiv& una : uib_grandezza_fisica_uiv)
        if (kelFidFineTabella(una.chiave) == 0)
            coppie.emplace_back(una.chiave, una.testo);
    const auto funzioni = genera([&](Casuale& casuale) { return uno_di(casuale, coppie).first; });
    const std::shared_ptr<const IFunzioni> catalogo(IFunzioni::CreateMe());
    serie(riga, Ruolo::nostro, "getNomeFunzione", funzioni,
          [catalogo](kel_funpos fid) { return catalogo->getNomeFunzione(fid, false); });
    pari_mappe<kel_funpos>(riga, coppie, funzioni,
                           [](const auto& mappa, kel_funpos fid) { return std::string(in_mappa(mappa, fid)); });
}

}  // namespace

void righe_nomi() {
    breve();
    lungo();
}
