#include "programma.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstring>
#include <exception>
#include <sstream>
#include <string>

#include "cli/esempi.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "completion/completa.h"
#include "io/colore.h"
#include "io/uscita.h"
#include "text/errori.h"
#include "text/mostrabile.h"

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
    const bool colorato = ammetteColori(colori(comando), stderr);
    const std::string prima = colorato ? std::string(ROSSO) + chi + ":" + std::string(NORMALE) : chi + ":";
    std::fprintf(stderr, "%s %s\n", prima.c_str(), mostrabile(testo).c_str());
    return stato;
}

int esegui(int argc, char** argv) {
    CLI::App programma{"Everything that the catalogue of functions knows, and the samples it decodes.", "kelfun"};
    programma.set_version_flag("--version", "kelfun " KELFUN_VERSIONE, "Print the version and exit");
    programma.get_formatter()->column_width(30);
    programma.require_subcommand(1);
    aggiungiFind(programma);
    aggiungiFid(programma);
    aggiungiFunctions(programma);
    aggiungiUnits(programma);
    aggiungiConvert(programma);
    aggiungiDecode(programma);
    aggiungiMatch(programma);
    aggiungiCamera(programma);
    aggiungiLap(programma);
    aggiungiUbx(programma);
    aggiungiRecord(programma);
    aggiungiLaps(programma);
    aggiungiCatalogue(programma);
    rifiutaCodiceAltrove(programma);
    programma.footer(
        esempi("kelfun COMMAND --help tells more and gives examples.\n"
               "Tables have colours on a terminal only, and none where NO_COLOR is set or TERM is dumb.\n"
               "Exit status: 0 fine, 1 no such thing or it cannot be read or written, 2 wrong argument.",
               "kelfun find wheel front left", "kelfun fid REF_SPEED_FL",
               "kelfun decode REF_SPEED_FL --type 1 --unit mph 7B00"));

    std::string chi = "kelfun";
    const CLI::App* comando = &programma;
    try {
        // For the completion of shells, which pass it half a command line; not for people, and in no help.
        if (argc > 1 && std::strcmp(argv[1], "__complete") == 0) {
            completa(programma, {argv + 2, argv + argc});
            return USCITA_BENE;
        }
        if (argc > 1 && argv[1][0] != '-') {
            const CLI::App* trovato = sottocomando(programma, argv[1]);
            if (trovato == nullptr)
                return errore(*comando, chi,
                              std::string("there is no command '") + argv[1] + "'; accepted: " + accettati(programma),
                              USCITA_USO);
            comando = trovato;
            chi += std::string(" ") + argv[1];
        }
        programma.parse(argc, argv);
        return USCITA_BENE;
    } catch (const CLI::Success& richiesta) {  // --help, --version
        std::ostringstream testo;
        programma.exit(richiesta, testo, testo);
        scriviUscita(testo.str());
        return USCITA_BENE;
    } catch (const CLI::ParseError& e) {
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
