// One digest for a recorded stream of calls through every face of the library.
//
//   kel_digest [--flat] [--calls N]          prints the digest of every operation, and of all
//   kel_digest --calls N --check FILE        compares with what FILE keeps for N calls; exit status 1 at a difference
//   kel_digest --threads N ...               so many threads make all these calls at once, on one catalogue
//
// The same numbers must come out on every machine, from every compiler and at every level of optimisation.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include "famiglie.h"

namespace {

using digest::Caso;
using digest::Famiglia;
using digest::Impronta;

struct Richiesta {
    unsigned long chiamate = 1000000;
    bool flat = false;
    unsigned long fili = 1;
    const char* confronta = nullptr;
};

struct Conto {
    const Famiglia* famiglia;
    unsigned long chiamate = 0;
    Impronta impronta = {};
};

std::vector<Conto> corri(const Richiesta& richiesta) {
    std::vector<Conto> conti;
    for (const Famiglia& famiglia : digest::famiglieFlat())
        conti.push_back({&famiglia});
    if (!richiesta.flat)
        for (const Famiglia& famiglia : digest::famiglieOggetti())
            conti.push_back({&famiglia});
    Caso caso(20050612);
    unsigned long fatte = 0;
    for (unsigned giro = 0; fatte < richiesta.chiamate; giro++)
        for (Conto& conto : conti)
            if (giro % conto.famiglia->ogni == 0 && fatte < richiesta.chiamate) {
                conto.famiglia->prova(caso, conto.impronta);
                conto.chiamate++;
                fatte++;
            }
    return conti;
}

// A line of the table. Plain characters: MemorySanitizer does not see into the C++ library's strings and streams.
struct Riga {
    char testo[128];
};

Riga riga(unsigned long chiamate, const char* nome, const Impronta& impronta) {
    Riga riga = {};
    std::snprintf(riga.testo, sizeof riga.testo, "%10lu  %016" PRIx64 "%016" PRIx64 "  %s", chiamate, impronta.alto(),
                  impronta.basso(), nome);
    return riga;
}

// Name of the sum of all operations that are tried.
const char* nomeSomma(const Richiesta& richiesta) {
    return richiesta.flat ? "all flat functions" : "all";
}

std::vector<Riga> righe(const Richiesta& richiesta) {
    std::vector<Riga> righe;
    Impronta tutto;
    unsigned long fatte = 0;
    for (const Conto& conto : corri(richiesta)) {
        righe.push_back(riga(conto.chiamate, conto.famiglia->nome, conto.impronta));
        tutto.numero(conto.impronta.alto());
        tutto.numero(conto.impronta.basso());
        fatte += conto.chiamate;
    }
    righe.push_back(riga(fatte, nomeSomma(richiesta), tutto));
    return righe;
}

// What each thread finds. With one, no thread is started.
std::vector<std::vector<Riga>> righeDeiFili(const Richiesta& richiesta) {
    std::vector<std::vector<Riga>> tutte(richiesta.fili);
    std::vector<std::thread> altri;
    for (std::size_t i = 1; i < tutte.size(); i++)
        altri.emplace_back([&richiesta, &sue = tutte[i]] { sue = righe(richiesta); });
    tutte[0] = righe(richiesta);
    for (std::thread& filo : altri)
        filo.join();
    return tutte;
}

// The kept lines for so many calls: those up to and with the one of the sum.
std::vector<Riga> tenute(const Richiesta& richiesta) {
    std::FILE* file = std::fopen(richiesta.confronta, "r");
    std::vector<Riga> blocco;
    bool trovate = false;
    Riga riga = {};
    while (file != nullptr && !trovate && std::fgets(riga.testo, sizeof riga.testo, file) != nullptr) {
        riga.testo[std::strcspn(riga.testo, "\n")] = '\0';
        unsigned long chiamate = 0;
        int nome = 0;
        if (std::sscanf(riga.testo, "%lu %*32[0-9a-f] %n", &chiamate, &nome) != 1 || nome == 0)
            continue;
        blocco.push_back(riga);
        if (std::strncmp(riga.testo + nome, "all", 3) != 0)
            continue;
        trovate = chiamate == richiesta.chiamate && std::strcmp(riga.testo + nome, nomeSomma(richiesta)) == 0;
        if (!trovate)
            blocco.clear();
    }
    if (file != nullptr)
        std::fclose(file);
    return trovate ? blocco : std::vector<Riga>();
}

int confronta(const Richiesta& richiesta, const std::vector<std::vector<Riga>>& dei_fili) {
    const std::vector<Riga> attese = tenute(richiesta);
    if (attese.empty()) {
        std::fprintf(stderr, "%s keeps no digest of %lu calls\n", richiesta.confronta, richiesta.chiamate);
        return 2;
    }
    bool tutte = true;
    for (const std::vector<Riga>& trovate : dei_fili) {
        tutte = tutte && attese.size() == trovate.size();
        for (std::size_t i = 0; i < attese.size() && i < trovate.size(); i++)
            if (std::strcmp(attese[i].testo, trovate[i].testo) != 0) {
                tutte = false;
                std::printf("kept  %s\nfound %s\n", attese[i].testo, trovate[i].testo);
            }
    }
    std::printf("%s\n", tutte ? attese.back().testo : "the results differ");
    return tutte ? 0 : 1;
}

int uso() {
    std::fprintf(stderr, "usage: kel_digest [--flat] [--calls N] [--threads N] [--check FILE]\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    Richiesta richiesta;
    for (int i = 1; i < argc; i++) {
        const bool altro = i + 1 < argc;
        if (std::strcmp(argv[i], "--flat") == 0) {
            richiesta.flat = true;
        } else if (std::strcmp(argv[i], "--calls") == 0 && altro) {
            richiesta.chiamate = std::strtoul(argv[++i], nullptr, 10);
        } else if (std::strcmp(argv[i], "--threads") == 0 && altro) {
            richiesta.fili = std::strtoul(argv[++i], nullptr, 10);
        } else if (std::strcmp(argv[i], "--check") == 0 && altro) {
            richiesta.confronta = argv[++i];
        } else {
            return uso();
        }
    }
    if (richiesta.fili == 0)
        return uso();
    const std::vector<std::vector<Riga>> trovate = righeDeiFili(richiesta);
    if (richiesta.confronta != nullptr)
        return confronta(richiesta, trovate);
    for (const std::vector<Riga>& del_filo : trovate)
        for (const Riga& una : del_filo)
            std::puts(una.testo);
    return 0;
}
