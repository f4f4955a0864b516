// Time that libraries take to be loaded and unloaded, in turns; the median of each, one line per library.
//
//   kel_impronta_carico TIMES LIBRARY...
//
// The program itself needs the C++ library, so that the times do not include loading it.
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

struct Libreria {
    std::string percorso;
    std::vector<double> microsecondi;
    bool resta = false;  // it cannot be unloaded
};

// Loads and unloads once. Returns whether that worked.
bool carica(Libreria& libreria) {
    using Orologio = std::chrono::steady_clock;
    const auto inizio = Orologio::now();
    void* const maniglia = dlopen(libreria.percorso.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (maniglia == nullptr)
        return false;
    dlclose(maniglia);
    libreria.microsecondi.push_back(std::chrono::duration<double, std::micro>(Orologio::now() - inizio).count());
    if (void* const ancora = dlopen(libreria.percorso.c_str(), RTLD_NOW | RTLD_NOLOAD)) {
        dlclose(ancora);
        libreria.resta = true;
    }
    return true;
}

double mediana(std::vector<double> tempi) {
    const auto mezzo = tempi.begin() + static_cast<std::ptrdiff_t>(tempi.size() / 2);
    std::nth_element(tempi.begin(), mezzo, tempi.end());
    return *mezzo;
}

}  // namespace

int main(int argc, char** argv) {
    const int volte = argc > 2 ? std::atoi(argv[1]) : 0;
    if (volte <= 0) {
        std::cerr << "usage: kel_impronta_carico TIMES LIBRARY...\n";
        return 2;
    }
    std::vector<Libreria> librerie;
    for (int i = 2; i < argc; ++i)
        librerie.push_back({argv[i], {}});
    for (int i = 0; i < volte; ++i)
        for (Libreria& libreria : librerie)
            if (!libreria.resta && !carica(libreria)) {
                std::cerr << dlerror() << "\n";
                return 1;
            }
    for (const Libreria& libreria : librerie)
        std::printf("%s\t%.1f\t%s\n", libreria.percorso.c_str(), mediana(libreria.microsecondi),
                    libreria.resta ? "stays" : "unloaded");
}
