// One digest for a stream of calls through every face of the library: see usage() for the options.
//
// The same numbers must come out on every machine, from every compiler and at every level of optimisation.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include "differenze.h"

namespace {

using digest::Corsa;

struct Richiesta {
    std::uint32_t giri = 20000;
    bool flat = false;
    unsigned long fili = 1;
    const char* confronta = nullptr;
};

int uso() {
    std::fprintf(stderr, "%s",
                 "usage: kel_digest [--flat] [--rounds N] [--threads N]  prints the digest of every operation\n"
                 "       kel_digest --rounds N --check FILE ...          compares with what FILE keeps for N rounds\n"
                 "       kel_digest --show OPERATION FIRST LAST          prints these calls and what they give\n"
                 "       kel_digest --write                              prints what FILE should hold\n"
                 "--flat: only the flat functions; --threads: so many make all the calls at once, on one catalogue\n"
                 "exit status 1: something differs from what FILE keeps\n");
    return 2;
}

// What each thread finds. With one, no thread is started.
std::vector<Corsa> corri(const Richiesta& richiesta) {
    std::vector<Corsa> corse(richiesta.fili, Corsa(richiesta.flat));
    std::vector<std::thread> altri;
    for (std::size_t i = 1; i < corse.size(); i++)
        altri.emplace_back([&richiesta, &sua = corse[i]] { sua.fino(richiesta.giri); });
    corse[0].fino(richiesta.giri);
    for (std::thread& filo : altri)
        filo.join();
    return corse;
}

int confronta(const Richiesta& richiesta) {
    const std::vector<digest::Tenuta> tenute = digest::leggi_tenute(richiesta.confronta, richiesta.giri);
    if (tenute.empty()) {
        std::fprintf(stderr, "%s keeps no digests of %" PRIu32 " rounds; accepted:", richiesta.confronta,
                     richiesta.giri);
        for (const std::uint32_t giri : digest::GIRI_TENUTI)
            std::fprintf(stderr, " %" PRIu32, giri);
        std::fprintf(stderr, "\n");
        return 2;
    }
    for (const Corsa& corsa : corri(richiesta)) {
        const unsigned diverse =
            digest::differenze(corsa, tenute, !richiesta.flat && !digest::famiglie_colonne().empty());
        if (diverse != 0) {
            std::printf("\n%u of %zu operations differ from %s\n", diverse, corsa.conti().size(), richiesta.confronta);
            digest::consiglia();
            return 1;
        }
    }
    std::printf("%zu operations, %" PRIu32 " rounds of calls: as kept\n", Corsa(richiesta.flat).conti().size(),
                richiesta.giri);
    return 0;
}

int mostra(const char* nome, unsigned long prima, unsigned long ultima) {
    const Corsa corsa(false);
    for (const digest::Conto& conto : corsa.conti())
        if (std::strcmp(conto.famiglia->nome, nome) == 0) {
            digest::mostra(*conto.famiglia, static_cast<std::uint32_t>(prima), static_cast<std::uint32_t>(ultima));
            return 0;
        }
    std::fprintf(stderr, "there is no operation '%s'; kel_digest prints the names\n", nome);
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    Richiesta richiesta;
    for (int i = 1; i < argc; i++) {
        const bool altro = i + 1 < argc;
        if (std::strcmp(argv[i], "--flat") == 0) {
            richiesta.flat = true;
        } else if (std::strcmp(argv[i], "--rounds") == 0 && altro) {
            richiesta.giri = static_cast<std::uint32_t>(std::strtoul(argv[++i], nullptr, 10));
        } else if (std::strcmp(argv[i], "--threads") == 0 && altro) {
            richiesta.fili = std::strtoul(argv[++i], nullptr, 10);
        } else if (std::strcmp(argv[i], "--check") == 0 && altro) {
            richiesta.confronta = argv[++i];
        } else if (std::strcmp(argv[i], "--show") == 0 && i + 3 < argc) {
            return mostra(argv[i + 1], std::strtoul(argv[i + 2], nullptr, 10), std::strtoul(argv[i + 3], nullptr, 10));
        } else if (std::strcmp(argv[i], "--write") == 0) {
            digest::scrivi_tenute();
            return 0;
        } else {
            return uso();
        }
    }
    if (richiesta.fili == 0)
        return uso();
    if (richiesta.confronta != nullptr)
        return confronta(richiesta);
    for (const Corsa& corsa : corri(richiesta))
        for (const digest::Conto& conto : corsa.conti())
            std::printf("%10" PRIu32 "  %s  %s\n", conto.chiamate, digest::cifre(conto.tutte).testo,
                        conto.famiglia->nome);
    return 0;
}
