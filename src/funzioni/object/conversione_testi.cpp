#include "object/conversione_testi.h"

namespace kel {

std::string in_8(const std::string& testo) {
    return testo;
}

std::string da_8(const std::string& testo) {
    return testo;
}

std::string da_8(const char* testo) {
    return testo;
}

void aggiungi_da_8(std::string& a, const char* testo) {
    a += testo;
}

}  // namespace kel
