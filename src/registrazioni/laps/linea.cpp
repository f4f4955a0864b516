#include "laps/linea.h"

#include <charconv>
#include <cmath>
#include <vector>

#include "common/numeri.h"

namespace kel_registrazioni {

namespace {

std::optional<double> leggi_reale(std::string_view testo) {
    double valore = 0;
    const char* fine = testo.data() + testo.size();
    const auto letto = std::from_chars(testo.data(), fine, valore);
    if (testo.empty() || letto.ec != std::errc() || letto.ptr != fine || !std::isfinite(valore))
        return std::nullopt;
    return valore;
}

std::string_view senza_bordi(std::string_view testo) {
    const std::size_t da = testo.find_first_not_of(" \t\n\v\f\r");
    return da == std::string_view::npos ? "" : testo.substr(da, testo.find_last_not_of(" \t\n\v\f\r") - da + 1);
}

}  // namespace

bool valida(const Linea& linea) {
    constexpr double LARGHEZZA_MASSIMA = 1000;
    return std::fabs(linea.latitudine) <= 90 && std::fabs(linea.longitudine) <= 180 && std::fabs(linea.rotta) <= 360 &&
           linea.larghezza > 0 && linea.larghezza <= LARGHEZZA_MASSIMA;
}

std::optional<Linea> leggi_linea(std::string_view testo) {
    std::vector<double> numeri;
    for (std::size_t fine = 0; fine != std::string_view::npos && numeri.size() <= 4;) {
        fine = testo.find(',');
        const auto numero = leggi_reale(senza_bordi(testo.substr(0, fine)));
        if (!numero)
            return std::nullopt;
        numeri.push_back(*numero);
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    }
    if (numeri.size() < 3 || numeri.size() > 4)
        return std::nullopt;
    Linea linea{numeri[0], numeri[1], numeri[2], numeri.size() > 3 ? numeri[3] : Linea::LARGHEZZA};
    return valida(linea) ? std::optional(linea) : std::nullopt;
}

std::string testo(const Linea& linea) {
    constexpr int DECIMALI_GRADI = 7;  // a centimetre
    std::string scritta = con_decimali(linea.latitudine, DECIMALI_GRADI) + "," +
                          con_decimali(linea.longitudine, DECIMALI_GRADI) + "," + con_decimali(linea.rotta, 1);
    return linea.larghezza == Linea::LARGHEZZA ? scritta : scritta + "," + con_decimali(linea.larghezza, 1);
}

}  // namespace kel_registrazioni
