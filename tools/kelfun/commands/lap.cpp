// kelfun lap: lap times to text and back.
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

#include "CLaptimeAndStrings.h"
#include "cli/avvisi.h"
#include "cli/elementi.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/tempo_scritto.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> tempi;
    std::string numero;
    bool testo = false;
    bool righe = false;
    Avvisi avvisi;
    SceltaForma forma;
    std::string codice;
};

constexpr int MINIMO = std::numeric_limits<int>::min();
constexpr int MASSIMO = std::numeric_limits<int>::max();

constexpr std::size_t LARGHEZZA_TESTO = 14;  // of the texts of lines, whose table grows

// A time, read or to be written. `testo` is the text as it was given, with --lines a line of a lap list.
struct Tempo {
    enum class Genere { scritto, letto, riga } genere;
    std::string testo;
    int lap = 0;
    int millisecondi = 0;
    std::optional<std::string> avviso;
};

Tempo leggi_riga(const std::string& riga) {
    int numero = 0;
    int tempo = 0;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(riga, numero, tempo);
    } catch (const std::out_of_range&) {
        throw ErroreUso("'" + riga +
                        "' is no line of a lap list; accepted: 6 characters or more, such as '  7 - 1:23.456'");
    }
    return {Tempo::Genere::riga, riga, numero, tempo, avviso_riga(riga, numero, tempo)};
}

Tempo leggi_testo(const std::string& testo) {
    const int tempo = CLaptimeAndStrings::StringaToLapTime(testo);
    return {Tempo::Genere::letto, testo, 0, tempo, avviso_lettura(testo, tempo)};
}

Tempo leggi(const Argomenti& argomenti, const std::string& testo) {
    if (argomenti.righe)
        return leggi_riga(testo);
    if (argomenti.testo)
        return leggi_testo(testo);
    if (const auto letto = leggi_intero(testo, MINIMO, MASSIMO)) {
        const auto millisecondi = static_cast<int>(*letto);
        return {Tempo::Genere::scritto, testo, 0, millisecondi, avviso_scrittura(millisecondi)};
    }
    if (testo.find_first_of(":.") == std::string::npos)
        throw ErroreUso("'" + testo + "' is no lap time; " + proposta_tempo(testo) +
                        "accepted: milliseconds (83456) of 32 bits, or a text (1:23.456); --text "
                        "reads anything");
    return leggi_testo(testo);
}

// With a number the text is a line of a lap list, and the next one has the number after it.
int prossimo(std::optional<int>& numero) {
    const int questo = *numero;
    *numero += questo < MASSIMO ? 1 : 0;
    return questo;
}

std::vector<Cella> riga(const Tempo& tempo, std::optional<int>& numero) {
    const Cella millisecondi = Cella::intero(tempo.millisecondi);
    if (tempo.genere == Tempo::Genere::riga)
        return {Cella::citata(tempo.testo), Cella::intero(tempo.lap), millisecondi};
    if (tempo.genere == Tempo::Genere::letto)
        return {Cella::citata(tempo.testo), Cella(), millisecondi};
    if (!numero)
        return {Cella::citata(CLaptimeAndStrings::LapTimeToStringa(tempo.millisecondi)), Cella(), millisecondi};
    const int questo = prossimo(numero);
    return {Cella::citata(CLaptimeAndStrings::LapNumAndTimeToStringa(questo, tempo.millisecondi)),
            Cella::intero(questo), millisecondi};
}

// The smallest number is no literal: minus is an operation on one too large.
std::string intero_per_programma(int valore) {
    return valore == MINIMO ? "-2147483647 - 1" : std::to_string(valore);
}

// Only C++ has lap times as texts.
nlohmann::ordered_json voce_per_programma(const Tempo& tempo, std::optional<int>& numero) {
    if (tempo.genere != Tempo::Genere::scritto)
        return {{tempo.genere == Tempo::Genere::riga ? "riga" : "letto", true},
                {"testo", testo_per_programma(tempo.testo)}};
    const std::string ms = intero_per_programma(tempo.millisecondi);
    if (!numero)
        return {{"scritto", true}, {"ms", ms}};
    return {{"elencato", true}, {"ms", ms}, {"numero", intero_per_programma(prossimo(numero))}};
}

std::optional<int> leggi_numero(const Argomenti& argomenti) {
    std::optional<int> numero;
    if (!argomenti.numero.empty()) {
        const auto letto = leggi_intero(argomenti.numero, MINIMO, MASSIMO);
        if (!letto)
            throw ErroreUso("--number '" + argomenti.numero +
                            "' is no lap number; accepted: a whole number of 32 bits");
        numero = static_cast<int>(*letto);
    }
    if (argomenti.righe + argomenti.testo + numero.has_value() > 1)
        throw ErroreUso("--lines, --text and --number exclude each other; accepted: one of them");
    return numero;
}

void esegui(Argomenti& argomenti) {
    std::optional<int> numero = leggi_numero(argomenti);
    Elementi elementi("lap", argomenti.tempi);
    Documento documento(stdout, argomenti.forma.forma());
    nlohmann::ordered_json voci = nlohmann::ordered_json::array();
    std::vector<std::optional<std::string>> sospesi;  // printed when the program has been printed
    const bool con_codice = !argomenti.codice.empty();
    const bool risposto = elementi.rispondi(
        [&](const std::string& testo) {
            Tempo tempo = leggi(argomenti, testo);
            argomenti.avvisi.pretendi(tempo.avviso);
            return tempo;
        },
        [&] {
            if (!con_codice)
                documento.inizia("laps", "",
                                 {{"text", "TEXT", Lato::sinistra, LARGHEZZA_TESTO},
                                  {"lap", "LAP", Lato::destra},
                                  {"milliseconds", "MILLISECONDS", Lato::destra}},
                                 elementi.con_righe());
        },
        [&](const Tempo& tempo) {
            if (con_codice) {
                voci.push_back(voce_per_programma(tempo, numero));
                sospesi.push_back(tempo.avviso);
                return;
            }
            argomenti.avvisi.di(tempo.avviso);
            documento.riga(riga(tempo, numero));
        });
    if (!risposto || (con_codice && voci.empty()))
        throw ErroreUso("there is no lap time; accepted: TIME..., or - and a time on each line of standard input");
    if (con_codice)
        stampa_programma(argomenti.codice, "lap", "Lap times to text and back",
                         {{"voci", voci}, {"con_righe", argomenti.righe}});
    else
        documento.fine();
    for (const auto& avviso : sospesi)
        argomenti.avvisi.di(avviso);
    elementi.fine();
}

}  // namespace

void aggiungi_lap(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "lap", "Lap times to text and back");
    comando
        .opzione("TIME", argomenti->tempi, "Milliseconds (83456), texts (1:23.456), or - for lines of standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("--number", argomenti->numero, "Write lines of a lap list, numbered from N on").valore("N");
    comando.bandiera("--lines", argomenti->righe, "Read lines of a lap list: '  7 - 1:23.456'");
    comando.bandiera("--text", argomenti->testo, "Read everything as a text, even if it looks like milliseconds");
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"laps"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi(
        "A text with a point is read as minutes, seconds and a number of thousandths: 1:23.4 is 83004 ms. A text\n"
        "without a point is read as hours, minutes and seconds. If you probably meant another time, a line on "
        "standard\n"
        "error says so.",
        "kelfun lap 83456 3723000", "kelfun lap 1:23.456 1:02:03 --json", "kelfun lap --lines '  7 - 1:23.456'"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
