// kelsim: simulates karts on small circuits, and writes what their GPS receivers and data loggers record.
#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdio>
#include <exception>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "centralina.h"
#include "flotta.h"
#include "messaggi.h"
#include "text/vicini.h"
#include "traguardo.h"
#include "uscita.h"

namespace {

// A whole number within bounds, or the reason why the argument is none.
CLI::Validator tra_numeri(unsigned long long minimo, unsigned long long massimo) {
    return CLI::Validator(
        [minimo, massimo](std::string& testo) -> std::string {
            unsigned long long valore = 0;
            const char* fine = testo.data() + testo.size();
            const auto letto = std::from_chars(testo.data(), fine, valore);
            if (!testo.empty() && letto.ec == std::errc() && letto.ptr == fine && valore >= minimo && valore <= massimo)
                return {};
            return "'" + testo + "' is no such number; accepted: " + std::to_string(minimo) + " to " +
                   std::to_string(massimo);
        },
        "");
}

struct Argomenti {
    std::string cattura;  // the receiver's; "" = none
    std::string canali;   // the logger's channels and samples; "" = none
    std::string campioni;
    std::string flotta;   // folder of a fleet; "" = none
    unsigned quante = 0;  // recordings of the fleet
    unsigned guaste = 0;  // damaged ones of these
    unsigned giri = 3;
    unsigned frequenza = 10;
    unsigned long long seme = 1;
    kel::simulatore::Soluzioni soluzioni = kel::simulatore::Soluzioni::sol;
};

const std::map<std::string, kel::simulatore::Soluzioni> SOLUZIONI = {
    {"sol", kel::simulatore::Soluzioni::sol},
    {"pvt", kel::simulatore::Soluzioni::pvt},
    {"both", kel::simulatore::Soluzioni::entrambe},
};

// The text below the options.
std::string note() {
    return "The kart starts before the finish line and stops recording behind it. Half-way through\n"
           "the middle lap the fix is lost for some seconds. The same arguments write the same bytes.\n\n"
           "Finish line:\n  " +
           testo(kel::simulatore::traguardo()) +
           "  LAT,LON,HEADING in degrees; the logger takes its lap times there\n\n"
           "Lateral acceleration (LatA) is positive in left-hand corners: the axes of ISO 8855.\n\n"
           "A fleet: DIR/KART/DATE/KART-HOUR.channels, .samples or .ubx; karts, circuits, days and faults differ.\n"
           "--laps is the most laps of a session, --rate that of most karts; every fourth has half of it.\n\n"
           "Each record of samples begins with its time, 32 bits, in ms; kelfun finds that by itself.\n"
           "Its GPS packet holds NAV-SOL, whatever --messages says: that is for the capture.\n\n"
           "Exit status: 0 success; 1 it cannot be written; 2 wrong usage\n\n"
           "Examples:\n  kelsim --messages both --laps 20 --rate 25 capture.ubx\n"
           "  kelsim --channels session.channels --samples session.samples --rate 5\n"
           "  kelsim --laps 2 --damaged 3 --fleet 100 season";
}

void dichiara(CLI::App& programma, Argomenti& argomenti) {
    programma.add_option("FILE", argomenti.cattura, "Capture to write, or - for standard output")->type_name("");
    auto* canali = programma.add_option("--channels", argomenti.canali, "Write the logger's channel records here");
    auto* campioni = programma.add_option("--samples", argomenti.campioni, "Write its records of samples here");
    canali->type_name("FILE")->needs(campioni);
    campioni->type_name("FILE")->needs(canali);
    // The number and the folder, as two words.
    programma
        .add_option_function<std::vector<std::string>>(
            "--fleet",
            [&argomenti](const std::vector<std::string>& parole) {
                std::string numero = parole.at(0);
                if (const std::string male = tra_numeri(1, 1000000)(numero); !male.empty())
                    throw CLI::ValidationError("--fleet: " + male);
                argomenti.quante = static_cast<unsigned>(std::stoul(numero));
                argomenti.flotta = parole.at(1);
            },
            "Write N recordings of a fleet of karts below DIR")
        ->type_size(2)
        ->expected(1)
        ->type_name("N DIR");
    programma.add_option("--damaged", argomenti.guaste, "As many of these are damaged (default 0)")
        ->check(tra_numeri(0, 1000000))
        ->type_name("N")
        ->needs("--fleet");
    programma
        .add_option_function<std::string>(
            "--messages",
            [&argomenti](const std::string& nome) {
                const auto trovate = SOLUZIONI.find(nome);
                if (trovate == SOLUZIONI.end())
                    throw CLI::ValidationError(
                        "--messages: '" + nome + "' is no such choice; " +
                        kel::strumento::forse(nome, std::vector<std::string>{"sol", "pvt", "both"}) +
                        "accepted: sol, pvt, both");
                argomenti.soluzioni = trovate->second;
            },
            "Solutions in the capture: NAV-SOL, NAV-PVT or both messages (default sol)")
        ->type_name("sol|pvt|both");
    programma.add_option("--laps", argomenti.giri, "Closed laps (default 3)")
        ->check(tra_numeri(1, 1000))
        ->type_name("N");
    programma.add_option("--rate", argomenti.frequenza, "Solutions and records a second (default 10)")
        ->check(tra_numeri(1, 25))
        ->type_name("N");
    programma.add_option("--seed", argomenti.seme, "Seed of the receiver's noise and the driver's pace (default 1)")
        ->check(tra_numeri(0, ~0ull))
        ->type_name("N");
    programma.set_version_flag("--version", "kelsim " KELSIM_VERSIONE)->description("Show the version and exit");
    programma.footer(note());
}

std::string senza_opzione(const std::string& nome, const std::vector<std::string>& opzioni) {
    return "there is no option '" + nome + "'; " + kel::strumento::forse(nome, opzioni);
}

// What is wrong with the command line. A mistyped option is reported first: what else the parser misses may be its
// consequence.
std::string sbagliato(const CLI::App& programma, const CLI::ParseError& errore) {
    std::vector<std::string> opzioni;
    for (const CLI::Option* opzione : programma.get_options())
        if (opzione->nonpositional())
            opzioni.push_back(opzione->get_name());
    std::string accettati = "accepted: FILE";
    for (const std::string& opzione : opzioni)
        accettati += ", " + opzione;
    for (const std::string& parola : programma.remaining()) {
        if (parola.starts_with('-'))
            return senza_opzione(parola.substr(0, parola.find('=')), opzioni) + accettati;
        if (dynamic_cast<const CLI::ExtrasError*>(&errore) != nullptr)
            return std::string("'").append(parola).append("' is one argument too many; ").append(accettati);
    }
    return std::string(errore.what()) + "; see kelsim --help";
}

void registra(const Argomenti& argomenti) {
    using namespace kel::simulatore;
    Uscita canali(argomenti.canali);
    Uscita campioni(argomenti.campioni);
    const PianoLocale piano(LUOGO);
    Kart kart(argomenti.giri, argomenti.frequenza, argomenti.seme);
    Centralina centralina(kart.lunghezza_giro());
    canali.scrivi(centralina.canali());
    canali.chiudi();
    for (Istante istante; kart.prossimo(istante);)
        campioni.scrivi(centralina.record(istante, piano));
    campioni.chiudi();
}

using kel::simulatore::Uscita;

int esegui(int argc, char** argv) {
    CLI::App programma{"Writes the u-blox capture and the recording of a kart that drives laps of a circuit of 1 km.",
                       "kelsim"};
    Argomenti argomenti;
    dichiara(programma, argomenti);
    try {
        programma.parse(argc, argv);
        if (argomenti.cattura.empty() && argomenti.canali.empty() && argomenti.flotta.empty())
            throw CLI::RequiredError("FILE, or --channels and --samples, or --fleet");
        if (argomenti.guaste > argomenti.quante)
            throw CLI::ValidationError("--damaged: " + std::to_string(argomenti.guaste) +
                                       " is no such number; accepted: 0 to " + std::to_string(argomenti.quante));
    } catch (const CLI::Success& richiesta) {
        std::ostringstream testo;
        programma.exit(richiesta, testo, testo);
        Uscita uscita("-");
        uscita.scrivi(testo.str());
        uscita.chiudi();
        return 0;
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "kelsim: %s\n", sbagliato(programma, e).c_str());
        return 2;
    }
    if (!argomenti.flotta.empty())
        kel::simulatore::Flotta(argomenti.quante, argomenti.guaste, argomenti.giri, argomenti.frequenza, argomenti.seme)
            .scrivi(argomenti.flotta);
    if (!argomenti.canali.empty())
        registra(argomenti);
    if (!argomenti.cattura.empty()) {
        Uscita cattura(argomenti.cattura);
        kel::simulatore::registrazione(
            argomenti.giri, argomenti.frequenza, argomenti.seme,
            [&cattura](const std::string& byte) { cattura.scrivi(byte); }, argomenti.soluzioni);
        cattura.chiudi();
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return esegui(argc, argv);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kelsim: %s\n", e.what());
        return 1;
    }
}
