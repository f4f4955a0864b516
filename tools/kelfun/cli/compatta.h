// How the samples of a recording lie one behind the other.
#ifndef KELFUN_CLI_COMPATTA_H
#define KELFUN_CLI_COMPATTA_H

#include "cli/opzioni.h"

namespace kel::strumento {

constexpr const char* OPZIONE_COMPATTA = "--packed";

/// Adds --packed to a command.
inline void aggiungi_compatta(Comando& comando, bool& compatta) {
    comando.bandiera(OPZIONE_COMPATTA, compatta,
                     "Samples lie one behind the other, as long as their types, whatever the channels say");
}

}  // namespace kel::strumento

#endif
