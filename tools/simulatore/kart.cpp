#include "kart.h"

#include <algorithm>
#include <cmath>

#include "orologio.h"

namespace kel::simulatore {

namespace {

constexpr double RINCORSA = 40.0;               // m before the line, where the kart starts from rest
constexpr double USCITA = 60.0;                 // m behind the line, where the recording ends
constexpr double ACCELERAZIONE_PARTENZA = 3.0;  // m/s2
constexpr double TRATTO = 200.0;                // m over which the driver's pace changes
constexpr double SIGMA_VELOCITA = 0.04;         // m/s, of each solution on its own

// The position's error drifts over minutes, as a receiver's under an open sky does: from one lap to the next it changes
// by a decimetre, so that lap times from positions are good to a few milliseconds.
constexpr double SIGMA_POSIZIONE = 0.25;  // m
constexpr double TEMPO_POSIZIONE = 900;   // s

// splitmix64: the number that belongs to a state, uniform from 0 to 1.
double uniforme(std::uint64_t stato) {
    std::uint64_t z = stato;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    z ^= z >> 31;
    return static_cast<double>(z >> 11) / 9007199254740992.0;  // 2 to the power of 53
}
constexpr std::uint64_t PASSO_SPLITMIX = 0x9E3779B97F4A7C15u;

// In laps from the line: half-way through the middle lap.
double meta_del_giro_di_mezzo(unsigned giri) {
    const unsigned giri_interi = giri / 2;
    return giri_interi + 0.5;
}

}  // namespace

Kart::Kart(unsigned giri, unsigned frequenza, std::uint64_t seme)
    : Kart(Circuito(), Partenza(), giri, frequenza, seme) {}

Kart::Kart(const Circuito& circuito, const Partenza& partenza, unsigned giri, unsigned frequenza, std::uint64_t seme)
    : circuito_(circuito),
      partenza_(partenza),
      frequenza_(frequenza),
      seme_(seme),
      stato_(seme),
      arrivo_(giri * circuito_.lunghezza() + USCITA),
      perdita_da_(meta_del_giro_di_mezzo(giri) * circuito_.lunghezza()),
      distanza_(-RINCORSA) {}

// Nearly normal, mean 0 and deviation 1: the sum of twelve uniform numbers of splitmix64, less 6. It uses no function
// of the mathematics library, so that every machine gets the same numbers.
double Kart::rumore() {
    double somma = -6.0;
    for (int i = 0; i < 12; ++i) {
        stato_ += PASSO_SPLITMIX;
        somma += uniforme(stato_);
    }
    return somma;
}

// The part of the possible speed that the driver uses: more from lap to lap, and a little more or less from stretch to
// stretch. Each stretch has a random number of its own; between the stretches the pace changes evenly.
double Kart::passo() const {
    const double tratti = (distanza_ + RINCORSA) / TRATTO;
    const double intero = std::floor(tratti);
    const auto di_tratto = [this](double n) {
        const auto numero = static_cast<std::uint64_t>(n) + 1;
        return 1.0 - 0.03 / (1.0 + n / 5.0) - 0.03 * uniforme(~seme_ + numero * PASSO_SPLITMIX);
    };
    const double prima = di_tratto(intero);
    return prima + (tratti - intero) * (di_tratto(intero + 1) - prima);
}

bool Kart::prossimo(Istante& istante) {
    if (distanza_ >= arrivo_)
        return false;
    const double dt = 1.0 / frequenza_;
    istante = Istante();
    const std::uint64_t ora_ms = partenza_.settimana_ms + (passi_ * 1000 + frequenza_ / 2) / frequenza_;
    istante.settimana = static_cast<std::uint32_t>(partenza_.settimana + ora_ms / SETTIMANA_MS);
    istante.settimana_ms = static_cast<std::uint32_t>(ora_ms % SETTIMANA_MS);
    istante.secondi = static_cast<double>(passi_) / frequenza_;
    istante.distanza = distanza_;
    istante.andatura = velocita_;

    const PuntoCircuito punto = circuito_.punto(distanza_);
    istante.curvatura = punto.curvatura;
    const double decadimento = dt / TEMPO_POSIZIONE;
    const double spinta = SIGMA_POSIZIONE * std::sqrt(2.0 * decadimento);
    for (double* errore : {&errore_.x, &errore_.y, &errore_.z})
        *errore += spinta * rumore() - decadimento * *errore;
    istante.posizione = {punto.est + errore_.x, punto.nord + errore_.y, ANTENNA_M + errore_.z};
    istante.velocita = {punto.dir_est * velocita_ + SIGMA_VELOCITA * rumore(),
                        punto.dir_nord * velocita_ + SIGMA_VELOCITA * rumore(), SIGMA_VELOCITA * rumore()};
    if (perdita_s_ < 0 && distanza_ >= perdita_da_)
        perdita_s_ = 0;
    ricezione(istante);

    // To the next solution: as fast as the circuit allows, from a standing start.
    ++passi_;
    velocita_ = std::min(punto.velocita * passo() * partenza_.ritmo, velocita_ + ACCELERAZIONE_PARTENZA * dt);
    distanza_ += std::max(velocita_, 0.5) * dt;
    if (perdita_s_ >= 0)
        perdita_s_ += dt;
    return true;
}

// Half-way through the middle lap the kart passes below trees: satellites are lost, then the fix; both come back later.
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
