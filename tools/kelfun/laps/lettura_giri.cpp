#include "laps/lettura_giri.h"

#include <cstdio>
#include <utility>

#include "captures/file_canali.h"
#include "io/ingresso.h"
#include "registrazioni/common/errore.h"
#include "registrazioni/gps/lettore_soluzioni.h"
#include "registrazioni/laps/raccolta.h"
#include "text/errori.h"
#include "text/mostrabile.h"

namespace kel::strumento {

void dillo(const std::string& testo) {
    std::fprintf(stderr, "kelfun laps: %s\n", mostrabile(testo).c_str());
}

Lettura leggi_cattura(const std::string& file, const ScelteGiri& scelte) {
    Ingresso ingresso(file);
    ingresso.mostra_avanzamento(false);
    LettoreSoluzioni lettore(
        [&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); });
    OrologioGps orologio;
    std::vector<Fix> fix;
    while (lettore.prossima())
        fix.push_back(fix_di(lettore.soluzione(), orologio));
    if (fix.empty()) {
        const std::string messaggi = elenco_messaggi(lettore.conteggi());
        throw NonTrovato("there is no NAV-SOL and no NAV-PVT message in it" +
                         (messaggi.empty() ? "" : "; messages by class and id: " + messaggi));
    }
    return giri_della_cattura(std::move(fix), scelte, PAROLE, dillo);
}

Lettura leggi_registrazione(const std::string& file_canali, const std::string& file_campioni, Disposizione disposizione,
                            const SceltaTempo& scelta_tempo, const IFunzioni& catalogo, const ScelteGiri& scelte) {
    TempoRecord tempo(scelta_tempo);
    const std::vector<s_kel_canale> canali = leggi_file_canali(file_canali, disposizione);
    FileCampioni campioni(file_campioni, dimensione_record(canali), tempo);
    campioni.annuncia("laps");
    campioni.ingresso().mostra_avanzamento(false);
    RaccoltaRecord raccolta(catalogo, canali);
    while (campioni.lettore().prossimo())
        raccolta.aggiungi(tempo.noto() ? std::optional(tempo.secondi(campioni.lettore())) : std::nullopt,
                          campioni.lettore().campioni());
    campioni.verifica_fine();
    return giri_della_registrazione(raccolta, scelte, PAROLE, dillo);
}

}  // namespace kel::strumento
