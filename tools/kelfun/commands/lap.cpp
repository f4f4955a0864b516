// kelfun lap: lap times to text and back.
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>

#include "CLaptimeAndStrings.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "io/righe.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> tempi;
    std::string numero;
    bool testo = false;
    bool righe = false;
    SceltaForma forma;
    std::string codice;
};

constexpr int MINIMO = std::numeric_limits<int>::min();
constexpr int MASSIMO = std::numeric_limits<int>::max();

using Riga = std::vector<Cella>;

Riga rigaElenco(const std::string& riga) {
    int numero = 0;
    int tempo = 0;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(riga, numero, tempo);
    } catch (const std::out_of_range&) {
        throw ErroreUso("'" + riga +
                        "' is no line of a lap list; accepted: 6 characters or more, such as '  7 - 1:23.456'");
    }
    return {Cella::citata(riga), Cella::intero(numero), Cella::intero(tempo)};
}

// With a number the text is a line of a lap list, and the next one has the number after it.
Riga rigaTempo(int millisecondi, std::optional<int>& numero) {
    if (!numero)
        return {Cella::citata(CLaptimeAndStrings::LapTimeToStringa(millisecondi)), Cella(),
                Cella::intero(millisecondi)};
    const int questo = *numero;
    *numero += questo < MASSIMO ? 1 : 0;
    return {Cella::citata(CLaptimeAndStrings::LapNumAndTimeToStringa(questo, millisecondi)), Cella::intero(questo),
            Cella::intero(millisecondi)};
}

Riga rigaTesto(const std::string& testo) {
    return {Cella::citata(testo), Cella(), Cella::intero(CLaptimeAndStrings::StringaToLapTime(testo))};
}

Riga riga(const Argomenti& argomenti, const std::string& testo, std::optional<int>& numero) {
    if (argomenti.righe)
        return rigaElenco(testo);
    if (argomenti.testo)
        return rigaTesto(testo);
    if (const auto millisecondi = leggiIntero(testo, MINIMO, MASSIMO))
        return rigaTempo(static_cast<int>(*millisecondi), numero);
    if (testo.find_first_of(":.") == std::string::npos)
        throw ErroreUso("'" + testo +
                        "' is no lap time; accepted: milliseconds (83456) of 32 bits, or a text (1:23.456); --text "
                        "reads anything");
    return rigaTesto(testo);
}

// Only C++ has lap times as texts.
nlohmann::ordered_json vocePerProgramma(const Argomenti& argomenti, const std::string& testo,
                                        std::optional<int>& numero) {
    const int prima = numero.value_or(0);
    riga(argomenti, testo, numero);  // refuses what is no lap time
    const auto millisecondi = leggiIntero(testo, MINIMO, MASSIMO);
    const bool scrive = !argomenti.righe && !argomenti.testo && millisecondi;
    if (!scrive)
        return {{argomenti.righe ? "riga" : "letto", true}, {"testo", testoPerProgramma(testo)}};
    // The smallest number is no literal: minus is an operation on one too large.
    const std::string ms = *millisecondi == MINIMO ? "-2147483647 - 1" : std::to_string(*millisecondi);
    if (!numero)
        return {{"scritto", true}, {"ms", ms}};
    const std::string questo = prima == MINIMO ? "-2147483647 - 1" : std::to_string(prima);
    return {{"elencato", true}, {"ms", ms}, {"numero", questo}};
}

std::vector<std::string> leggiTempi(const Argomenti& argomenti) {
    std::vector<std::string> testi = conRigheDiIngresso(argomenti.tempi);
    if (testi.empty())
        throw ErroreUso("there is no lap time; accepted: TIME..., or - and a time on each line of standard input");
    return testi;
}

void programma(const Argomenti& argomenti, std::optional<int> numero) {
    nlohmann::ordered_json voci = nlohmann::ordered_json::array();
    for (const std::string& testo : leggiTempi(argomenti))
        voci.push_back(vocePerProgramma(argomenti, testo, numero));
    stampaProgramma(argomenti.codice, "lap", "Lap times to text and back",
                    {{"voci", voci}, {"con_righe", argomenti.righe}});
}

void esegui(const Argomenti& argomenti) {
    std::optional<int> numero;
    if (!argomenti.numero.empty()) {
        const auto letto = leggiIntero(argomenti.numero, MINIMO, MASSIMO);
        if (!letto)
            throw ErroreUso("--number '" + argomenti.numero +
                            "' is no lap number; accepted: a whole number of 32 bits");
        numero = static_cast<int>(*letto);
    }
    if (argomenti.righe + argomenti.testo + numero.has_value() > 1)
        throw ErroreUso("--lines, --text and --number exclude each other; accepted: one of them");
    if (!argomenti.codice.empty())
        return programma(argomenti, numero);
    // Everything is read before anything is printed: a wrong argument leaves no half of a table.
    std::vector<Riga> righe;
    for (const std::string& testo : leggiTempi(argomenti))
        righe.push_back(riga(argomenti, testo, numero));
    Documento documento(stdout, argomenti.forma.forma());
    documento.inizia("laps", "",
                     {{"text", "TEXT"}, {"lap", "LAP", Lato::destra}, {"milliseconds", "MILLISECONDS", Lato::destra}});
    for (Riga& una : righe)
        documento.riga(std::move(una));
    documento.fine();
}

}  // namespace

void aggiungiLap(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "lap", "Lap times to text and back");
    comando
        .opzione("TIME", argomenti->tempi, "Milliseconds (83456), texts (1:23.456), or - for lines of standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("--number", argomenti->numero, "Write lines of a lap list, numbered from N on").valore("N");
    comando.bandiera("--lines", argomenti->righe, "Read lines of a lap list: '  7 - 1:23.456'");
    comando.bandiera("--text", argomenti->testo, "Read everything as a text, also what looks like milliseconds");
    aggiungiForma(comando, argomenti->forma);
    aggiungiCodice(comando, argomenti->codice);
    comando.note(esempi(
        "With a point a text is minutes, seconds and thousandths as written (1:23.4 is 83004 ms); without, it is "
        "hours,\n"
        "minutes and seconds.",
        "kelfun lap 83456 3723000", "kelfun lap 1:23.456 1:02:03 --json", "kelfun lap --lines '  7 - 1:23.456'"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
