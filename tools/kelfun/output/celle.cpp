#include "output/celle.h"

namespace kel::strumento {

Cella testo_o_vuota(std::string_view testo) {
    return testo.empty() ? Cella() : Cella::testo(testo);
}

std::string senza_nul(std::string testo) {
    const std::size_t fine = testo.find('\0');
    if (fine != std::string::npos)
        testo.resize(fine);
    return testo;
}

Cella codice_camera(int codice) {
    if (codice < 0)
        return {};
    return codice < 0x100 ? Cella::intero(codice) : Cella::codice(codice, 4);
}

}  // namespace kel::strumento
