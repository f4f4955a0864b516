// How a command prints its answer: what every command accepts for it.
#ifndef KELFUN_CLI_FORMA_H
#define KELFUN_CLI_FORMA_H

#include <string>
#include <vector>

#include "cli/opzioni.h"
#include "output/documento.h"

namespace kel::strumento {

/// --json, --ndjson, --csv, --table and --color.
struct SceltaForma {
    bool json = false;
    bool ndjson = false;
    bool csv = false;
    std::string colori = "auto";
    std::string tabella;

    /// How standard output is written.
    Aspetto forma() const;
};
/// @param tabelle  the keys of the tables that the command can print, the main one first; without any there is no
///                 --table.
void aggiungi_forma(Comando& comando, SceltaForma& scelta, const std::vector<std::string>& tabelle = {});

/// Makes an option exclude --json, --ndjson, --csv and --table, as far as the command has them.
void escludi_forma(const Comando& comando, Opzione opzione);

}  // namespace kel::strumento

#endif
