// One digest for a recorded stream of calls through every face of the library.
//
//   kel_digest [--flat] [--calls N]          prints the digest of every operation, and of all
//   kel_digest --calls N --check FILE        compares with what FILE keeps for N calls; exit status 1 at a difference
//
// The same numbers must come out on every machine, from every compiler and at every level of optimisation.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "famiglie.h"

namespace {

using digest::Caso;
using digest::Famiglia;
using digest::Impronta;

struct Richiesta {
    unsigned long chiamate = 1000000;
    bool flat = false;
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

std::string riga(unsigned long chiamate, const char* nome, const Impronta& impronta) {
    char testo[128];
    std::snprintf(testo, sizeof testo, "%10lu  %016" PRIx64 "%016" PRIx64 "  %s", chiamate, impronta.alto(),
                  impronta.basso(), nome);
    return testo;
}

std::vector<std::string> righe(const Richiesta& richiesta) {
    std::vector<std::string> righe;
    Impronta tutto;
    unsigned long fatte = 0;
    for (const Conto& conto : corri(richiesta)) {
        righe.push_back(riga(conto.chiamate, conto.famiglia->nome, conto.impronta));
        tutto.numero(conto.impronta.alto());
        tutto.numero(conto.impronta.basso());
        fatte += conto.chiamate;
    }
    righe.push_back(riga(fatte, richiesta.flat ? "all flat functions" : "all", tutto));
    return righe;
}

// The kept lines for so many calls: those up to and with the one of the sum.
std::vector<std::string> tenute(const Richiesta& richiesta) {
    std::ifstream file(richiesta.confronta);
    std::vector<std::string> blocco;
    std::string testo;
    while (std::getline(file, testo)) {
        if (testo.empty() || testo.front() == '#')
            continue;
        blocco.push_back(testo);
        std::istringstream parole(testo);
        unsigned long chiamate = 0;
        std::string cifre;
        std::string nome;
        parole >> chiamate >> cifre;
        std::getline(parole >> std::ws, nome);
        if (nome != "all" && nome != "all flat functions")
            continue;
        if (chiamate == richiesta.chiamate && (nome == "all") != richiesta.flat)
            return blocco;
        blocco.clear();
    }
    return {};
}

int confronta(const Richiesta& richiesta, const std::vector<std::string>& trovate) {
    const std::vector<std::string> attese = tenute(richiesta);
    if (attese.empty()) {
        std::fprintf(stderr, "%s keeps no digest of %lu calls\n", richiesta.confronta, richiesta.chiamate);
        return 2;
    }
    bool uguali = attese.size() == trovate.size();
    for (std::size_t i = 0; i < attese.size() && i < trovate.size(); i++)
        if (attese[i] != trovate[i]) {
            uguali = false;
            std::printf("kept  %s\nfound %s\n", attese[i].c_str(), trovate[i].c_str());
        }
    std::printf("%s\n", uguali ? trovate.back().c_str() : "the results differ");
    return uguali ? 0 : 1;
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
        } else if (std::strcmp(argv[i], "--check") == 0 && altro) {
            richiesta.confronta = argv[++i];
        } else {
            std::fprintf(stderr, "usage: kel_digest [--flat] [--calls N] [--check FILE]\n");
            return 2;
        }
    }
    const std::vector<std::string> trovate = righe(richiesta);
    if (richiesta.confronta != nullptr)
        return confronta(richiesta, trovate);
    for (const std::string& una : trovate)
        std::puts(una.c_str());
    return 0;
}
