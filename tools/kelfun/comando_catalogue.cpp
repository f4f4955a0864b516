// kelfun catalogue: everything that the library knows as one JSON document, and the schema of that document.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogo_json.h"
#include "comando.h"
#include "errori.h"
#include "incorporati.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    bool schema = false;
    bool compatto = false;
};

void scrivi(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw NonTrovato(std::string("cannot write the output: ") + std::strerror(errno));
}

void esegui(const Argomenti& argomenti) {
    if (argomenti.schema) {
        scrivi(SCHEMA_CATALOGO);
        return;
    }
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    scrivi(catalogoJson(*catalogo, KELFUN_VERSIONE).dump(argomenti.compatto ? -1 : 2) + "\n");
}

}  // namespace

void aggiungiCatalogue(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    CLI::App* comando = programma.add_subcommand("catalogue", "The whole catalogue as one JSON document");
    auto* schema = comando->add_flag("--schema", argomenti->schema, "Print the JSON Schema of the document instead");
    comando->add_flag("--compact", argomenti->compatto, "On one line")->excludes(schema);
    comando->footer(esempi(
        "Quantities with their objects, units and conversions, functions with their choices, unit codes, sample\n"
        "types, packets, camera rows and legacy identifiers. The same library prints the same bytes anywhere.",
        "kelfun catalogue", "kelfun catalogue --compact", "kelfun catalogue --schema"));
    comando->callback([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
