#include "programma.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/esempi.h"
#include "cli/opzioni.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "completion/completa.h"
#include "io/colore.h"
#include "io/messaggi.h"
#include "io/uscita.h"
#include "text/errori.h"
#include "text/vicini.h"

namespace kel::strumento {

namespace {

// What a command accepts, from its own options: "FILE, --unit, --json".
std::string accettati(const CLI::App& comando) {
    std::string testo;
    for (const CLI::App* sotto : comando.get_subcommands([](const CLI::App*) { return true; }))
        testo += (testo.empty() ? "" : ", ") + sotto->get_name();
    for (const CLI::Option* opzione : comando.get_options())
        if (!opzione->get_group().empty())  // else it is hidden
            testo += (testo.empty() ? "" : ", ") + opzione->get_name(opzione->get_positional());
    return testo;
}

// The commands of a program, and its options as they are written.
std::vector<std::string> parole(const CLI::App& comando, bool comandi) {
    std::vector<std::string> tutte;
    if (comandi)
        for (const CLI::App* sotto : comando.get_subcommands([](const CLI::App*) { return true; }))
            tutte.push_back(sotto->get_name());
    for (const CLI::Option* opzione : comando.get_options())
        if (!opzione->get_group().empty() && opzione->nonpositional())
            tutte.push_back(opzione->get_name());
    return tutte;
}

// The error for an option before the command. If a command has it, the error says where such options stand.
std::string prima_del_comando(const CLI::App& programma, const std::string& nome) {
    for (const CLI::App* sotto : programma.get_subcommands([](const CLI::App*) { return true; }))
        if (sotto->get_option_no_throw(nome) != nullptr)
            return "'" + nome + "' is an option of commands, and stands behind them; ";
    return "there is no option '" + nome + "'; " + forse(nome, parole(programma, false));
}

// A word that the command has no place for: an option that it does not know, or an argument more than it takes.
std::string di_troppo(const CLI::App& comando, const std::string& parola) {
    const std::string nome = parola.substr(0, parola.find('='));
    if (!parola.starts_with('-'))
        return "'" + senza_segno(parola) + "' is one argument too many; accepted: " + accettati(comando);
    return "there is no option '" + nome + "'; " + forse(nome, parole(comando, false)) +
           "accepted: " + accettati(comando);
}

// The words of the command line in reverse order, as the parser takes them. After "--" every word is an argument; only
// when "--" comes first is the next word still the command.
std::vector<std::string> per_parser(int argc, char** argv) {
    std::vector<std::string> tutte(argv + 1, argv + argc);
    const auto fine = std::find(tutte.begin(), tutte.end(), "--");
    const bool prima_del_comando = fine == tutte.begin();
    if (fine != tutte.end())
        for (auto parola = tutte.erase(fine); parola != tutte.end(); ++parola)
            if (!prima_del_comando || parola != tutte.begin())
                parola->insert(0, 1, SOLO_ARGOMENTO);
    std::reverse(tutte.begin(), tutte.end());
    return tutte;
}

const CLI::App* sottocomando(const CLI::App& programma, const std::string& nome) {
    for (const CLI::App* sotto : programma.get_subcommands([](const CLI::App*) { return true; }))
        if (sotto->get_name() == nome)
            return sotto;
    return nullptr;
}

// What --color asks for, as far as the command line has been read.
std::string colori(const CLI::App& comando) {
    const CLI::Option* opzione = comando.get_option_no_throw("--color");
    return opzione != nullptr && !opzione->results().empty() ? opzione->results().front() : "auto";
}

int errore(const CLI::App& comando, const std::string& chi, const std::string& testo, int stato) {
    const bool colorato = ammette_colori(colori(comando), stderr);
    messaggio(chi, testo, colorato ? ROSSO : std::string_view());
    return stato;
}

int esegui(int argc, char** argv) {
    CLI::App programma{
        "What the identifiers and samples of racing data loggers mean; recordings as tables, laps and plots.",
        "kelfun"};
    programma.set_version_flag("--version", "kelfun " KELFUN_VERSIONE, "Print the version and exit");
    programma.get_formatter()->column_width(30);
    programma.require_subcommand(1);
    aggiungi_find(programma);
    aggiungi_fid(programma);
    aggiungi_functions(programma);
    aggiungi_units(programma);
    aggiungi_convert(programma);
    aggiungi_decode(programma);
    aggiungi_match(programma);
    aggiungi_camera(programma);
    aggiungi_lap(programma);
    aggiungi_ubx(programma);
    aggiungi_record(programma);
    aggiungi_laps(programma);
    aggiungi_catalogue(programma);
    rifiuta_codice_altrove(programma);
    programma.footer(
        esempi("kelfun COMMAND --help tells more and gives examples.\n"
               "Tables have colours on a terminal only, and none where NO_COLOR is set or TERM is dumb.\n"
               "Exit status: 0 success; 1 no such thing, bad data, or it cannot be read or written; 2 wrong usage.",
               "kelfun find wheel front left", "kelfun fid REF_SPEED_FL",
               "kelfun decode REF_SPEED_FL --type int16 --unit mph 7B00"));

    std::string chi = "kelfun";
    const CLI::App* comando = &programma;
    try {
        // The completion scripts of the shells call this with half a command line. No help shows it.
        if (argc > 1 && std::strcmp(argv[1], "__complete") == 0) {
            completa(programma, {argv + 2, argv + argc});
            return USCITA_BENE;
        }
        std::vector<std::string> argomenti = per_parser(argc, argv);
        const std::string primo = argomenti.empty() ? "" : argomenti.back();
        const std::string opzione = primo.starts_with('-') ? primo.substr(0, primo.find('=')) : "";
        if (!opzione.empty() && programma.get_option_no_throw(opzione) == nullptr)
            return errore(*comando, chi, prima_del_comando(programma, opzione) + "accepted: " + accettati(programma),
                          USCITA_USO);
        if (primo.empty() && argc == 1)
            return errore(*comando, chi, "there is no command; accepted: " + accettati(programma), USCITA_USO);
        if (!primo.empty() && !primo.starts_with('-')) {
            const CLI::App* trovato = sottocomando(programma, primo);
            if (trovato == nullptr)
                return errore(*comando, chi,
                              "there is no command '" + primo + "'; " + forse(primo, parole(programma, true)) +
                                  "accepted: " + accettati(programma),
                              USCITA_USO);
            comando = trovato;
            chi += " " + primo;
        }
        programma.parse(std::move(argomenti));
        return USCITA_BENE;
    } catch (const CLI::Success& richiesta) {  // --help, --version
        std::ostringstream testo;
        programma.exit(richiesta, testo, testo);
        scrivi_uscita(testo.str());
        return USCITA_BENE;
    } catch (const CLI::ParseError& e) {
        // A mistyped option is reported first: what else the parser misses may be its consequence.
        for (const std::string& parola : comando->remaining())
            if (parola.starts_with('-') || dynamic_cast<const CLI::ExtrasError*>(&e) != nullptr)
                return errore(*comando, chi, di_troppo(*comando, parola), USCITA_USO);
        return errore(*comando, chi, std::string(e.what()) + "; accepted: " + accettati(*comando), USCITA_USO);
    } catch (const ErroreUso& e) {
        return errore(*comando, chi, e.what(), USCITA_USO);
    } catch (const NonTrovato& e) {
        return errore(*comando, chi, e.what(), USCITA_NON_TROVATO);
    } catch (const std::exception& e) {
        return errore(*comando, chi, e.what(), USCITA_NON_TROVATO);
    }
}

}  // namespace

int kelfun(int argc, char** argv) {
    try {
        return esegui(argc, argv);
    } catch (const std::exception& e) {  // from before the command line was read, or of the help
        std::fprintf(stderr, "kelfun: %s\n", e.what());
        return USCITA_NON_TROVATO;
    }
}

}  // namespace kel::strumento
