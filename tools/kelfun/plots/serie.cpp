#include "plots/serie.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace kel::strumento {

namespace {

constexpr std::size_t TRATTI = 4096;  // several for every dot of a wide screen, or one at least
constexpr std::size_t A_TRATTO = 4;   // first, least, greatest, last
constexpr std::size_t PUNTI_MASSIMI = TRATTI * A_TRATTO;

}  // namespace

// Doubling the width halves the quotient without rounding, so that two neighbouring stretches always become one.
double Serie::numero_tratto(double x) const {
    return std::max(std::floor((x - punti_.front().x) / tratto_), numero_ultimo_);
}

void Serie::aggiungi(double x, std::optional<double> valore) {
    if (!valore || !std::isfinite(*valore)) {
        rotta_ = true;
        return;
    }
    minimo_ = punti_.empty() ? *valore : std::min(minimo_, *valore);
    massimo_ = punti_.empty() ? *valore : std::max(massimo_, *valore);
    const Punto punto{x, *valore, std::exchange(rotta_, false)};
    if (tratto_ == 0 && punti_.size() == PUNTI_MASSIMI) {
        // The values so far fill half of the stretches. The width is never 0, however close they are.
        tratto_ = std::max((x - punti_.front().x) / (TRATTI * 0.5), std::numeric_limits<double>::min());
        raggruppa();
    }
    if (tratto_ == 0) {
        punti_.push_back(punto);
        return;
    }
    double numero = numero_tratto(x);
    while (numero >= TRATTI) {
        tratto_ *= 2;
        raggruppa();
        numero = numero_tratto(x);
    }
    accoda(punto, numero);
}

// A point in the stretch of its number, the last one or one behind it.
void Serie::accoda(const Punto& punto, double numero) {
    if (numero != numero_ultimo_) {
        numero_ultimo_ = numero;
        ultimo_ = punti_.size();
    }
    punti_.push_back(punto);
    if (punti_.size() - ultimo_ > A_TRATTO)
        chiudi_tratto(ultimo_);
}

// All points into stretches of the width that now holds.
void Serie::raggruppa() {
    const std::vector<Punto> prima = std::exchange(punti_, {});
    const double origine = prima.front().x;
    punti_.reserve(PUNTI_MASSIMI);
    ultimo_ = 0;
    numero_ultimo_ = 0;
    for (const Punto& punto : prima)
        accoda(punto, std::max(std::floor((punto.x - origine) / tratto_), numero_ultimo_));
}

// Reduces the points from one on to their first, least, greatest and last. A break before a point that is removed moves
// to the next one that stays.
void Serie::chiudi_tratto(std::size_t da) {
    const auto inizio = punti_.begin() + static_cast<std::ptrdiff_t>(da);
    const auto minore = [](const Punto& a, const Punto& b) { return a.valore < b.valore; };
    const auto [minimo, massimo] = std::minmax_element(inizio, punti_.end(), minore);
    const std::array tenuti = {inizio, minimo, massimo, punti_.end() - 1};
    bool staccato = false;
    auto dove = inizio;
    for (auto punto = inizio; punto != punti_.end(); ++punto) {
        staccato = staccato || punto->staccato;
        if (std::find(tenuti.begin(), tenuti.end(), punto) == tenuti.end())
            continue;
        *dove = *punto;
        dove++->staccato = std::exchange(staccato, false);
    }
    punti_.erase(dove, punti_.end());
}

}  // namespace kel::strumento
