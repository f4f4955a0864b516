// Runs every operation once under callgrind, which writes one file per operation, and lists the operations with the
// calls that each makes.
#include <valgrind/callgrind.h>

#include <cstdio>
#include <initializer_list>

#include "conti/operazioni.h"

int main() {
    for (const auto operazioni : {conti::operazioni_flat(), conti::operazioni_oggetti()})
        for (const conti::Operazione& operazione : operazioni) {
            // The first run is not counted: it includes work that is done once, as for the first block of the heap.
            operazione.esegui();
            CALLGRIND_ZERO_STATS;
            CALLGRIND_TOGGLE_COLLECT;
            operazione.esegui();
            CALLGRIND_TOGGLE_COLLECT;
            CALLGRIND_DUMP_STATS_AT(operazione.nome);
            std::printf("%s\t%u\n", operazione.nome, operazione.chiamate);
        }
}
