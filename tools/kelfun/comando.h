// The commands of kelfun. Each adds itself to the application; when its arguments have been read it runs, prints one
// document to standard output and throws when it could not do what was asked.
#ifndef KELFUN_COMANDO_H
#define KELFUN_COMANDO_H

#include <string>

#include "documento.h"

namespace CLI {
class App;
}

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

/// --json and --csv.
struct SceltaForma {
    bool json = false;
    bool csv = false;

    Forma forma() const { return json ? Forma::json : csv ? Forma::csv : Forma::tabella; }
};
void aggiungiForma(CLI::App& comando, SceltaForma& scelta);

/// Text shown below the options by --help: notes and three command lines that work as they stand.
std::string esempi(const char* note, const char* primo, const char* secondo, const char* terzo);

}  // namespace kel::strumento

#endif
