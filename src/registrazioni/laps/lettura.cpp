#include "laps/lettura.h"

#include <algorithm>
#include <utility>

#include "common/errore.h"
#include "common/numeri.h"
#include "laps/passaggi.h"
#include "laps/ricerca_linea.h"

namespace kel_registrazioni {

namespace {

std::string intera(double valore) {
    return con_decimali(valore, 0);
}

// Why a line closes no lap.
std::string mai_chiuso(const Passaggi& passati, const Linea& linea) {
    const std::string quanto = passati.avanti.empty()       ? "never passes"
                               : passati.avanti.size() == 1 ? "passes once, not twice,"
                                                            : "passes no more than once a session";
    std::string testo_linea = "the track " + quanto + " the line " + testo(linea);
    if (!passati.indietro.empty())
        testo_linea += "; the other way it does, " + contati(passati.indietro.size(), "time") +
                       ": the heading is the third number";
    return testo_linea;
}

// The laps of fixes; what is missing for them is an error.
Lettura giri_gps(std::vector<Fix> fix, const ScelteGiri& scelte, const Parole& parole, const Dillo& dillo) {
    Lettura lettura{Guida(std::move(fix)), {}, {}};
    const Guida& guida = lettura.guida;
    if (guida.validi().empty())
        throw Errore("no lap is closed: none of the " + std::to_string(guida.fix().size()) +
                     " solutions has a fix in space");
    std::optional<Linea> linea = scelte.linea;
    std::string trovata;
    if (!linea) {
        const auto cercata = cerca_linea(guida, scelte.minimo);
        if (!cercata)
            throw Errore("no lap is closed: no place is passed twice in the same direction at speed, " +
                         breve(scelte.minimo) + " s apart or more (" + parole.minimo + ")");
        linea = cercata->linea;
        trovata = "; finish line found, passed " + std::to_string(cercata->volte) + " times at " +
                  intera(cercata->velocita * scelte.fattore) + " " + scelte.udm + " on average: " + parole.linea + " " +
                  testo(*linea);
    }
    const Passaggi passati = passaggi(guida, *linea, scelte.minimo);
    lettura.giri = giri(guida, passati);
    if (std::none_of(lettura.giri.begin(), lettura.giri.end(), [](const Giro& giro) { return giro.chiuso(); }))
        throw Errore("no lap is closed: " + mai_chiuso(passati, *linea));
    dillo("laps from GPS" + trovata);
    if (passati.scartati != 0)
        dillo(contati(passati.scartati, "passage") + " of the line less than " + breve(scelte.minimo) +
              " s after another " + (passati.scartati == 1 ? "is" : "are") + " left out (" + parole.minimo + ")");
    return lettura;
}

// Over a pause the clock goes on; where time runs backwards it counts anew.
std::vector<double> origini_della_cattura(const Guida& guida) {
    std::vector<double> origini;
    for (const std::size_t primo : guida.sessioni()) {
        const double inizio = guida.fix()[primo].tempo;
        const bool avanti = primo > 0 && inizio > guida.fix()[primo - 1].tempo;
        origini.push_back(avanti ? origini.back() : inizio);
    }
    return origini;
}

// The laps that the logger has timed; none where it has timed none.
std::optional<Lettura> giri_registrati(const RaccoltaRecord& raccolta, bool richiesti, const Dillo& dillo) {
    if (raccolta.canale_giri().empty()) {
        if (richiesti)
            throw Errore("there are no lap packets and no lap channels in the recording");
        return std::nullopt;
    }
    Lettura lettura{Guida(raccolta.fix_dei_record()), {}, {}};
    lettura.origini.assign(std::max<std::size_t>(1, lettura.guida.sessioni().size()), 0);
    lettura.giri = raccolta.giri_del_registratore(lettura.guida);
    if (lettura.giri.empty()) {
        if (richiesti || !raccolta.ha_gps())
            throw Errore("no lap is closed: there is none in " + raccolta.canale_giri());
        dillo("there is no lap in " + raccolta.canale_giri());
        return std::nullopt;
    }
    dillo("laps from " + raccolta.canale_giri() +
          (raccolta.solo_numeri() ? ", which has no times: they are exact to a record" : ""));
    return lettura;
}

bool passata_in_un_giro(const Lettura& lettura, const Linea& linea) {
    const Passaggi passati = passaggi(lettura.guida, linea, 1);
    return std::any_of(lettura.giri.begin(), lettura.giri.end(), [&passati](const Giro& giro) {
        return giro.chiuso() && std::any_of(passati.avanti.begin(), passati.avanti.end(), [&giro](const Passaggio& p) {
                   return p.tempo > giro.inizio.value_or(0) && p.tempo < giro.fine.value_or(0);
               });
    });
}

// The line where the best lap has driven so far, or the first where none counts. Another lap helps where that one had no fix:
// their ways differ by the width of the track.
Linea linea_ai_metri(const Lettura& lettura, double metri, const std::string& detto, const std::string& nome,
                     const Dillo& dillo) {
    const Giro* campione = migliore(lettura.giri);
    for (const Giro& giro : lettura.giri)
        if (campione == nullptr && giro.chiuso())
            campione = &giro;
    if (metri >= campione->metri.value_or(0))
        throw Errore(detto + " is nowhere: lap " + std::to_string(campione->numero) + " has " +
                     con_decimali(campione->metri.value_or(0), 0) + " m");
    if (const auto linea = linea_a_distanza(*campione, lettura.guida, metri)) {
        dillo(detto + " is " + nome + " " + testo(*linea));
        return *linea;
    }
    for (const Giro& giro : lettura.giri)
        if (const auto linea = giro.chiuso() ? linea_a_distanza(giro, lettura.guida, metri) : std::nullopt) {
            std::string frase = detto;
            frase.append(" is ").append(nome).append(" ").append(testo(*linea));
            frase.append(", by lap ").append(std::to_string(giro.numero)).append(", as lap ");
            dillo(frase.append(std::to_string(campione->numero)).append(" has no fix there"));
            return *linea;
        }
    throw Errore(detto + " is nowhere: no lap has a fix there");
}

}  // namespace

Lettura giri_della_cattura(std::vector<Fix> fix, const ScelteGiri& scelte, const Parole& parole, const Dillo& dillo) {
    Lettura lettura = giri_gps(std::move(fix), scelte, parole, dillo);
    lettura.origini = origini_della_cattura(lettura.guida);
    return lettura;
}

Lettura giri_della_registrazione(const RaccoltaRecord& raccolta, const ScelteGiri& scelte, const Parole& parole,
                                 const Dillo& dillo) {
    const bool linea = scelte.linea.has_value();  // whoever gives a line wants the times at this line
    if (scelte.fonte == FonteGiri::registratore || (scelte.fonte == FonteGiri::qualunque && !linea))
        if (auto lettura = giri_registrati(raccolta, scelte.fonte == FonteGiri::registratore, dillo))
            return std::move(*lettura);
    if (!raccolta.ha_gps())
        throw Errore(scelte.fonte == FonteGiri::gps || linea
                         ? "there is no GPS packet in the recording"
                         : "there are no lap packets, no lap channels and no GPS packet in the recording");
    Lettura lettura = giri_gps(raccolta.fix_del_ricevitore(), scelte, parole, dillo);
    for (const std::size_t primo : lettura.guida.sessioni())
        lettura.origini.push_back(raccolta.inizio_del_ricevitore(primo));
    return lettura;
}

std::vector<Linea> linee_intermedie(const Lettura& lettura, std::span<const Intermedio> intermedi, const Parole& parole,
                                    const Dillo& dillo) {
    std::vector<Linea> linee;
    if (!intermedi.empty() && lettura.guida.validi().empty())
        throw Errore("splits take positions, and there are none in it");
    const std::string nome = parole.intermedio;
    for (const Intermedio& uno : intermedi) {
        if (const auto* linea = std::get_if<Linea>(&uno)) {
            linee.push_back(*linea);
            if (!passata_in_un_giro(lettura, *linea))
                dillo("no lap passes " + nome + " " + testo(*linea));
            continue;
        }
        const auto& [metri, detto] = std::get<Metri>(uno);
        std::string intero = nome;
        intero.append(" ").append(detto);
        linee.push_back(linea_ai_metri(lettura, metri, intero, nome, dillo));
    }
    return linee;
}

void di_sessioni(const Guida& guida, const Dillo& dillo) {
    if (const std::size_t sessioni = guida.sessioni().size(); sessioni > 1)
        dillo(std::to_string(sessioni) +
              " sessions, as time runs backwards or on by more than ten minutes: no lap "
              "reaches from one into the next");
}

}  // namespace kel_registrazioni
