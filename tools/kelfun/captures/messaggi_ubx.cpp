#include "captures/messaggi_ubx.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr std::size_t TIPI_ELENCATI = 12;

// As the receivers' manuals write them.
std::string due_cifre(unsigned char valore) {
    return esadecimale(valore, 2).substr(2);
}

}  // namespace

std::string elenco_messaggi(const Registrazione& reg) {
    std::vector<s_kel_messaggi> tipi(kelRegMessaggi(reg.reg(), nullptr, 0));
    kelRegMessaggi(reg.reg(), tipi.data(), static_cast<unsigned>(tipi.size()));
    std::ranges::stable_sort(tipi, std::ranges::greater{}, &s_kel_messaggi::quanti);
    std::string testo;
    for (std::size_t i = 0; i < std::min(tipi.size(), TIPI_ELENCATI); ++i)
        testo += (i == 0 ? "" : ", ") + std::to_string(tipi[i].quanti) + " of " + due_cifre(tipi[i].classe) + " " +
                 due_cifre(tipi[i].id);
    if (tipi.size() > TIPI_ELENCATI)
        testo += " and others of " + std::to_string(tipi.size() - TIPI_ELENCATI) + " more kinds";
    return testo;
}

}  // namespace kel::strumento
