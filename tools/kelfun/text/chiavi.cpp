#include "text/chiavi.h"

#include <algorithm>
#include <iterator>

namespace kel::strumento {

namespace {

// What the catalogue calls the unit of a function that has none.
constexpr std::string_view SENZA_MISURA[] = {"", "#", "gear", "Pckt", "Date", "Coord"};

bool lettera_o_cifra(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

std::string chiave_misura(std::string_view udm) {
    std::string unita = misura(udm);
    if (unita.starts_with('%'))
        unita.replace(0, 1, "percent");
    return chiave(unita);
}

// Whether a name needs no unit behind it: there is none, or it ends with it, as "Engine RPM" does.
bool misura_in_fondo(const std::string& nome, std::string_view udm) {
    const std::string unita = chiave_misura(udm);
    return unita.empty() || nome == unita || nome.ends_with("_" + unita);
}

}  // namespace

std::string chiave(std::string_view testo) {
    std::string uscita;
    for (char c : testo) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (lettera_o_cifra(c))
            uscita += c;
        else if (!uscita.empty() && uscita.back() != '_')
            uscita += '_';
    }
    if (!uscita.empty() && uscita.back() == '_')
        uscita.pop_back();
    return uscita;
}

std::string misura(std::string_view udm) {
    if (std::find(std::begin(SENZA_MISURA), std::end(SENZA_MISURA), udm) != std::end(SENZA_MISURA))
        return "";
    return udm == "time" ? "ms" : std::string(udm);
}

std::string chiave_con_udm(std::string_view nome, std::string_view udm) {
    const std::string una = chiave(nome);
    return misura_in_fondo(una, udm) ? una : una + "_" + chiave_misura(udm);
}

std::string titolo_con_udm(std::string_view nome, std::string_view udm) {
    return std::string(nome) + (misura_in_fondo(chiave(nome), udm) ? "" : " " + misura(udm));
}

}  // namespace kel::strumento
