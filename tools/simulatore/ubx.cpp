#include "ubx.h"

#include <cmath>

namespace kel::simulatore {

void aggiungi(std::string& byte, std::uint32_t valore, int quanti) {
    for (int i = 0; i < quanti; ++i, valore >>= 8)
        byte += static_cast<char>(valore & 0xFF);
}

std::uint32_t intero(double valore) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(valore)));
}

std::string messaggio_ubx(unsigned classe, unsigned id, const std::string& dati) {
    std::string corpo;
    aggiungi(corpo, classe, 1);
    aggiungi(corpo, id, 1);
    aggiungi(corpo, static_cast<std::uint32_t>(dati.size()), 2);
    corpo += dati;
    unsigned a = 0;
    unsigned b = 0;
    for (const char c : corpo) {
        a = (a + static_cast<unsigned char>(c)) & 0xFF;
        b = (b + a) & 0xFF;
    }
    std::string tutto = "\xB5\x62" + corpo;
    aggiungi(tutto, a, 1);
    aggiungi(tutto, b, 1);
    return tutto;
}

}  // namespace kel::simulatore
