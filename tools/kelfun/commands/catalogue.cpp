// kelfun catalogue: everything that the library knows as one JSON document, and the schema of that document.
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/catalogo_json.h"
#include "io/uscita.h"
#include "text/incorporati.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    bool schema = false;
    bool compatto = false;
};

void esegui(const Argomenti& argomenti) {
    if (argomenti.schema) {
        scrivi_uscita(SCHEMA_CATALOGO);
        return;
    }
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    scrivi_uscita(catalogo_json(*catalogo, KELFUN_VERSIONE).dump(argomenti.compatto ? -1 : 2) + "\n");
}

}  // namespace

void aggiungi_catalogue(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "catalogue", "The whole catalogue as one JSON document");
    const Opzione schema =
        comando.bandiera("--schema", argomenti->schema, "Print the JSON Schema of the document instead");
    comando.bandiera("--compact", argomenti->compatto, "On one line").esclude(schema);
    comando.note(esempi(
        "Quantities with their objects, units and conversions, functions with their choices, unit codes, sample\n"
        "types, packets, camera rows and legacy identifiers. The same library prints the same bytes anywhere.",
        "kelfun catalogue", "kelfun catalogue --compact", "kelfun catalogue --schema"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
