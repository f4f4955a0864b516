#include "exhaustive/risultati.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace esaustivo {

namespace {

std::uint64_t impronta_del_file(const std::filesystem::path& percorso) {
    std::ifstream file(percorso, std::ios::binary);
    return impronta(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::filesystem::path file_del_codice(const void* codice) {
    Dl_info informazioni{};
    if (dladdr(codice, &informazioni) == 0 || informazioni.dli_fname == nullptr) {
        std::fprintf(stderr, "cannot find the file of the library\n");
        std::exit(2);
    }
    return informazioni.dli_fname;
}

std::uint64_t impronta_delle_tabelle() {
    std::vector<std::filesystem::path> tabelle;
    for (const auto& voce : std::filesystem::directory_iterator(KEL_MODELLO_TABELLE))
        tabelle.push_back(voce.path());
    std::sort(tabelle.begin(), tabelle.end());
    std::uint64_t h = 1;
    for (const auto& tabella : tabelle)
        h = mescola(h, impronta_del_file(tabella));
    return h;
}

}  // namespace

std::string impronta_della_prova(const Spazio& spazio) {
    static const std::uint64_t comune =
        mescola(mescola(impronta_del_file(file_del_codice(dlsym(RTLD_NEXT, "kelFunInit"))),
                        impronta_del_file("/proc/self/exe")),
                impronta_delle_tabelle());
    const std::uint64_t h =
        spazio.codice == nullptr ? comune : mescola(comune, impronta_del_file(file_del_codice(spazio.codice)));
    char testo[32];
    std::snprintf(testo, sizeof testo, "%016llx", static_cast<unsigned long long>(h));
    return testo;
}

Risultati::Risultati(const std::string& cartella, const std::vector<Spazio>& spazi, bool da_capo)
    : cartella_(cartella) {
    if (cartella_.empty())
        return;
    std::filesystem::create_directories(cartella_);
    for (const Spazio& spazio : spazi) {
        if (da_capo)
            std::filesystem::remove(file(spazio.nome));
        riprendi(spazio);
    }
}

std::string Risultati::file(const std::string& spazio) const {
    return cartella_ + "/" + spazio + ".tsv";
}

// Lines: part, cases, seconds, differences, hash, and after a tab each of the first differences. The first line names
// what was compared.
void Risultati::riprendi(const Spazio& spazio) {
    const std::string prova = impronta_della_prova(spazio);
    {
        std::ifstream lettura(file(spazio.nome));
        std::string linea;
        if (std::getline(lettura, linea) && linea == prova) {
            while (std::getline(lettura, linea)) {
                std::istringstream flusso(linea);
                unsigned parte = 0;
                Esito esito;
                if (!(flusso >> parte >> esito.casi >> esito.secondi >> esito.differenze >> std::hex >> esito.impronta))
                    continue;  // cut short when the program was stopped
                flusso.get();
                std::string differenza;
                while (std::getline(flusso, differenza, '\t'))
                    esito.prime.push_back(differenza);
                esiti_[spazio.nome][parte] = esito;
            }
            return;
        }
    }
    std::ofstream(file(spazio.nome)) << prova << '\n';
}

void Risultati::aggiungi(const std::string& spazio, unsigned parte, const Esito& esito) {
    esiti_[spazio][parte] = esito;
    if (cartella_.empty())
        return;
    std::ofstream scrittura(file(spazio), std::ios::app);
    scrittura << parte << '\t' << esito.casi << '\t' << esito.secondi << '\t' << esito.differenze << '\t' << std::hex
              << esito.impronta;
    for (const std::string& differenza : esito.prime)
        scrittura << '\t' << differenza;
    scrittura << '\n';
    if (!scrittura.flush()) {
        std::fprintf(stderr, "cannot write %s\n", file(spazio).c_str());
        std::exit(2);
    }
}

}  // namespace esaustivo
