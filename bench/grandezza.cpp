// An identifier to the row of its quantity.
#include <utility>
#include <vector>

#include "comune/funzioni.h"
#include "comune/mappe.h"
#include "righe.h"

using namespace prova;

void righe_grandezza() {
    const std::string riga = "quantity row";
    // Half of them particular functions, half any object of any quantity; at any position.
    const auto funzioni = genera([](Casuale& casuale) -> kel_funpos {
        const kel_funpos altra = fid_qualsiasi(casuale, sotto(casuale, std::size(grandezza_fisica_FunzKel)));
        const kel_funpos chiave =
            uib_grandezza_fisica_uiv[sotto(casuale, std::size(uib_grandezza_fisica_uiv) - 1)].chiave;
        return sotto(casuale, 2) == 0 ? altra : (altra & ~kel_funpos{0x7FFF}) | chiave;
    });

    // Every meaningful pair beforehand, so that one look-up is enough.
    using Riga = const s_grandezza_fisica_uiv*;
    constexpr kel_funpos grandezza_e_oggetto = 0x7FFF;
    std::vector<std::pair<kel_funpos, Riga>> righe;
    static Riga diretta[std::size(grandezza_fisica_FunzKel)][256];
    for (unsigned grandezza = 0; grandezza < std::size(grandezza_fisica_FunzKel); ++grandezza)
        for (unsigned oggetto = 0; oggetto < std::size(oggetto_misurato_FunzKel); ++oggetto) {
            const kel_funpos fid = kelFidComponi(grandezza, oggetto, 0);
            diretta[grandezza][oggetto] = kelFunGetUIVs(fid);
            righe.emplace_back(fid, diretta[grandezza][oggetto]);
        }

    const auto limite = [](kel_funpos fid) { return diretta[kelFidGrandezza(fid) & 31][kelFidOggetto(fid)]; };
    concordi(riga, funzioni, kelFunGetUIVs, limite);
    serie(riga, Ruolo::nostro, "kelFunGetUIVs", funzioni, [](kel_funpos fid) { return kelFunGetUIVs(fid); });
    serie(riga, Ruolo::limite, "array by fields", funzioni, limite);
    pari_mappe<kel_funpos>(riga, righe, funzioni, [](const auto& mappa, kel_funpos fid) {
        return in_mappa(mappa, fid & grandezza_e_oggetto);
    });
}
