#include "laps/linea.h"

#include <charconv>
#include <cmath>
#include <vector>

#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

std::optional<double> leggiReale(std::string_view testo) {
    double valore = 0;
    const char* fine = testo.data() + testo.size();
    const auto letto = std::from_chars(testo.data(), fine, valore);
    if (testo.empty() || letto.ec != std::errc() || letto.ptr != fine || !std::isfinite(valore))
        return std::nullopt;
    return valore;
}

}  // namespace

std::optional<Linea> leggiLinea(std::string_view testo) {
    std::vector<double> numeri;
    for (const std::string& parte : dividi(testo, ',')) {
        const auto numero = leggiReale(senzaBordi(parte));
        if (!numero)
            return std::nullopt;
        numeri.push_back(*numero);
    }
    if (numeri.size() < 3 || numeri.size() > 4 || testo.back() == ',')
        return std::nullopt;
    Linea linea{numeri[0], numeri[1], numeri[2], numeri.size() > 3 ? numeri[3] : Linea::LARGHEZZA};
    constexpr double LARGHEZZA_MASSIMA = 1000;
    if (std::fabs(linea.latitudine) > 90 || std::fabs(linea.longitudine) > 180 || std::fabs(linea.rotta) > 360 ||
        !(linea.larghezza > 0) || linea.larghezza > LARGHEZZA_MASSIMA)
        return std::nullopt;
    return linea;
}

std::string testo(const Linea& linea) {
    constexpr int DECIMALI_GRADI = 7;  // a centimetre
    std::string scritta = conDecimali(linea.latitudine, DECIMALI_GRADI) + "," +
                          conDecimali(linea.longitudine, DECIMALI_GRADI) + "," + conDecimali(linea.rotta, 1);
    return linea.larghezza == Linea::LARGHEZZA ? scritta : scritta + "," + conDecimali(linea.larghezza, 1);
}

}  // namespace kel::strumento
