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

std::filesystem::path file_della_libreria() {
    Dl_info informazioni{};
    if (dladdr(dlsym(RTLD_NEXT, "kelFunInit"), &informazioni) == 0 || informazioni.dli_fname == nullptr) {
        std::fprintf(stderr, "cannot find the file of the library\n");
        std::exit(2);
    }
    return informazioni.dli_fname;
}

}  // namespace

std::string impronta_della_prova() {
    std::uint64_t h = impronta_del_file(file_della_libreria());
    h = mescola(h, impronta_del_file("/proc/self/exe"));
    std::vector<std::filesystem::path> tabelle;
    for (const auto& voce : std::filesystem::directory_iterator(KEL_MODELLO_TABELLE))
        tabelle.push_back(voce.path());
    std::sort(tabelle.begin(), tabelle.end());
    for (const auto& tabella : tabelle)
        h = mescola(h, impronta_del_file(tabella));
    char testo[32];
    std::snprintf(testo, sizeof testo, "%016llx", static_cast<unsigned long long>(h));
    return testo;
}

Risultati::Risultati(const std::string& cartella, const std::vector<Spazio>& spazi, bool da_capo)
    : cartella_(cartella), prova_(impronta_della_prova()) {
    if (cartella_.empty())
        return;
    std::filesystem::create_directories(cartella_);
    for (const Spazio& spazio : spazi) {
        if (da_capo)
            std::filesystem::remove(file(spazio.nome));
        riprendi(spazio.nome);
    }
}

std::string Risultati::file(const std::string& spazio) const {
    return cartella_ + "/" + spazio + ".tsv";
}

// Lines: part, cases, seconds, differences, hash, and after a tab each of the first differences. The first line names
// what was compared.
void Risultati::riprendi(const std::string& spazio) {
    {
        std::ifstream lettura(file(spazio));
        std::string linea;
        if (std::getline(lettura, linea) && linea == prova_) {
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
                esiti_[spazio][parte] = esito;
            }
            return;
        }
    }
    std::ofstream(file(spazio)) << prova_ << '\n';
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
