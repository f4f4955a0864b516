#include "chiavi.h"

#include <algorithm>
#include <iterator>

namespace kel::strumento {

namespace {

// What the catalogue puts in the place of a unit where there is none.
constexpr std::string_view SENZA_MISURA[] = {"", "#", "gear", "Pckt", "Date", "Coord"};

bool letteraOCifra(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

}  // namespace

std::string chiave(std::string_view testo) {
    std::string uscita;
    for (char c : testo) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (letteraOCifra(c))
            uscita += c;
        else if (!uscita.empty() && uscita.back() != '_')
            uscita += '_';
    }
    if (!uscita.empty() && uscita.back() == '_')
        uscita.pop_back();
    return uscita;
}

std::string chiaveConUdm(std::string_view nome, std::string_view udm) {
    if (std::find(std::begin(SENZA_MISURA), std::end(SENZA_MISURA), udm) != std::end(SENZA_MISURA))
        return chiave(nome);
    std::string misura = udm == "time" ? "ms" : std::string(udm);
    if (misura.starts_with('%'))
        misura.replace(0, 1, "percent");
    return chiave(nome) + "_" + chiave(misura);
}

}  // namespace kel::strumento
