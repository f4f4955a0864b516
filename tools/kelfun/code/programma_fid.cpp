#include "code/programma_fid.h"

#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

#include "code/codice.h"
#include "domain/campi.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

// Where the library keeps a field's vocabulary, and what reads the field.
struct FonteCampo {
    const char* chiave;
    const char* funzione;
    const char* tabella;
    std::size_t righe;
};
const FonteCampo FONTI[] = {
    {"quantity", "kelFidGrandezza", "grandezza_fisica_FunzKel", std::size(grandezza_fisica_FunzKel)},
    {"object", "kelFidOggetto", "oggetto_misurato_FunzKel", std::size(oggetto_misurato_FunzKel)},
    {"details", "kelFidOggetto", "dettagli_FunzKel", std::size(dettagli_FunzKel)},
    {"position", "kelFidPosizione", "posizione_FunzKel", std::size(posizione_FunzKel)},
    {"inout", "kelFidInOut", "inout_FunzKel", std::size(inout_FunzKel)},
    {"leftright", "kelFidLeftRight", "leftright_FunzKel", std::size(leftright_FunzKel)},
    {"frontrear", "kelFidFrontRear", "frontrear_FunzKel", std::size(frontrear_FunzKel)},
    {"updown", "kelFidUpDown", "updown_FunzKel", std::size(updown_FunzKel)},
};

FonteCampo fonte(const Campo& campo, kel_funpos fid) {
    for (const FonteCampo& una : FONTI)
        if (std::string_view(campo.chiave) == una.chiave)
            return una;
    // The vocabulary of a specialisation depends on the details; for kinds without one any will do, with no rows.
    const bool giro = kelFidOggetto(fid) == FID_DETTAGLI_LAPTIME;
    return {campo.chiave, "kelFidPosizione", giro ? "specializzazione_laptime_FunzKel" : "specializzazione_gps_FunzKel",
            specializzazioni(kelFidOggetto(fid)).size()};
}

}  // namespace

void programma_fid(const IFunzioni& catalogo, const std::string& linguaggio, kel_funpos fid) {
    nlohmann::ordered_json suoi = nlohmann::ordered_json::array();
    for (const Campo& campo : campi(fid)) {
        if (campo.bit >= PRIMO_BIT_LIBERO || std::string_view(campo.chiave) == "number")
            continue;
        const FonteCampo una = fonte(campo, fid);
        suoi.push_back({{"campo", campo.titolo},
                        {"funzione", una.funzione},
                        {"tabella", una.tabella},
                        {"righe", una.righe},
                        {"bit", campo.bit},
                        {"maschera", esadecimale((1u << campo.quanti) - 1, 1)}});
    }
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -1;
    int ultimo = -1;
    catalogo.getFunzDettagli(fid, lati, inout, primo, ultimo);
    const bool pacchetto = kelFidGrandezza(fid) == FID_PHI_PACKAGE &&
                           search_sottocampi_struct(kelFidOggetto(fid), kelFidPosizione(fid)) != nullptr;
    const nlohmann::ordered_json composto = fid_per_programma(fid);
    stampa_programma(
        linguaggio, "fid",
        "What is known about " + composto["hex"].get<std::string>() + ", " + composto["nome"].get<std::string>(),
        {{"fid", composto},
         {"campi", suoi},
         {"numerato", kelFidNumerato(fid) != 0},
         {"scelte", !lati.empty() || !inout.empty() || primo >= 0},
         {"camera", catalogo.getParamZumikoCam(fid) != nullptr},
         {"pacchetto", pacchetto}});
}

}  // namespace kel::strumento
