#include "comando.h"

#include <CLI/CLI.hpp>

#include "colore.h"
#include "errori.h"

namespace kel::strumento {

void aggiungiForma(CLI::App& comando, SceltaForma& scelta) {
    auto* json = comando.add_flag("--json", scelta.json, "Print JSON");
    auto* ndjson = comando.add_flag("--ndjson", scelta.ndjson, "Print JSON, one object a line");
    auto* csv = comando.add_flag("--csv", scelta.csv, "Print CSV");
    ndjson->excludes(json);
    csv->excludes(json)->excludes(ndjson);
    comando.add_option("--color", scelta.colori, "Colour the tables: auto (default; on a terminal), always, never")
        ->type_name("{auto,always,never}");
}

Aspetto SceltaForma::forma() const {
    if (colori != "auto" && colori != "always" && colori != "never")
        throw ErroreUso("there is no --color '" + colori + "'; accepted: auto, always, never");
    if (json || ndjson || csv)
        return {json ? Forma::json : ndjson ? Forma::ndjson : Forma::csv, false};
    return {Forma::tabella, ammetteColori(colori, stdout)};
}

std::string esempi(const char* note, const char* primo, const char* secondo, const char* terzo) {
    std::string testo = note;
    testo += testo.empty() ? "Examples:\n" : "\n\nExamples:\n";
    for (const char* esempio : {primo, secondo, terzo})
        testo += std::string("  ") + esempio + "\n";
    return testo.substr(0, testo.size() - 1);
}

}  // namespace kel::strumento
