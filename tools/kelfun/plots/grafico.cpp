#include "plots/grafico.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kel::strumento {

namespace {

constexpr std::size_t PUNTI_MASSIMI = 16384;  // several for every dot of a wide screen
constexpr std::size_t GRUPPO = 8;             // points that give two, and a break
constexpr double METRI_IN_UN_GRADO = 111195;  // of a great circle, mean radius of the Earth 6371 km

}  // namespace

void Serie::aggiungi(double tempo, std::optional<double> valore) {
    const bool presente = valore && std::isfinite(*valore);
    if (!presente && (punti_.empty() || !punti_.back().presente))
        return;
    if (punti_.size() >= PUNTI_MASSIMI)
        dirada();
    if (!presente) {
        punti_.push_back({tempo, 0, false});
        return;
    }
    const bool primo = vuota();
    minimo_ = primo ? *valore : std::min(minimo_, *valore);
    massimo_ = primo ? *valore : std::max(massimo_, *valore);
    punti_.push_back({tempo, *valore, true});
}

void Serie::dirada() {
    std::vector<Punto> tenuti;
    for (std::size_t da = 0; da < punti_.size(); da += GRUPPO) {
        const std::size_t a = std::min(da + GRUPPO, punti_.size());
        const Punto* minimo = nullptr;
        const Punto* massimo = nullptr;
        const Punto* rotto = nullptr;
        for (std::size_t i = da; i < a; ++i) {
            const Punto& punto = punti_[i];
            if (!punto.presente)
                rotto = &punto;
            else if (minimo == nullptr)
                minimo = massimo = &punto;
            else if (punto.valore < minimo->valore)
                minimo = &punto;
            else if (punto.valore >= massimo->valore)
                massimo = &punto;
        }
        std::vector<const Punto*> scelti = {minimo, massimo == minimo ? nullptr : massimo, rotto};
        std::erase(scelti, nullptr);
        std::sort(scelti.begin(), scelti.end());
        for (const Punto* punto : scelti)
            tenuti.push_back(*punto);
    }
    punti_ = std::move(tenuti);
}

void Traccia::aggiungi(double longitudine, double latitudine, double velocita) {
    if (saltati_++ % passo_ != 0)
        return;
    if (punti_.empty()) {
        origine_longitudine_ = longitudine;
        origine_latitudine_ = latitudine;
        metri_longitudine_ = METRI_IN_UN_GRADO * std::cos(latitudine * std::numbers::pi / 180);
    }
    if (punti_.size() >= PUNTI_MASSIMI)
        dirada();
    punti_.push_back({(longitudine - origine_longitudine_) * metri_longitudine_,
                      (latitudine - origine_latitudine_) * METRI_IN_UN_GRADO, velocita, true});
}

void Traccia::interrompi() {
    if (!punti_.empty() && punti_.back().presente)
        punti_.push_back({});
}

void Traccia::dirada() {
    passo_ *= 2;
    std::vector<PuntoTraccia> tenuti;
    bool tieni = true;
    for (const PuntoTraccia& punto : punti_) {
        if (punto.presente ? tieni : !tenuti.empty() && tenuti.back().presente)
            tenuti.push_back(punto);
        if (punto.presente)
            tieni = !tieni;
    }
    punti_ = std::move(tenuti);
}

double Grafico::inizio() const {
    double primo = 0;
    bool trovato = false;
    for (const Pannello& pannello : pannelli)
        if (!pannello.serie.vuota()) {
            primo =
                trovato ? std::min(primo, pannello.serie.punti().front().tempo) : pannello.serie.punti().front().tempo;
            trovato = true;
        }
    return primo;
}

double Grafico::fine() const {
    double ultimo = inizio();
    for (const Pannello& pannello : pannelli)
        for (const Punto& punto : pannello.serie.punti())
            ultimo = std::max(ultimo, punto.tempo);
    return ultimo > inizio() ? ultimo : inizio() + 1;
}

}  // namespace kel::strumento
