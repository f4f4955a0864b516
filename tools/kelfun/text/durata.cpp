#include "text/durata.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

constexpr double MINUTO = 60;
constexpr double SECONDI_MASSIMI = 1e13;  // the whole part of any time stamp

std::string due_cifre(std::int64_t numero) {
    return (numero < 10 ? "0" : "") + std::to_string(numero);
}

bool solo_cifre_e_punto(std::string_view testo) {
    return !testo.empty() && testo.find_first_not_of("0123456789.") == std::string_view::npos && testo != ".";
}

}  // namespace

std::string testo_durata(double secondi, int decimali, bool ore) {
    const double unita = std::pow(10.0, decimali);
    // Round first, in the smallest unit: 59.96 s with one decimal is 1:00.0 and not 0:60.0.
    const double contate = std::round(std::min(std::fabs(secondi), SECONDI_MASSIMI) * unita);
    const auto interi = static_cast<std::int64_t>(contate / unita);
    const double parte = std::max(0.0, (contate - static_cast<double>(interi) * unita) / unita);
    const std::int64_t minuti = interi / 60;
    std::string testo = secondi < 0 && contate > 0 ? "-" : "";
    testo += ore ? std::to_string(minuti / 60) + ":" + due_cifre(minuti % 60) : std::to_string(minuti);
    testo += ":" + due_cifre(interi % 60);
    return decimali > 0 ? testo + con_decimali(parte, decimali).substr(1) : testo;
}

std::optional<double> leggi_durata(std::string_view testo) {
    double secondi = 0;
    const auto parti = dividi(testo, ':');
    if (parti.size() > 3 || testo.ends_with(':'))
        return std::nullopt;
    for (std::size_t i = 0; i < parti.size(); ++i) {
        const std::string& parte = parti[i];
        double numero = 0;
        const bool ultima = i + 1 == parti.size();
        if (!solo_cifre_e_punto(parte) || (!ultima && parte.find('.') != std::string::npos))
            return std::nullopt;
        const auto letto = std::from_chars(parte.data(), parte.data() + parte.size(), numero, std::chars_format::fixed);
        if (letto.ec != std::errc{} || letto.ptr != parte.data() + parte.size() || numero > SECONDI_MASSIMI ||
            (i > 0 && numero >= MINUTO))
            return std::nullopt;
        secondi = secondi * MINUTO + numero;
    }
    return secondi;
}

}  // namespace kel::strumento
