#include "cli/esempi.h"

namespace kel::strumento {

std::string su_righe(const std::vector<std::string>& testi) {
    constexpr std::size_t LARGHEZZA = 72;
    std::string tutti;
    std::size_t riga = 0;
    for (const std::string& testo : testi) {
        tutti += tutti.empty() ? "" : ",";
        if (riga + testo.size() > LARGHEZZA) {
            tutti += '\n';
            riga = 0;
        } else if (!tutti.empty()) {
            tutti += ' ';
        }
        tutti += testo;
        riga += testo.size() + 2;
    }
    return tutti;
}

std::string esempi(const std::string& note, const char* primo, const char* secondo, const char* terzo) {
    std::string testo = note;
    testo += testo.empty() ? "Examples:\n" : "\n\nExamples:\n";
    for (const char* esempio : {primo, secondo, terzo})
        testo += std::string("  ") + esempio + "\n";
    return testo.substr(0, testo.size() - 1);
}

}  // namespace kel::strumento
