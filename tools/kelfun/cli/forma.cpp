#include "cli/forma.h"

#include "io/colore.h"

namespace kel::strumento {

void aggiungi_forma(Comando& comando, SceltaForma& scelta, const std::vector<std::string>& tabelle) {
    const Opzione json = comando.bandiera("--json", scelta.json, "Print JSON");
    Opzione ndjson = comando.bandiera("--ndjson", scelta.ndjson, "Print JSON, one object a line");
    ndjson.esclude(json);
    comando.bandiera("--csv", scelta.csv, "Print CSV: one table").esclude(json).esclude(ndjson);
    if (!tabelle.empty())
        comando.opzione("--table", scelta.tabella, "Print only this table; without it CSV has the first")
            .scelta(tabelle);
    comando.opzione("--color", scelta.colori, "Colour the tables: auto (default; on a terminal), always, never")
        .scelta({"auto", "always", "never"});
}

void escludi_forma(const Comando& comando, Opzione opzione) {
    for (const char* nome : {"--json", "--ndjson", "--csv", "--table"})
        if (const auto forma = comando.trova(nome))
            opzione.esclude(*forma);
}

Aspetto SceltaForma::forma() const {
    if (json || ndjson || csv)
        return {json ? Forma::json : ndjson ? Forma::ndjson : Forma::csv, false, tabella};
    return {Forma::tabella, ammette_colori(colori, stdout), tabella};
}

}  // namespace kel::strumento
