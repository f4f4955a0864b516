#include "circuito.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kel::simulatore {

namespace {

constexpr double VELOCITA_MASSIMA = 25.0;        // m/s; 90 km/h
constexpr double ACCELERAZIONE_LATERALE = 11.0;  // m/s2; hard tyres on dry asphalt
constexpr double ACCELERAZIONE = 2.5;            // m/s2
constexpr double FRENATA = 8.0;                  // m/s2

struct Vertice {
    double est, nord;
};

// Control points of a closed uniform cubic B-spline: its curvature is continuous, as a driven line's is. A straight
// along the south, a corner in two pieces, an S, a hairpin in the north-east, a chicane and two left-handers back to
// the line.
constexpr Vertice VERTICI[] = {
    {0, 0},     {60, 0},    {120, 0},   {180, 0},   {240, 0},   {262, 14},  {262, 44},
    {240, 62},  {200, 66},  {172, 84},  {170, 114}, {196, 136}, {228, 160}, {232, 192},
    {212, 206}, {190, 196}, {150, 168}, {112, 150}, {104, 120}, {96, 88},   {66, 84},
    {40, 108},  {14, 146},  {-24, 158}, {-50, 136}, {-56, 96},  {-60, 50},  {-48, 6},
};
constexpr std::size_t NUM_VERTICI = std::size(VERTICI);

// The spline at a parameter from 0 to NUM_VERTICI, with its first two derivatives.
struct PuntoSpline {
    double p[2], d[2], dd[2];
};

PuntoSpline spline(double parametro) {
    const double intero = std::floor(parametro);
    const double t = parametro - intero;
    const double pesi[3][4] = {
        {(1 - t) * (1 - t) * (1 - t) / 6, (3 * t * t * t - 6 * t * t + 4) / 6,
         (-3 * t * t * t + 3 * t * t + 3 * t + 1) / 6, t * t * t / 6},
        {-(1 - t) * (1 - t) / 2, (3 * t * t - 4 * t) / 2, (-3 * t * t + 2 * t + 1) / 2, t * t / 2},
        {1 - t, 3 * t - 2, -3 * t + 1, t},
    };
    PuntoSpline punto{};
    for (std::size_t i = 0; i < 4; ++i) {
        const Vertice& v = VERTICI[(static_cast<std::size_t>(intero) + i) % NUM_VERTICI];
        const double xy[2] = {v.est, v.nord};
        for (int asse = 0; asse < 2; ++asse) {
            punto.p[asse] += pesi[0][i] * xy[asse];
            punto.d[asse] += pesi[1][i] * xy[asse];
            punto.dd[asse] += pesi[2][i] * xy[asse];
        }
    }
    return punto;
}

}  // namespace

Circuito::Circuito(double lunghezza) : lunghezza_(lunghezza) {
    // Length along the curve at many parameters, then points at equal lengths.
    constexpr std::size_t FINEZZA = 20000;
    std::vector<double> percorso(FINEZZA + 1, 0.0);
    for (std::size_t i = 0; i < FINEZZA; ++i) {
        const PuntoSpline a = spline(NUM_VERTICI * (static_cast<double>(i) / FINEZZA));
        const PuntoSpline b = spline(NUM_VERTICI * (static_cast<double>(i + 1) / FINEZZA));
        const double dx = b.p[0] - a.p[0];
        const double dy = b.p[1] - a.p[1];
        percorso[i + 1] = percorso[i] + std::sqrt(dx * dx + dy * dy);
    }
    const double scala = lunghezza_ / percorso.back();
    constexpr std::size_t PUNTI = 2000;
    std::size_t i = 0;
    for (std::size_t n = 0; n < PUNTI; ++n) {
        const double voluto = percorso.back() * (static_cast<double>(n) / PUNTI);
        while (percorso[i + 1] <= voluto)
            ++i;
        const double frazione = (voluto - percorso[i]) / (percorso[i + 1] - percorso[i]);
        const PuntoSpline s = spline(NUM_VERTICI * ((static_cast<double>(i) + frazione) / FINEZZA));
        const double passo = std::sqrt(s.d[0] * s.d[0] + s.d[1] * s.d[1]);
        PuntoCircuito punto;
        punto.est = s.p[0] * scala;
        punto.nord = s.p[1] * scala;
        punto.dir_est = s.d[0] / passo;
        punto.dir_nord = s.d[1] / passo;
        punto.curvatura = (s.d[0] * s.dd[1] - s.d[1] * s.dd[0]) / (passo * passo * passo) / scala;
        punti_.push_back(punto);
    }
    profilo_velocita();
}

// The grip in the corners limits the speed; engine and brakes limit its change along the way. Two rounds are computed,
// because the speed at the end of a lap is that at its beginning.
void Circuito::profilo_velocita() {
    const std::size_t n = punti_.size();
    const double passo = lunghezza_ / static_cast<double>(n);
    for (PuntoCircuito& p : punti_)
        p.velocita =
            std::min(VELOCITA_MASSIMA, std::sqrt(ACCELERAZIONE_LATERALE / std::max(std::fabs(p.curvatura), 1e-9)));
    for (std::size_t i = 0; i < 2 * n; ++i) {
        const double v = punti_[i % n].velocita;
        double& dopo = punti_[(i + 1) % n].velocita;
        dopo = std::min(dopo, std::sqrt(v * v + 2 * ACCELERAZIONE * passo));
    }
    for (std::size_t i = 2 * n; i-- > 0;) {
        const double v = punti_[(i + 1) % n].velocita;
        double& prima = punti_[i % n].velocita;
        prima = std::min(prima, std::sqrt(v * v + 2 * FRENATA * passo));
    }
}

PuntoCircuito Circuito::punto(double distanza) const {
    const double giri = distanza / lunghezza_;
    const double indice = (giri - std::floor(giri)) * static_cast<double>(punti_.size());
    const auto primo = static_cast<std::size_t>(indice) % punti_.size();
    const PuntoCircuito& a = punti_[primo];
    const PuntoCircuito& b = punti_[(primo + 1) % punti_.size()];
    const double f = indice - std::floor(indice);
    const auto tra = [f](double x, double y) { return x + f * (y - x); };
    return {tra(a.est, b.est),           tra(a.nord, b.nord),           tra(a.dir_est, b.dir_est),
            tra(a.dir_nord, b.dir_nord), tra(a.curvatura, b.curvatura), tra(a.velocita, b.velocita)};
}

}  // namespace kel::simulatore
