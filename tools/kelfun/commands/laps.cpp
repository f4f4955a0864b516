// kelfun laps: the laps of a recording or a capture.
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "captures/file_campioni.h"
#include "captures/file_canali.h"
#include "captures/lettore_soluzioni.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/fid_gps.h"
#include "domain/identificatore.h"
#include "io/ingresso.h"
#include "laps/giri.h"
#include "laps/linea.h"
#include "laps/raccolta.h"
#include "laps/ricerca_linea.h"
#include "laps/tabella_giri.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> file;
    std::string fonte = "auto";
    std::string linea;
    std::vector<std::string> intermedi;
    std::string minimo = "10";
    std::string udm;
    SceltaTempo tempo;
    bool compatta = false;
    SceltaForma forma;
};

void di(const std::string& testo) {
    std::fprintf(stderr, "kelfun laps: %s\n", testo.c_str());
}

/// Laps and the fixes that they were driven with.
struct Lettura {
    Guida guida{{}};
    std::vector<Giro> giri;
    double origine = 0;  // of the times that are shown, s
};

struct Scelte {
    std::optional<Linea> linea;
    std::vector<std::string> intermedi;
    double minimo = 0;
    std::string udm;
    double fattore = 1;  // from m/s
};

Scelte leggiScelte(const Argomenti& argomenti, IFunzioni& catalogo) {
    Scelte scelte;
    if (!argomenti.linea.empty()) {
        scelte.linea = leggiLinea(argomenti.linea);
        if (!scelte.linea)
            throw ErroreUso("--line '" + argomenti.linea +
                            "' is no line; accepted: LAT,LON,HEADING in degrees, and a width in metres behind them");
    }
    for (const std::string& uno : argomenti.intermedi) {
        const auto metri = leggiFloat(uno);
        if (!leggiLinea(uno) && !(metri && *metri > 0))
            throw ErroreUso("--split '" + uno +
                            "' is no split; accepted: LAT,LON,HEADING in degrees, or metres behind the finish line");
    }
    scelte.intermedi = argomenti.intermedi;
    const auto minimo = leggiFloat(argomenti.minimo);
    if (!minimo || *minimo < 1 || *minimo > 3600)
        throw ErroreUso("--min-lap '" + argomenti.minimo + "' is no time; accepted: seconds, 1 to 3600");
    scelte.minimo = static_cast<double>(*minimo);
    scelte.udm = leggiUdm(catalogo, GPS_VELOCITA, argomenti.udm);
    scelte.fattore = daMetriAlSecondo(catalogo, scelte.udm);
    return scelte;
}

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
Lettura giriGps(std::vector<Fix> fix, double origine, const Scelte& scelte) {
    Lettura lettura{Guida(std::move(fix)), {}, origine};
    const Guida& guida = lettura.guida;
    if (guida.validi().empty())
        throw NonTrovato("no lap is closed: none of the " + std::to_string(guida.fix().size()) +
                         " solutions has a fix in space");
    std::optional<Linea> linea = scelte.linea;
    std::string trovata;
    if (!linea) {
        const auto cercata = cercaLinea(guida, scelte.minimo);
        if (!cercata)
            throw NonTrovato("no lap is closed: no place is passed twice in the same direction at speed");
        linea = cercata->linea;
        trovata = "; finish line found, passed " + std::to_string(cercata->volte) + " times at " +
                  intera(cercata->velocita * scelte.fattore) + " " + scelte.udm + " on average: --line " +
                  testo(*linea);
    }
    const Passaggi passati = passaggi(guida, *linea, scelte.minimo);
    lettura.giri = giri(guida, passati);
    if (std::none_of(lettura.giri.begin(), lettura.giri.end(), [](const Giro& giro) { return giro.chiuso(); }))
        throw NonTrovato("no lap is closed: " + maiChiuso(passati, *linea));
    di("laps from GPS" + trovata);
    if (passati.scartati != 0)
        di(std::to_string(passati.scartati) + " passages of the line less than " + intera(scelte.minimo) +
           " s after another are left out (--min-lap)");
    return lettura;
}

Lettura leggiCattura(const std::string& file, const Scelte& scelte) {
    Ingresso ingresso(file);
    ingresso.mostraAvanzamento(false);
    LettoreSoluzioni lettore(
        [&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); });
    OrologioGps orologio;
    std::vector<Fix> fix;
    while (lettore.prossima())
        fix.push_back(orologio.fix(lettore.soluzione()));
    if (fix.empty()) {
        const std::string messaggi = elencoMessaggi(lettore.conteggi());
        throw NonTrovato("there is no NAV-SOL and no NAV-PVT message in it" +
                         (messaggi.empty() ? "" : "; messages by class and id: " + messaggi));
    }
    const double origine = fix.front().tempo;
    return giriGps(std::move(fix), origine, scelte);
}

// The laps that the logger has timed; none where it has timed none.
std::optional<Lettura> giriRegistrati(RaccoltaRecord& raccolta, bool richiesti) {
    if (raccolta.canaleGiri().empty()) {
        if (richiesti)
            throw NonTrovato("there are no lap packets and no lap channels in the recording");
        return std::nullopt;
    }
    Lettura lettura{Guida(raccolta.fixDeiRecord()), {}, 0};
    lettura.giri = raccolta.giriDelRegistratore(lettura.guida);
    if (lettura.giri.empty()) {
        if (richiesti || !raccolta.haGps())
            throw NonTrovato("no lap is closed: there is none in " + raccolta.canaleGiri());
        di("there is no lap in " + raccolta.canaleGiri());
        return std::nullopt;
    }
    di("laps from " + raccolta.canaleGiri() +
       (raccolta.soloNumeri() ? ", which has no times: they are exact to a record" : ""));
    return lettura;
}

Lettura leggiRegistrazione(const Argomenti& argomenti, const IFunzioni& catalogo, const Scelte& scelte) {
    if (argomenti.file[0] == "-" && argomenti.file[1] == "-")
        throw ErroreUso("standard input cannot be both files; accepted: - for one of CHANNELS and SAMPLES");
    TempoRecord tempo(argomenti.tempo);
    const std::vector<s_kel_canale> canali =
        leggiFileCanali(argomenti.file[0], argomenti.compatta ? Disposizione::compatta : Disposizione::dichiarata);
    FileCampioni campioni("laps", argomenti.file[1], dimensioneRecord(canali), tempo);
    campioni.ingresso().mostraAvanzamento(false);
    RaccoltaRecord raccolta(catalogo, canali);
    while (campioni.lettore().prossimo())
        raccolta.aggiungi(tempo.noto() ? std::optional(tempo.secondi(campioni.lettore())) : std::nullopt,
                          campioni.lettore().campioni());
    campioni.verificaFine();

    const bool linea = scelte.linea.has_value();  // nobody gives a line to be told what the logger has timed
    if (argomenti.fonte == "packets" || (argomenti.fonte == "auto" && !linea))
        if (auto lettura = giriRegistrati(raccolta, argomenti.fonte == "packets"))
            return std::move(*lettura);
    if (!raccolta.haGps())
        throw NonTrovato(argomenti.fonte == "gps" || linea
                             ? "there is no GPS packet in the recording"
                             : "there are no lap packets, no lap channels and no GPS packet in the recording");
    return giriGps(raccolta.fixDelRicevitore(), raccolta.inizioDelRicevitore(), scelte);
}

bool passataInUnGiro(const Lettura& lettura, const Linea& linea) {
    const Passaggi passati = passaggi(lettura.guida, linea, 1);
    return std::any_of(lettura.giri.begin(), lettura.giri.end(), [&passati](const Giro& giro) {
        return giro.chiuso() && std::any_of(passati.avanti.begin(), passati.avanti.end(), [&giro](const Passaggio& p) {
                   return p.tempo > giro.inizio.value_or(0) && p.tempo < giro.fine.value_or(0);
               });
    });
}

// Splits as lines: those given in metres lie where the best lap has driven so far, or the first where none counts.
std::vector<Linea> lineeIntermedie(const Lettura& lettura, const Scelte& scelte) {
    std::vector<Linea> linee;
    const Giro* campione = migliore(lettura.giri);
    for (const Giro& giro : lettura.giri)
        if (campione == nullptr && giro.chiuso())
            campione = &giro;
    if (!scelte.intermedi.empty() && lettura.guida.validi().empty())
        throw NonTrovato("splits take positions, and there are none in it");
    for (const std::string& uno : scelte.intermedi) {
        if (const auto linea = leggiLinea(uno)) {
            linee.push_back(*linea);
            if (!passataInUnGiro(lettura, *linea))
                di("no lap passes --split " + testo(*linea));
            continue;
        }
        const auto linea = lineaADistanza(*campione, lettura.guida, static_cast<double>(*leggiFloat(uno)));
        if (!linea)
            throw NonTrovato("--split " + uno + " is nowhere: lap " + std::to_string(campione->numero) + " has " +
                             intera(campione->metri.value_or(0)) + " m");
        di("--split " + uno + " is --split " + testo(*linea));
        linee.push_back(*linea);
    }
    return linee;
}

void esegui(const Argomenti& argomenti) {
    if (argomenti.file.size() > 2)
        throw ErroreUso(std::to_string(argomenti.file.size()) +
                        " files are too many; accepted: a capture, or CHANNELS and SAMPLES");
    if (argomenti.fonte != "auto" && argomenti.fonte != "gps" && argomenti.fonte != "packets")
        throw ErroreUso("there is no --from '" + argomenti.fonte + "'; accepted: auto, packets, gps");
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const Scelte scelte = leggiScelte(argomenti, *catalogo);
    const bool cattura = argomenti.file.size() == 1;
    if (cattura && argomenti.fonte == "packets")
        throw ErroreUso("--from packets takes a recording; accepted: CHANNELS and SAMPLES");
    Lettura lettura =
        cattura ? leggiCattura(argomenti.file[0], scelte) : leggiRegistrazione(argomenti, *catalogo, scelte);
    misura(lettura.giri, lettura.guida);
    const std::vector<Linea> intermedi = lineeIntermedie(lettura, scelte);
    dividi(lettura.giri, lettura.guida, intermedi);

    const Aspetto forma = argomenti.forma.forma();
    const TabellaGiri tabella(lettura.giri,
                              {scelte.udm, scelte.fattore, lettura.origine, forma.forma != Forma::tabella});
    Documento documento(stdout, forma);
    documento.inizia("laps", "", tabella.colonne());
    for (const Giro& giro : lettura.giri)
        documento.riga(tabella.celle(giro));
    documento.fine();
}

}  // namespace

void aggiungiLaps(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "laps", "Laps of a recording or a GPS capture");
    comando
        .opzione("FILE", argomenti->file,
                 "A u-blox capture, or CHANNELS and SAMPLES of a recording; - for standard input")
        .valore("")
        .obbligatoria();
    comando
        .opzione("--from", argomenti->fonte,
                 "Laps of a recording: packets (the logger's), gps, or auto (default): the first of them that there is")
        .valore("{auto,packets,gps}");
    comando
        .opzione("--line", argomenti->linea,
                 "Finish line by GPS: its middle, the heading in which it is passed, and its width in m (default 30)")
        .valore("LAT,LON,HEADING[,WIDTH]");
    comando
        .opzione("--split", argomenti->intermedi,
                 "A line that ends a sector, like --line, or metres behind the finish line; may be repeated")
        .valore("LINE|METRES")
        .ripetibile();
    comando.opzione("--min-lap", argomenti->minimo, "A lap by GPS takes so many seconds at least (default 10)")
        .valore("SECONDS");
    comando.opzione("--unit", argomenti->udm, "Unit of the speeds: km/h (default) or mph").valore("UNIT");
    aggiungiTempo(comando, argomenti->tempo);
    comando.bandiera("--packed", argomenti->compatta,
                     "Samples lie one behind the other, as long as their types, whatever the channels say");
    aggiungiForma(comando, argomenti->forma);
    comando.note(esempi(
        "Without --line the finish line is where the track passes most often at speed; it is printed as --line takes "
        "it.\n"
        "Laps driven out or in, without a fix, with a stop or past the line the wrong way are noted and do not count "
        "for\n"
        "the best.",
        "kelfun laps session.channels session.samples", "kelfun laps capture.ubx --split 350 --split 700",
        "kelfun laps session.channels session.samples --from gps --csv"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
