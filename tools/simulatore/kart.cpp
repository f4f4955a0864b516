#include "kart.h"

#include <algorithm>
#include <cmath>

namespace kel::simulatore {

namespace {

constexpr std::uint32_t INIZIO_MS = 554400000;  // Saturday, 10:00 of GPS time
constexpr double ACCELERAZIONE_PARTENZA = 3.0;  // m/s2
constexpr double SIGMA_POSIZIONE = 0.35;        // m, of the drifting error
constexpr double TEMPO_POSIZIONE = 20.0;        // s over which it drifts
constexpr double SIGMA_VELOCITA = 0.04;         // m/s, of each solution on its own

// In laps from the start: half-way through the middle lap.
double meta_del_giro_di_mezzo(unsigned giri) {
    const unsigned giri_interi = giri / 2;
    return giri_interi + 0.5;
}

}  // namespace

Kart::Kart(unsigned giri, unsigned frequenza, std::uint64_t seme)
    : frequenza_(frequenza),
      stato_(seme),
      traguardo_(giri * circuito_.lunghezza()),
      perdita_da_(meta_del_giro_di_mezzo(giri) * circuito_.lunghezza()) {}

// Nearly normal, mean 0 and deviation 1: the sum of twelve uniform numbers of splitmix64. No function of the
// mathematics library takes part, so that every machine draws the same.
double Kart::rumore() {
    double somma = -6.0;
    for (int i = 0; i < 12; ++i) {
        stato_ += 0x9E3779B97F4A7C15u;
        std::uint64_t z = stato_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        z ^= z >> 31;
        somma += static_cast<double>(z >> 11) / 9007199254740992.0;  // 2 to the power of 53
    }
    return somma;
}

bool Kart::prossimo(Istante& istante) {
    if (distanza_ >= traguardo_)
        return false;
    const double dt = 1.0 / frequenza_;
    istante = Istante();
    istante.settimana_ms = INIZIO_MS + passi_ * 1000 / frequenza_;
    istante.secondi = passi_ * dt;
    istante.distanza = distanza_;
    istante.andatura = velocita_;

    const PuntoCircuito punto = circuito_.punto(distanza_);
    istante.curvatura = punto.curvatura;
    const double decadimento = dt / TEMPO_POSIZIONE;
    const double spinta = SIGMA_POSIZIONE * std::sqrt(2.0 * decadimento);
    for (double* errore : {&errore_.x, &errore_.y, &errore_.z})
        *errore += spinta * rumore() - decadimento * *errore;
    istante.posizione = {punto.est + errore_.x, punto.nord + errore_.y, 1.0 + errore_.z};
    istante.velocita = {punto.dir_est * velocita_ + SIGMA_VELOCITA * rumore(),
                        punto.dir_nord * velocita_ + SIGMA_VELOCITA * rumore(), SIGMA_VELOCITA * rumore()};
    if (perdita_s_ < 0 && distanza_ >= perdita_da_)
        perdita_s_ = 0;
    ricezione(istante);

    // On to the next one: as fast as the circuit allows, from rest.
    ++passi_;
    velocita_ = std::min(punto.velocita, velocita_ + ACCELERAZIONE_PARTENZA * dt);
    distanza_ += std::max(velocita_, 0.5) * dt;
    if (perdita_s_ >= 0)
        perdita_s_ += dt;
    return true;
}

// Half-way through the middle lap the kart passes below trees: satellites go, then the fix; they come back later.
void Kart::ricezione(Istante& istante) {
    struct Fase {
        double fino_a;  // s since the loss began
        unsigned fix, satelliti;
        std::uint32_t posizione, velocita;  // accuracies, cm and cm/s
    };
    constexpr Fase FASI[] = {
        {1.0, 3, 5, 600, 45},     {2.0, 2, 3, 2100, 180}, {3.0, 0, 0, 4800, 420}, {4.0, 0, 0, 9600, 800},
        {5.0, 0, 0, 19200, 1500}, {6.0, 2, 3, 3300, 260}, {7.5, 3, 5, 800, 60},   {9.0, 3, 7, 320, 38},
    };
    const Fase* fase = nullptr;
    if (perdita_s_ >= 0)
        for (const Fase& f : FASI)
            if (fase == nullptr && perdita_s_ < f.fino_a)
                fase = &f;
    istante.accuratezza_posizione = static_cast<std::uint32_t>(150.0 + 10.0 * std::fabs(rumore()));
    istante.accuratezza_velocita = static_cast<std::uint32_t>(28.0 + 3.0 * std::fabs(rumore()));
    if (fase != nullptr) {
        istante.fix = fase->fix;
        istante.satelliti = fase->satelliti;
        istante.accuratezza_posizione = fase->posizione;
        istante.accuratezza_velocita = fase->velocita;
    }
    if (istante.fix == 0) {  // the receiver repeats what it knew last
        istante.posizione = ultimo_.posizione;
        istante.velocita = ultimo_.velocita;
    } else {
        ultimo_ = istante;
    }
}

}  // namespace kel::simulatore
