// How a command prints its answer: what every command accepts for it.
#ifndef KELFUN_CLI_FORMA_H
#define KELFUN_CLI_FORMA_H

#include <string>

#include "cli/opzioni.h"
#include "output/documento.h"

namespace kel::strumento {

/// --json, --ndjson, --csv and --color.
struct SceltaForma {
    bool json = false;
    bool ndjson = false;
    bool csv = false;
    std::string colori = "auto";

    /// How standard output is written.
    Aspetto forma() const;
};
void aggiungiForma(Comando& comando, SceltaForma& scelta);

/// Makes an option go not together with --json, --ndjson and --csv, where the command has them.
void escludiForma(const Comando& comando, Opzione opzione);

}  // namespace kel::strumento

#endif
