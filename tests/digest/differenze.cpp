#include "differenze.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace digest {

namespace {

constexpr unsigned SPIEGATE = 4;       // operations whose calls are printed
constexpr std::uint32_t MOSTRATE = 6;  // calls of each

const Tenuta* cerca(const std::vector<Tenuta>& tenute, const char* nome) {
    for (const Tenuta& una : tenute)
        if (std::strcmp(una.nome, nome) == 0)
            return &una;
    return nullptr;
}

bool corsa_anche(const Corsa& corsa, const char* nome) {
    for (const Conto& conto : corsa.conti())
        if (std::strcmp(conto.famiglia->nome, nome) == 0)
            return true;
    return false;
}

// Says where an operation's results begin to differ, and prints the first calls there.
void spiega(const Conto& conto, const Tenuta& tenuta, bool con_chiamate) {
    std::size_t uguali = 0;
    std::uint32_t primo = 1;
    for (; uguali < conto.blocchi.size() && uguali < tenuta.blocchi.size(); uguali++) {
        if (conto.blocchi[uguali] != tenuta.blocchi[uguali])
            break;
        primo = blocco_dopo(primo);
    }
    const std::uint32_t fine = blocco_dopo(primo) - 1 < conto.chiamate ? blocco_dopo(primo) - 1 : conto.chiamate;
    const char* const nome = conto.famiglia->nome;
    if (primo == fine)
        std::printf("\n%s: the first call that differs is %" PRIu32 " of %" PRIu32 "\n", nome, primo, conto.chiamate);
    else
        std::printf("\n%s: the first call that differs is one of %" PRIu32 " to %" PRIu32 " of %" PRIu32 "\n", nome,
                    primo, fine, conto.chiamate);
    if (!con_chiamate)
        return;
    mostra(*conto.famiglia, primo, fine - primo < MOSTRATE ? fine : primo + MOSTRATE - 1);
    std::printf("  these calls in any build: kel_digest --show '%s' %" PRIu32 " %" PRIu32 "\n", nome, primo, fine);
}

}  // namespace

unsigned differenze(const Corsa& corsa, const std::vector<Tenuta>& tenute, bool tutte) {
    unsigned diverse = 0;
    for (const Conto& conto : corsa.conti()) {
        const Tenuta* const tenuta = cerca(tenute, conto.famiglia->nome);
        if (tenuta == nullptr) {
            diverse++;
            std::printf("\n%s: no digest is kept\n", conto.famiglia->nome);
        } else if (std::strcmp(tenuta->impronta, cifre(conto.tutte).testo) != 0) {
            diverse++;
            spiega(conto, *tenuta, diverse <= SPIEGATE);
        }
    }
    for (const Tenuta& tenuta : tenute)
        if (tutte && !corsa_anche(corsa, tenuta.nome)) {
            diverse++;
            std::printf("\n%s: a digest is kept, but there is no such operation\n", tenuta.nome);
        }
    return diverse;
}

void consiglia() {
    std::printf(
        "\nWhat the calls gave before: run the --show lines with kel_digest of a tree without the change.\n"
        "If every difference is intended: scripts/digest --write keeps the new results.\n");
}

void mostra(const Famiglia& famiglia, std::uint32_t prima, std::uint32_t ultima) {
    for (std::uint32_t chiamata = prima; chiamata <= ultima; chiamata++) {
        Racconto dati;
        Racconto risultati;
        racconta(famiglia, chiamata, dati, risultati);
        std::printf("  call %" PRIu32 "\n    given  %s\n    gives  %s\n", chiamata, dati.riga(), risultati.riga());
    }
}

}  // namespace digest
