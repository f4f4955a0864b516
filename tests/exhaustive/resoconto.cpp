#include "exhaustive/resoconto.h"

#include <cstdio>

namespace esaustivo {

namespace {

struct Somma {
    Esito esito;
    unsigned parti = 0;
};

Somma somma_di(const Spazio& spazio, const std::vector<Compito>& compiti, Risultati& risultati) {
    Somma somma;
    for (const Compito& compito : compiti) {
        if (compito.spazio->nome != spazio.nome)
            continue;
        const Esito& esito = risultati.di(spazio.nome).at(compito.parte);
        somma.parti += 1;
        somma.esito.casi += esito.casi;
        somma.esito.secondi += esito.secondi;
        somma.esito.differenze += esito.differenze;
        somma.esito.impronta = mescola(somma.esito.impronta, esito.impronta);
        somma.esito.prime.insert(somma.esito.prime.end(), esito.prime.begin(), esito.prime.end());
    }
    return somma;
}

std::string frazione(const Somma& somma, const Spazio& spazio) {
    return std::to_string(somma.parti) + "/" + std::to_string(spazio.parti);
}

unsigned long long lungo(std::uint64_t numero) {
    return numero;
}

}  // namespace

std::uint64_t riferisci(const std::vector<Spazio>& spazi, const std::vector<Compito>& compiti, Risultati& risultati,
                        std::size_t da_mostrare) {
    std::uint64_t differenze = 0;
    std::printf("%-16s %10s %18s %10s %12s  %s\n", "SPACE", "PARTS", "CASES", "SECONDS", "DIFFERENCES", "HASH");
    for (const Spazio& spazio : spazi) {
        const Somma somma = somma_di(spazio, compiti, risultati);
        if (somma.parti == 0)
            continue;
        std::printf("%-16s %10s %18llu %10.1f %12llu  %016llx\n", spazio.nome.c_str(), frazione(somma, spazio).c_str(),
                    lungo(somma.esito.casi), somma.esito.secondi, lungo(somma.esito.differenze),
                    lungo(somma.esito.impronta));
        for (std::size_t i = 0; i < somma.esito.prime.size() && i < da_mostrare; i++)
            std::printf("    %s\n", somma.esito.prime[i].c_str());
        differenze += somma.esito.differenze;
    }
    return differenze;
}

std::uint64_t riferisci_markdown(const std::vector<Spazio>& spazi, const std::vector<Compito>& compiti,
                                 Risultati& risultati) {
    Esito tutti;
    std::printf("| space | inputs | parts | cases | core seconds | differences | hash of the outputs |\n");
    std::printf("|---|---|--:|--:|--:|--:|---|\n");
    for (const Spazio& spazio : spazi) {
        const Somma somma = somma_di(spazio, compiti, risultati);
        if (somma.parti == 0)
            continue;
        std::printf("| %s | %s | %s | %llu | %.0f | %llu | `%016llx` |\n", spazio.nome.c_str(),
                    spazio.descrizione.c_str(), frazione(somma, spazio).c_str(), lungo(somma.esito.casi),
                    somma.esito.secondi, lungo(somma.esito.differenze), lungo(somma.esito.impronta));
        tutti.casi += somma.esito.casi;
        tutti.secondi += somma.esito.secondi;
        tutti.differenze += somma.esito.differenze;
    }
    std::printf("| all | | | %llu | %.0f | %llu | |\n", lungo(tutti.casi), tutti.secondi, lungo(tutti.differenze));
    return tutti.differenze;
}

}  // namespace esaustivo
