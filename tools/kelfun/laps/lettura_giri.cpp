#include "laps/lettura_giri.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "captures/file_canali.h"
#include "io/ingresso.h"
#include "registrazioni/gps/lettore_soluzioni.h"
#include "registrazioni/laps/passaggi.h"
#include "registrazioni/laps/raccolta.h"
#include "registrazioni/laps/ricerca_linea.h"
#include "text/errori.h"
#include "text/mostrabile.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

std::string intera(double valore) {
    return conDecimali(valore, 0);
}

// Why a line closes no lap.
std::string maiChiuso(const Passaggi& passati, const Linea& linea) {
    const std::string quanto = passati.avanti.empty()       ? "never passes"
                               : passati.avanti.size() == 1 ? "passes once, not twice,"
                                                            : "passes no more than once a session";
    std::string testo_linea = "the track " + quanto + " the line " + testo(linea);
    if (!passati.indietro.empty())
        testo_linea += "; the other way it does, " + std::to_string(passati.indietro.size()) +
                       " times: the heading is the third number";
    return testo_linea;
}

// The laps of fixes; what is missing for them is an error.
Lettura giriGps(std::vector<Fix> fix, const ScelteGiri& scelte) {
    Lettura lettura{Guida(std::move(fix)), {}, {}};
    const Guida& guida = lettura.guida;
    if (guida.validi().empty())
        throw NonTrovato("no lap is closed: none of the " + std::to_string(guida.fix().size()) +
                         " solutions has a fix in space");
    std::optional<Linea> linea = scelte.linea;
    std::string trovata;
    if (!linea) {
        const auto cercata = cercaLinea(guida, scelte.minimo);
        if (!cercata)
            throw NonTrovato("no lap is closed: no place is passed twice in the same direction at speed, " +
                             intera(scelte.minimo) + " s apart or more (--min-lap)");
        linea = cercata->linea;
        trovata = "; finish line found, passed " + std::to_string(cercata->volte) + " times at " +
                  intera(cercata->velocita * scelte.fattore) + " " + scelte.udm + " on average: --line " +
                  testo(*linea);
    }
    const Passaggi passati = passaggi(guida, *linea, scelte.minimo);
    lettura.giri = giri(guida, passati);
    if (std::none_of(lettura.giri.begin(), lettura.giri.end(), [](const Giro& giro) { return giro.chiuso(); }))
        throw NonTrovato("no lap is closed: " + maiChiuso(passati, *linea));
    dillo("laps from GPS" + trovata);
    if (passati.scartati != 0)
        dillo(std::to_string(passati.scartati) + " passages of the line less than " + intera(scelte.minimo) +
              " s after another are left out (--min-lap)");
    return lettura;
}

// Over a pause the clock goes on; where time runs backwards it counts anew.
std::vector<double> originiDellaCattura(const Guida& guida) {
    std::vector<double> origini;
    for (const std::size_t primo : guida.sessioni()) {
        const double inizio = guida.fix()[primo].tempo;
        const bool avanti = primo > 0 && inizio > guida.fix()[primo - 1].tempo;
        origini.push_back(avanti ? origini.back() : inizio);
    }
    return origini;
}

// The laps that the logger has timed; none where it has timed none.
std::optional<Lettura> giriRegistrati(RaccoltaRecord& raccolta, bool richiesti) {
    if (raccolta.canaleGiri().empty()) {
        if (richiesti)
            throw NonTrovato("there are no lap packets and no lap channels in the recording");
        return std::nullopt;
    }
    Lettura lettura{Guida(raccolta.fixDeiRecord()), {}, {}};
    lettura.origini.assign(std::max<std::size_t>(1, lettura.guida.sessioni().size()), 0);
    lettura.giri = raccolta.giriDelRegistratore(lettura.guida);
    if (lettura.giri.empty()) {
        if (richiesti || !raccolta.haGps())
            throw NonTrovato("no lap is closed: there is none in " + raccolta.canaleGiri());
        dillo("there is no lap in " + raccolta.canaleGiri());
        return std::nullopt;
    }
    dillo("laps from " + raccolta.canaleGiri() +
          (raccolta.soloNumeri() ? ", which has no times: they are exact to a record" : ""));
    return lettura;
}

}  // namespace

void dillo(const std::string& testo) {
    std::fprintf(stderr, "kelfun laps: %s\n", mostrabile(testo).c_str());
}

Lettura leggiCattura(const std::string& file, const ScelteGiri& scelte) {
    Ingresso ingresso(file);
    ingresso.mostraAvanzamento(false);
    LettoreSoluzioni lettore(
        [&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); });
    OrologioGps orologio;
    std::vector<Fix> fix;
    while (lettore.prossima())
        fix.push_back(fixDi(lettore.soluzione(), orologio));
    if (fix.empty()) {
        const std::string messaggi = elencoMessaggi(lettore.conteggi());
        throw NonTrovato("there is no NAV-SOL and no NAV-PVT message in it" +
                         (messaggi.empty() ? "" : "; messages by class and id: " + messaggi));
    }
    Lettura lettura = giriGps(std::move(fix), scelte);
    lettura.origini = originiDellaCattura(lettura.guida);
    return lettura;
}

Lettura leggiRegistrazione(const std::string& file_canali, const std::string& file_campioni, Disposizione disposizione,
                           const SceltaTempo& scelta_tempo, const IFunzioni& catalogo, const ScelteGiri& scelte) {
    TempoRecord tempo(scelta_tempo);
    const std::vector<s_kel_canale> canali = leggiFileCanali(file_canali, disposizione);
    FileCampioni campioni(file_campioni, dimensioneRecord(canali), tempo);
    campioni.annuncia("laps");
    campioni.ingresso().mostraAvanzamento(false);
    RaccoltaRecord raccolta(catalogo, canali);
    while (campioni.lettore().prossimo())
        raccolta.aggiungi(tempo.noto() ? std::optional(tempo.secondi(campioni.lettore())) : std::nullopt,
                          campioni.lettore().campioni());
    campioni.verificaFine();

    const bool linea = scelte.linea.has_value();  // whoever gives a line wants the times at this line
    if (scelte.fonte == FonteGiri::registratore || (scelte.fonte == FonteGiri::qualunque && !linea))
        if (auto lettura = giriRegistrati(raccolta, scelte.fonte == FonteGiri::registratore))
            return std::move(*lettura);
    if (!raccolta.haGps())
        throw NonTrovato(scelte.fonte == FonteGiri::gps || linea
                             ? "there is no GPS packet in the recording"
                             : "there are no lap packets, no lap channels and no GPS packet in the recording");
    Lettura lettura = giriGps(raccolta.fixDelRicevitore(), scelte);
    for (const std::size_t primo : lettura.guida.sessioni())
        lettura.origini.push_back(raccolta.inizioDelRicevitore(primo));
    return lettura;
}

}  // namespace kel::strumento
