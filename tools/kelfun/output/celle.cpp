#include "output/celle.h"

namespace kel::strumento {

Cella testoOVuota(std::string_view testo) {
    return testo.empty() ? Cella() : Cella::testo(testo);
}

std::string senzaNul(std::string testo) {
    const std::size_t fine = testo.find('\0');
    if (fine != std::string::npos)
        testo.resize(fine);
    return testo;
}

Cella codiceCamera(int codice) {
    if (codice < 0)
        return {};
    return codice < 0x100 ? Cella::intero(codice) : Cella::codice(codice, 4);
}

}  // namespace kel::strumento
