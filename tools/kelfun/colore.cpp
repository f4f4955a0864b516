#include "colore.h"

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

bool ammetteColori(std::string_view quando, std::FILE* file) {
    if (quando == "always" || quando == "never")
        return quando == "always";
    const std::string terminale = variabile("TERM");
    return variabile("NO_COLOR").empty() && !terminale.empty() && terminale != "dumb" && ::isatty(::fileno(file)) == 1;
}

}  // namespace kel::strumento
