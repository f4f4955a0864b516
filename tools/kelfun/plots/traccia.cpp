#include "plots/traccia.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <utility>

namespace kel::strumento {

namespace {

constexpr std::size_t FERMI_MASSIMI = 8192;   // thinned points
constexpr std::size_t CODA = 4096;            // those behind them, still to be thinned
constexpr double METRI_IN_UN_GRADO = 111195;  // of a great circle, mean radius of the Earth 6371 km
constexpr double CRESCITA_VELOCITA = std::numbers::sqrt2;

struct Tolleranza {
    double metri;
    double velocita;
};

// How far a point is from what a straight line from one to another shows there: 1 is as much as is tolerated.
double scarto(const PuntoTraccia& da, const PuntoTraccia& a, const PuntoTraccia& punto, const Tolleranza& tolleranza) {
    const double est = a.est - da.est;
    const double nord = a.nord - da.nord;
    const double lunghezza2 = est * est + nord * nord;
    const double avanti = (punto.est - da.est) * est + (punto.nord - da.nord) * nord;
    const double parte = lunghezza2 > 0 ? std::clamp(avanti / lunghezza2, 0.0, 1.0) : 0;
    const double metri = std::hypot(punto.est - da.est - parte * est, punto.nord - da.nord - parte * nord);
    const double velocita = std::fabs(punto.velocita - da.velocita - parte * (a.velocita - da.velocita));
    return std::max(metri / tolleranza.metri, velocita / tolleranza.velocita);
}

// Marks the points of a line without breaks that stay: its ends, and by halves whatever is further off than tolerated.
void segna_tenuti(std::span<const PuntoTraccia> linea, const Tolleranza& tolleranza, std::span<char> tenuti) {
    tenuti.front() = tenuti.back() = 1;
    std::vector<std::pair<std::size_t, std::size_t>> aperti = {{0, linea.size() - 1}};
    while (!aperti.empty()) {
        const auto [da, a] = aperti.back();
        aperti.pop_back();
        double massimo = 1;
        std::size_t peggiore = 0;
        for (std::size_t i = da + 1; i < a; ++i) {
            const double uno = scarto(linea[da], linea[a], linea[i], tolleranza);
            if (uno > massimo) {
                massimo = uno;
                peggiore = i;
            }
        }
        if (peggiore == 0)
            continue;
        tenuti[peggiore] = 1;
        aperti.emplace_back(da, peggiore);
        aperti.emplace_back(peggiore, a);
    }
}

bool vicini(const PuntoTraccia& punto, std::span<const PuntoTraccia> linea, const Tolleranza& tolleranza) {
    return std::all_of(linea.begin(), linea.end(),
                       [&](const PuntoTraccia& uno) { return scarto(punto, punto, uno, tolleranza) <= 1; });
}

// Thins the points from one on, which itself stays. A piece between two breaks is removed as a whole if all of it is
// where the piece before it ends: else a track of nothing but breaks would grow without bounds.
void dirada(std::vector<PuntoTraccia>& punti, std::size_t da, const Tolleranza& tolleranza) {
    std::vector<char> tenuti(punti.size());
    std::size_t ultimo = da;  // the last that stays
    for (std::size_t inizio = da; inizio < punti.size();) {
        std::size_t fine = inizio + 1;
        while (fine < punti.size() && !punti[fine].staccato)
            ++fine;
        const auto pezzo = std::span(punti).subspan(inizio, fine - inizio);
        if (inizio == da || !vicini(punti[ultimo], pezzo, tolleranza)) {
            segna_tenuti(pezzo, tolleranza, std::span(tenuti).subspan(inizio, fine - inizio));
            ultimo = fine - 1;
        }
        inizio = fine;
    }
    std::size_t dove = da;
    for (std::size_t i = da; i < punti.size(); ++i)
        if (tenuti[i] != 0)
            punti[dove++] = punti[i];
    punti.resize(dove);
}

}  // namespace

void Traccia::aggiungi(double longitudine, double latitudine, double velocita) {
    if (!std::isfinite(longitudine) || !std::isfinite(latitudine) || !std::isfinite(velocita)) {
        rotta_ = true;
        return;
    }
    if (punti_.empty()) {
        origine_longitudine_ = longitudine;
        origine_latitudine_ = latitudine;
        metri_longitudine_ = METRI_IN_UN_GRADO * std::cos(latitudine * std::numbers::pi / 180);
    }
    // East of 180 degrees the longitude continues at -180 degrees: the shorter way is the one that was driven.
    const double gradi_est = std::remainder(longitudine - origine_longitudine_, 360);
    punti_.push_back({gradi_est * metri_longitudine_, (latitudine - origine_latitudine_) * METRI_IN_UN_GRADO, velocita,
                      std::exchange(rotta_, false)});
    if (punti_.size() - fermi_ == CODA)
        riduci();
}

void Traccia::riduci() {
    // The line continues from the last thinned point.
    dirada(punti_, fermi_ == 0 ? 0 : fermi_ - 1, {metri_, velocita_});
    while (punti_.size() > FERMI_MASSIMI) {
        metri_ *= 2;
        velocita_ *= CRESCITA_VELOCITA;
        dirada(punti_, 0, {metri_, velocita_});
    }
    fermi_ = punti_.size();
}

double Traccia::tolleranza() const {
    return fermi_ == 0 ? 0 : 2 * metri_;
}

Estensione Traccia::estensione() const {
    Estensione tutto;
    for (const PuntoTraccia& punto : punti_) {  // the first of them is the origin
        tutto.ovest = std::min(tutto.ovest, punto.est);
        tutto.est = std::max(tutto.est, punto.est);
        tutto.sud = std::min(tutto.sud, punto.nord);
        tutto.nord = std::max(tutto.nord, punto.nord);
    }
    return tutto;
}

}  // namespace kel::strumento
