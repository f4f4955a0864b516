// Compares the library with the model over whole spaces of inputs.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <thread>

#include "exhaustive/corsa.h"
#include "exhaustive/resoconto.h"
#include "exhaustive/risultati.h"
#include "exhaustive/spazio.h"

namespace {

using esaustivo::Compito;
using esaustivo::Risultati;
using esaustivo::Spazio;

struct Opzioni {
    std::vector<std::string> nomi;
    std::string frammento;  // I/N
    std::string cartella;
    unsigned lavoratori = std::max(1U, std::thread::hardware_concurrency());
    std::size_t da_mostrare = 5;
    bool assaggio = false;
    bool elenca = false;
    bool ctest = false;
    bool markdown = false;
    bool da_capo = false;
};

struct Frammento {
    unsigned indice = 1, totale = 1;
};

// Which part of so many ctest runs. The parts go by the top bits, so that the selection takes inputs of every size.
constexpr unsigned ASSAGGIO = 10;

Frammento leggi_frammento(const std::string& testo) {
    Frammento frammento;
    char resto = 0;
    if (!testo.empty() && (std::sscanf(testo.c_str(), "%u/%u%c", &frammento.indice, &frammento.totale, &resto) != 2 ||
                           frammento.indice < 1 || frammento.indice > frammento.totale))
        throw CLI::ValidationError("--shard", "wants I/N with I from 1 to N, such as 3/16");
    return frammento;
}

std::vector<Spazio> scegli(const std::vector<Spazio>& tutti, const std::vector<std::string>& nomi) {
    if (nomi.empty())
        return tutti;
    std::vector<Spazio> scelti;
    for (const std::string& nome : nomi) {
        const auto trovato =
            std::find_if(tutti.begin(), tutti.end(), [&](const Spazio& spazio) { return spazio.nome == nome; });
        if (trovato == tutti.end())
            throw CLI::ValidationError("SPACE", "there is no space " + nome + "; --list names them");
        scelti.push_back(*trovato);
    }
    return scelti;
}

bool tocca(const Spazio& spazio, unsigned parte, const Opzioni& opzioni, const Frammento& frammento) {
    if (opzioni.assaggio)
        return parte % spazio.assaggio == ASSAGGIO % spazio.assaggio ||
               std::find(spazio.notevoli.begin(), spazio.notevoli.end(), parte) != spazio.notevoli.end();
    return parte % frammento.totale == frammento.indice - 1;
}

void elenca(const std::vector<Spazio>& spazi) {
    for (const Spazio& spazio : spazi)
        std::printf("%-16s %4u parts  %s\n", spazio.nome.c_str(), spazio.parti, spazio.descrizione.c_str());
}

// The spaces as tests of ctest, for the build.
void elenca_per_ctest(const std::vector<Spazio>& spazi, const char* programma) {
    for (const Spazio& spazio : spazi) {
        const char* nome = spazio.nome.c_str();
        std::printf("add_test(exhaustive.%s \"%s\" --sixteenth --jobs 1 %s)\n", nome, programma, nome);
        std::printf("set_tests_properties(exhaustive.%s PROPERTIES LABELS exhaustive TIMEOUT 1200)\n", nome);
    }
}

int prova(const Opzioni& opzioni, const char* programma) {
    const std::vector<Spazio> tutti = esaustivo::tutti_gli_spazi();
    const std::vector<Spazio> spazi = scegli(tutti, opzioni.nomi);
    const Frammento frammento = leggi_frammento(opzioni.frammento);
    if (opzioni.elenca) {
        elenca(spazi);
        return 0;
    }
    if (opzioni.ctest) {
        elenca_per_ctest(spazi, programma);
        return 0;
    }
    std::vector<Compito> compiti;
    for (const Spazio& spazio : spazi)
        for (unsigned parte = 0; parte < spazio.parti; parte++)
            if (tocca(spazio, parte, opzioni, frammento))
                compiti.push_back({&spazio, parte});
    Risultati risultati(opzioni.cartella, spazi, opzioni.da_capo);
    esaustivo::corri(compiti, risultati, std::max(1U, opzioni.lavoratori), opzioni.da_mostrare);
    const std::uint64_t differenze = opzioni.markdown
                                         ? esaustivo::riferisci_markdown(spazi, compiti, risultati)
                                         : esaustivo::riferisci(spazi, compiti, risultati, opzioni.da_mostrare);
    return differenze == 0 ? 0 : 1;
}

int esegui(int argc, char** argv) {
    CLI::App app{"Compares the library with a plain model over whole spaces of inputs: exit 1 when they differ."};
    Opzioni opzioni;
    app.add_option("SPACE", opzioni.nomi, "Spaces to walk; all without any");
    app.add_option("--shard", opzioni.frammento, "I/N: only the parts whose number leaves I-1 when divided by N");
    app.add_flag("--sixteenth", opzioni.assaggio, "The fixed selection that ctest runs")->excludes("--shard");
    app.add_option("--jobs,-j", opzioni.lavoratori, "Parts to run at once")->capture_default_str();
    app.add_option("--state", opzioni.cartella, "Folder that keeps the results, to resume from");
    app.add_flag("--fresh", opzioni.da_capo, "Forget the results that are kept");
    app.add_option("--differences", opzioni.da_mostrare, "Differences to show of each space")->capture_default_str();
    app.add_flag("--list", opzioni.elenca, "List the spaces");
    app.add_flag("--markdown", opzioni.markdown, "Report as a table of Markdown, without the differences themselves");
    app.add_flag("--ctest", opzioni.ctest, "List them as tests of ctest");
    try {
        app.parse(argc, argv);
        return prova(opzioni, argv[0]);
    } catch (const CLI::ParseError& errore) {
        return app.exit(errore) == 0 ? 0 : 2;
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return esegui(argc, argv);
    } catch (const std::exception& errore) {
        std::fprintf(stderr, "%s\n", errore.what());
        return 2;
    }
}
