#include "cli/esempi.h"

namespace kel::strumento {

std::string esempi(const std::string& note, const char* primo, const char* secondo, const char* terzo) {
    std::string testo = note;
    testo += testo.empty() ? "Examples:\n" : "\n\nExamples:\n";
    for (const char* esempio : {primo, secondo, terzo})
        testo += std::string("  ") + esempio + "\n";
    return testo.substr(0, testo.size() - 1);
}

}  // namespace kel::strumento
