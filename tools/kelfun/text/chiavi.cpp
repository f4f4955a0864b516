#include "text/chiavi.h"

#include "kelregistrazioni.h"

namespace kel::strumento {

namespace {

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
    const std::string intero(testo);
    std::string uscita(intero.size() + 1, '\0');
    uscita.resize(kelRegChiave(intero.c_str(), uscita.data(), uscita.size()));
    return uscita;
}

std::string misura(std::string_view udm) {
    return kelRegMisura(std::string(udm).c_str());
}

std::string chiave_con_udm(std::string_view nome, std::string_view udm) {
    const std::string una = chiave(nome);
    return misura_in_fondo(una, udm) ? una : una + "_" + chiave_misura(udm);
}

std::string titolo_con_udm(std::string_view nome, std::string_view udm) {
    return std::string(nome) + (misura_in_fondo(chiave(nome), udm) ? "" : " " + misura(udm));
}

}  // namespace kel::strumento
