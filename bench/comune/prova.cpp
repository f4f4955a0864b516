#include "comune/prova.h"

namespace prova {

const std::vector<std::uint16_t>& ordine() {
    static const std::vector<std::uint16_t> posti = [] {
        constexpr std::size_t lunghezza = 65536;  // a power of two: the walk starts over with a mask
        std::vector<std::uint16_t> fatti(lunghezza);
        Casuale casuale(7);
        for (std::uint16_t& posto : fatti)
            posto = static_cast<std::uint16_t>(sotto(casuale, QUANTI_INGRESSI));
        return fatti;
    }();
    return posti;
}

std::string nome_serie(const std::string& riga, Ruolo ruolo, const std::string& nome) {
    const char* const ruoli[] = {"ours", "peer", "limit"};
    return riga + "|" + ruoli[static_cast<int>(ruolo)] + "|" + nome;
}

}  // namespace prova
