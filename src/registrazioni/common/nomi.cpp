#include "common/nomi.h"

namespace kel_registrazioni {

namespace {

bool lettera_o_cifra(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
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

}  // namespace kel_registrazioni
