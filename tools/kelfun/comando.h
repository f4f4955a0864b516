// The commands of kelfun. Each adds itself to the application; when its arguments have been read it runs, prints one
// document to standard output and throws when it could not do what was asked.
#ifndef KELFUN_COMANDO_H
#define KELFUN_COMANDO_H

#include <string>

#include "documento.h"
#include "opzioni.h"

namespace kel::strumento {

void aggiungiFid(CLI::App& programma);
void aggiungiFunctions(CLI::App& programma);
void aggiungiUnits(CLI::App& programma);
void aggiungiConvert(CLI::App& programma);
void aggiungiDecode(CLI::App& programma);
void aggiungiMatch(CLI::App& programma);
void aggiungiCamera(CLI::App& programma);
void aggiungiLap(CLI::App& programma);
void aggiungiUbx(CLI::App& programma);
void aggiungiRecord(CLI::App& programma);
void aggiungiFind(CLI::App& programma);
void aggiungiCatalogue(CLI::App& programma);

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

/// Text shown below the options by --help: notes and three command lines that work as they stand.
std::string esempi(const char* note, const char* primo, const char* secondo, const char* terzo);

}  // namespace kel::strumento

#endif
