// The digests of tests/digest in a WebAssembly program: it prints them, and web/test compares them with those of every
// other machine.
//
//   kel_digest ROUNDS
#include <cinttypes>
#include <cstdio>
#include <cstdlib>

#include "corsa.h"
#include "famiglie.h"

int main(int argc, char** argv) {
    digest::Corsa corsa(false);
    corsa.fino(argc > 1 ? static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10)) : 2000);
    for (const digest::Conto& conto : corsa.conti())
        std::printf("%s\t%016" PRIx64 "%016" PRIx64 "\n", conto.famiglia->nome, conto.tutte.alto(),
                    conto.tutte.basso());
    return 0;
}
