#include "io/colore.h"

#include <unistd.h>
#include <cstdlib>
#include <string>

namespace kel::strumento {

namespace {

std::string variabile(const char* nome) {
    const char* valore = std::getenv(nome);
    return valore != nullptr ? valore : "";
}

}  // namespace

bool capisce_comandi(std::FILE* file) {
    const std::string terminale = variabile("TERM");
    return !terminale.empty() && terminale != "dumb" && ::isatty(::fileno(file)) == 1;
}

bool ammette_colori(std::string_view quando, std::FILE* file) {
    if (quando == "always" || quando == "never")
        return quando == "always";
    return variabile("NO_COLOR").empty() && capisce_comandi(file);
}

}  // namespace kel::strumento
