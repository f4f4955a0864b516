// kelfun laps: the laps of a recording or a capture.
#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

#include "captures/file_campioni.h"
#include "captures/tempo_record.h"
#include "cli/compatta.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "domain/registrazioni.h"
#include "laps/lettura_giri.h"
#include "laps/tabella_giri.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_giri.h"
#include "plots/opzioni_grafico.h"
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
    std::vector<std::string> giri;  // to be drawn
    SceltaGrafico grafico;
    SceltaForma forma;
};

/// What a user wants, and the memory of it.
struct Scelte {
    s_kel_scelte_giri scelte{};
    s_kel_linea linea{};
    std::vector<s_kel_intermedio> intermedi;
    std::string udm;
    double fattore = 1;  // from m/s
};

void leggi_scelte(const Argomenti& argomenti, IFunzioni& catalogo, Scelte& lette) {
    s_kel_scelte_giri& scelte = lette.scelte;
    scelte.parole = &PAROLE;
    if (argomenti.fonte == "packets")
        scelte.fonte = KEL_GIRI_REGISTRATORE;
    else if (argomenti.fonte == "gps")
        scelte.fonte = KEL_GIRI_GPS;
    if (!argomenti.linea.empty()) {
        if (kelGiriLinea(argomenti.linea.c_str(), &lette.linea) == 0)
            throw ErroreUso("--line '" + argomenti.linea +
                            "' is no line; accepted: LAT,LON,HEADING in degrees, and a width in metres behind them");
        scelte.linea = &lette.linea;
    }
    for (const std::string& uno : argomenti.intermedi) {
        const auto metri = leggi_float(uno);
        s_kel_intermedio intermedio{0, {}, uno.c_str()};
        if (kelGiriLinea(uno.c_str(), &intermedio.linea) == 0) {
            if (!metri || *metri <= 0)
                throw ErroreUso(
                    "--split '" + uno +
                    "' is no split; accepted: LAT,LON,HEADING in degrees, or metres behind the finish line");
            intermedio.metri = static_cast<double>(*metri);
        }
        lette.intermedi.push_back(intermedio);
    }
    scelte.intermedi = lette.intermedi.data();
    scelte.num_intermedi = static_cast<unsigned>(lette.intermedi.size());
    const auto minimo = leggi_float(argomenti.minimo);
    if (!minimo || *minimo < 1 || *minimo > 3600)
        throw ErroreUso("--min-lap '" + argomenti.minimo + "' is no time; accepted: seconds, 1 to 3600");
    scelte.minimo = static_cast<double>(*minimo);
    lette.udm = leggi_udm(catalogo, KEL_FID_GPS_VELOCITA, argomenti.udm);
    lette.fattore = kelRegFattoreVelocita(lette.udm.c_str());
    scelte.udm = lette.udm.c_str();
}

bool chiuso(const s_kel_giro& giro) {
    return giro.ms >= 0;
}

std::int64_t numero_giro(const std::string& testo) {
    const auto numero = leggi_intero(testo, 0, std::numeric_limits<int>::max());
    if (!numero)
        throw ErroreUso("--lap '" + testo + "' is no lap; accepted: its number");
    return *numero;
}

const s_kel_giro* giro_numero(const Giri& giri, const std::string& testo) {
    const auto numero = numero_giro(testo);
    std::string chiusi;
    for (const s_kel_giro& giro : giri.tutti()) {
        if (chiuso(giro) && giro.numero == numero)
            return &giro;
        if (chiuso(giro))
            chiusi += (chiusi.empty() ? "" : ", ") + std::to_string(giro.numero);
    }
    throw NonTrovato("there is no closed lap " + testo + "; closed are " + chiusi);
}

// The laps asked for. Without any: the best lap and the last one that counts, or the second best if the best is the
// last.
std::vector<const s_kel_giro*> da_disegnare(const Giri& giri, const std::vector<std::string>& chiesti) {
    std::vector<const s_kel_giro*> scelti;
    scelti.reserve(chiesti.size());
    for (const std::string& uno : chiesti)
        scelti.push_back(giro_numero(giri, uno));
    if (!scelti.empty())
        return scelti;
    const s_kel_giro* primo = giri.migliore();
    const s_kel_giro* ultimo = nullptr;
    const s_kel_giro* secondo = nullptr;
    for (const s_kel_giro& giro : giri.tutti()) {
        if (!chiuso(giro) || (primo != nullptr && giro.stato != KEL_GIRO_BUONO))
            continue;
        ultimo = &giro;
        if (&giro != primo && (secondo == nullptr || giro.ms < secondo->ms))
            secondo = &giro;
    }
    if (primo == nullptr)
        return {ultimo};
    scelti = {primo};
    if (const s_kel_giro* altro = ultimo != primo ? ultimo : secondo)
        scelti.push_back(altro);
    return scelti;
}

void disegna(const DestinazioneGrafico& destinazione, const Argomenti& argomenti, const Giri& giri,
             const Scelte& scelte) {
    const std::vector<const s_kel_giro*> scelti = da_disegnare(giri, argomenti.giri);
    if (std::ranges::all_of(giri.tutti(), [](const s_kel_giro& giro) { return std::isnan(giro.inizio); }))
        throw NonTrovato(
            "laps are drawn over their distance, and the records have no times to tell it by; --rate HZ "
            "gives them");
    const s_kel_giro* riferimento = giri.migliore();
    if (riferimento == nullptr)
        riferimento = scelti.front();
    if (std::none_of(scelti.begin(), scelti.end(), [](const s_kel_giro* giro) { return giro->metri > 0; }) ||
        !(riferimento->metri > 0))
        throw NonTrovato("laps are drawn over their distance, and there is no speed in the recording to tell it");
    Grafico grafico =
        grafico_giri(giri, scelti, *riferimento, scelte.udm, scelte.fattore, argomenti.grafico.file != "-");
    grafico.titolo = titolo_grafico(argomenti.file.back());
    destinazione.disegna(grafico, {}, !argomenti.giri.empty());
}

Giri leggi_registrazione(const Argomenti& argomenti) {
    s_kel_apertura apertura = apertura_di(argomenti.tempo);
    apertura.compatta = argomenti.compatta ? 1 : 0;
    apertura.lunghezza = lunghezza_file(argomenti.file[1]);
    return {argomenti.file[0], argomenti.file[1], apertura};
}

void esegui(const Argomenti& argomenti) {
    if (argomenti.file.size() > 2)
        throw ErroreUso(std::to_string(argomenti.file.size()) +
                        " files are too many; accepted: a capture, or CHANNELS and SAMPLES");
    if (!argomenti.giri.empty() && !argomenti.grafico.file)
        throw ErroreUso("--lap is for a plot, a table has all laps; accepted: --plot FILE with it");
    for (const std::string& uno : argomenti.giri)
        numero_giro(uno);
    verifica_senza_grafico(argomenti.grafico);
    std::optional<DestinazioneGrafico> destinazione;
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Scelte scelte;
    leggi_scelte(argomenti, *catalogo, scelte);
    const bool cattura = argomenti.file.size() == 1;
    if (cattura && argomenti.fonte == "packets")
        throw ErroreUso("--source packets takes a recording; accepted: CHANNELS and SAMPLES");
    if (!cattura && argomenti.file[0] == "-" && argomenti.file[1] == "-")
        throw ErroreUso("standard input cannot be both files; accepted: - for one of CHANNELS and SAMPLES");
    Giri giri = cattura ? Giri(argomenti.file[0]) : leggi_registrazione(argomenti);
    giri.calcola(scelte.scelte);
    if (destinazione)
        return disegna(*destinazione, argomenti, giri, scelte);

    const Aspetto forma = argomenti.forma.forma();
    const TabellaGiri tabella(giri.tutti(), {scelte.udm, scelte.fattore, forma.forma != Forma::tabella});
    Documento documento(stdout, forma);
    documento.inizia("laps", "", tabella.colonne());
    for (const s_kel_giro& giro : giri.tutti())
        documento.riga(tabella.celle(giro));
    documento.fine();
}

}  // namespace

void aggiungi_laps(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "laps", "Laps of a recording or a GPS capture");
    comando
        .opzione("FILE", argomenti->file,
                 "A u-blox capture, or CHANNELS and SAMPLES of a recording; - for standard input")
        .valore("")
        .obbligatoria();
    comando
        .opzione(
            "--source", argomenti->fonte,
            "Whose laps of a recording: packets (the logger's), gps, or auto (default; the logger's if it has any)")
        .scelta({"auto", "packets", "gps"});
    comando
        .opzione("--line", argomenti->linea,
                 "Finish line by GPS: its middle, the direction in which it is passed in degrees, its width in m "
                 "(default 30)")
        .valore("LAT,LON,HEADING[,WIDTH]");
    comando
        .opzione("--split", argomenti->intermedi,
                 "End of a sector: a line like --line, or metres behind the finish line; may be repeated")
        .valore("LINE|METRES")
        .ripetibile();
    comando.opzione("--min-lap", argomenti->minimo, "Shortest lap by GPS in seconds (default 10)").valore("SECONDS");
    comando.opzione("--unit", argomenti->udm, "Unit of the speeds: km/h (default) or mph").valore("UNIT");
    aggiungi_tempo(comando, argomenti->tempo);
    aggiungi_compatta(comando, argomenti->compatta);
    aggiungi_forma(comando, argomenti->forma, {"laps"});
    aggiungi_grafico(comando, argomenti->grafico);
    comando
        .opzione("--lap", argomenti->giri,
                 "Draw this lap; may be repeated. Without it: the best lap, and the last or the next best")
        .valore("NUMBER")
        .ripetibile();
    comando.note(esempi(
        "Without --line the finish line is the place that the track passes most often at speed. It is printed in the\n"
        "form that --line takes. NOTE marks the best lap, and laps that do not count for it: the way out and in, laps\n"
        "that lost the fix, with a stop, or that passed the line in the wrong direction.",
        "kelfun laps session.channels session.samples", "kelfun laps capture.ubx --split 350 --split 700 --csv",
        "kelfun laps session.channels session.samples --source gps --plot -"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
