#include "laps/guida.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "gps/wgs84.h"

namespace kel_registrazioni {

namespace {

constexpr double PAUSA = 600;        // s; longer, and it is another session
constexpr double BUCO_MINIMO = 1;    // s
constexpr double FERMO = 1;          // m/s; below, a receiver's direction is noise
constexpr double BASE = 10;          // m between positions that give a direction
constexpr std::size_t INTORNO = 64;  // fixes to look for them on either side
constexpr double RADIANTI = std::numbers::pi / 180;
constexpr double PASSI_METRO = 1 << 20;  // of positions: a micrometre
constexpr double PASSI_FINI = 1 << 30;   // of speeds and directions

// Sines differ in their last bit from one mathematical library to another. In whole steps the same fixes give the same numbers
// on every machine, so that of two places that are equally good for a finish line every machine takes the same.
double a_passi(double valore, double passi) {
    return std::nearbyint(valore * passi) / passi;
}

PuntoPiano posto(const VelocitaLocale& metri) {
    return {a_passi(metri.est, PASSI_METRO), a_passi(metri.nord, PASSI_METRO)};
}

PuntoPiano verso(double rotta) {
    return {a_passi(std::sin(rotta * RADIANTI), PASSI_FINI), a_passi(std::cos(rotta * RADIANTI), PASSI_FINI)};
}

}  // namespace

double distanza(const PuntoPiano& da, const PuntoPiano& a) {
    const double est = a.est - da.est;
    const double nord = a.nord - da.nord;
    return std::sqrt(est * est + nord * nord);
}

double LineaPiana::oltre(const PuntoPiano& punto) const {
    return (punto.est - centro.est) * dir_est + (punto.nord - centro.nord) * dir_nord;
}

double LineaPiana::a_destra(const PuntoPiano& punto) const {
    return (punto.est - centro.est) * dir_nord - (punto.nord - centro.nord) * dir_est;
}

Guida::Guida(std::vector<Fix> fix) : fix_(std::move(fix)), posto_valido_(fix_.size()), punti_(fix_.size()) {
    for (std::size_t i = 0; i < fix_.size(); ++i) {
        posto_valido_[i] = validi_.size();
        if (fix_[i].velocita)
            fix_[i].velocita = a_passi(*fix_[i].velocita, PASSI_FINI);
        if (fix_[i].valido)
            validi_.push_back(i);
    }
    if (!validi_.empty()) {
        latitudine_ = fix_[validi_.front()].latitudine;
        longitudine_ = fix_[validi_.front()].longitudine;
    }
    const Geodetica origine{latitudine_, longitudine_, 0};
    const Ecef o = ecef(origine);
    for (const std::size_t i : validi_) {
        const Ecef p = ecef({fix_[i].latitudine, fix_[i].longitudine, 0});
        punti_[i] = posto(velocita_locale(origine, {p.x - o.x, p.y - o.y, p.z - o.z}));
    }
    dividi_sessioni();
    misura_buco();
    misura_metri();
}

void Guida::dividi_sessioni() {
    for (std::size_t i = 0; i < fix_.size(); ++i)
        if (i == 0 || fix_[i].tempo < fix_[i - 1].tempo || fix_[i].tempo > fix_[i - 1].tempo + PAUSA)
            sessioni_.push_back(i);
}

std::size_t Guida::sessione(std::size_t fix) const {
    return static_cast<std::size_t>(std::upper_bound(sessioni_.begin(), sessioni_.end(), fix) - sessioni_.begin()) - 1;
}

// A receiver with one solution a second may lose one: that is not yet a gap.
void Guida::misura_buco() {
    std::vector<double> passi;
    for (std::size_t i = 1; i < fix_.size(); ++i)
        if (fix_[i].tempo > fix_[i - 1].tempo)
            passi.push_back(fix_[i].tempo - fix_[i - 1].tempo);
    if (passi.empty())
        return;
    const auto mezzo = passi.begin() + static_cast<std::ptrdiff_t>(passi.size() / 2);
    std::nth_element(passi.begin(), mezzo, passi.end());
    buco_ = std::max(BUCO_MINIMO, 2.5 * *mezzo);
}

// The distance comes from the receiver's speed, because the noise of positions would make it too long. Where the speed is
// not known, or there was no fix for some time, the straight line between two positions is taken.
void Guida::misura_metri() {
    metri_.resize(fix_.size());
    std::optional<std::size_t> valido;
    for (std::size_t i = 0; i < fix_.size(); ++i) {
        const bool nuova = i == 0 || sessioni_[sessione(i)] == i;
        metri_[i] = i == 0 ? 0 : metri_[i - 1];
        if (nuova)
            valido.reset();
        const double dt = nuova ? 0 : fix_[i].tempo - fix_[i - 1].tempo;
        if (!nuova && dt <= buco_ && fix_[i].velocita && fix_[i - 1].velocita) {
            metri_[i] += dt * (*fix_[i].velocita + *fix_[i - 1].velocita) / 2;
        } else if (valido && fix_[i].valido) {
            metri_[i] = std::max(metri_[i], metri_[*valido] + distanza(punti_[*valido], punti_[i]));
        }
        if (fix_[i].valido)
            valido = i;
    }
}

double Guida::metri(std::size_t sessione, double tempo) const {
    const auto da = fix_.begin() + static_cast<std::ptrdiff_t>(sessioni_[sessione]);
    const auto a = sessione + 1 < sessioni_.size() ? fix_.begin() + static_cast<std::ptrdiff_t>(sessioni_[sessione + 1])
                                                   : fix_.end();
    const auto dopo = std::lower_bound(da, a, tempo, [](const Fix& f, double t) { return f.tempo < t; });
    const auto i = static_cast<std::size_t>(dopo - fix_.begin());
    if (dopo == a)
        return metri_[i - 1];
    if (dopo == da || dopo->tempo <= std::prev(dopo)->tempo)
        return metri_[i];
    const double parte = (tempo - fix_[i - 1].tempo) / (fix_[i].tempo - fix_[i - 1].tempo);
    return metri_[i - 1] + parte * (metri_[i] - metri_[i - 1]);
}

// From the nearest position before a fix that is far enough to the nearest one behind it.
std::optional<PuntoPiano> Guida::base(std::size_t fix, double& secondi) const {
    const std::size_t posto = posto_valido_[fix];
    const std::size_t sua = sessione(fix);
    std::size_t da = posto;
    std::size_t a = posto;
    const auto lontano = [this](std::size_t i, std::size_t j) { return distanza(punti_[i], punti_[j]) >= BASE / 2; };
    while (da > 0 && posto - da < INTORNO && sessione(validi_[da - 1]) == sua && !lontano(validi_[da], fix))
        --da;
    while (a + 1 < validi_.size() && a - posto < INTORNO && sessione(validi_[a + 1]) == sua &&
           !lontano(validi_[a], fix))
        ++a;
    secondi = fix_[validi_[a]].tempo - fix_[validi_[da]].tempo;
    if (secondi <= 0)
        return std::nullopt;
    const PuntoPiano& inizio = punti_[validi_[da]];
    const PuntoPiano& fine = punti_[validi_[a]];
    return PuntoPiano{fine.est - inizio.est, fine.nord - inizio.nord};
}

std::optional<double> Guida::velocita(std::size_t fix) const {
    if (fix_[fix].velocita)
        return fix_[fix].velocita;
    double secondi = 0;
    const auto via = fix_[fix].valido ? base(fix, secondi) : std::nullopt;
    return via ? std::optional(distanza({}, *via) / secondi) : std::nullopt;
}

std::optional<PuntoPiano> Guida::direzione(std::size_t fix) const {
    if (fix_[fix].rotta && fix_[fix].velocita.value_or(0) >= FERMO)
        return verso(*fix_[fix].rotta);
    if (fix_[fix].rotta && fix_[fix].velocita)
        return std::nullopt;
    double secondi = 0;
    const auto via = fix_[fix].valido ? base(fix, secondi) : std::nullopt;
    const double lunga = via ? distanza({}, *via) : 0;
    return lunga >= BASE / 2 ? std::optional(PuntoPiano{via->est / lunga, via->nord / lunga}) : std::nullopt;
}

LineaPiana Guida::linea(const Linea& linea) const {
    const Geodetica origine{latitudine_, longitudine_, 0};
    const Ecef o = ecef(origine);
    const Ecef p = ecef({linea.latitudine, linea.longitudine, 0});
    const PuntoPiano direzione = verso(linea.rotta);
    return {posto(velocita_locale(origine, {p.x - o.x, p.y - o.y, p.z - o.z})), direzione.est, direzione.nord,
            linea.larghezza};
}

Linea Guida::linea(const PuntoPiano& centro, const PuntoPiano& direzione, double larghezza) const {
    const Geodetica origine{latitudine_, longitudine_, 0};
    const Ecef o = ecef(origine);
    const Ecef d = velocita_ecef(origine, {centro.est, centro.nord, 0});
    const Geodetica luogo = geodetica(o.x + d.x, o.y + d.y, o.z + d.z);
    return {luogo.latitudine, luogo.longitudine, VelocitaLocale{direzione.est, direzione.nord, 0}.rotta(), larghezza};
}

}  // namespace kel_registrazioni
