// The way that was driven: fixes on a plane in metres, with their direction, speed and distance.
#ifndef KEL_REGISTRAZIONI_GUIDA_H
#define KEL_REGISTRAZIONI_GUIDA_H

#include <cstddef>
#include <optional>
#include <vector>

#include "laps/fix.h"
#include "laps/linea.h"

namespace kel_registrazioni {

/// Metres east and north of the first fix that has a position.
struct PuntoPiano {
    double est = 0;
    double nord = 0;
};

/// From one to the other, m.
double distanza(const PuntoPiano& da, const PuntoPiano& a);

/// A line on the same plane.
struct LineaPiana {
    PuntoPiano centro;
    double dir_est = 0;  ///< direction in which it is passed, unit vector
    double dir_nord = 0;
    double larghezza = 0;

    /// How far before (below 0) or behind the line a point is, and how far to its right.
    double oltre(const PuntoPiano& punto) const;
    double a_destra(const PuntoPiano& punto) const;
};

/// Positions are in whole steps of a micrometre, so that every machine finds the same laps.
class Guida {
public:
    /// Time that runs backwards begins a new session, and so does a pause of more than ten minutes.
    explicit Guida(std::vector<Fix> fix);

    const std::vector<Fix>& fix() const { return fix_; }
    /// The fixes that have a position, by their place among all.
    const std::vector<std::size_t>& validi() const { return validi_; }
    /// Sessions, as the first fix of each; the end of the last is the number of fixes.
    const std::vector<std::size_t>& sessioni() const { return sessioni_; }
    /// The session of a fix.
    std::size_t sessione(std::size_t fix) const;

    /// Where a fix is; only for those with a position.
    PuntoPiano punto(std::size_t fix) const { return punti_[fix]; }
    /// Speed, m/s: the receiver's, or else what the positions around it give.
    std::optional<double> velocita(std::size_t fix) const;
    /// Direction of travel as a unit vector, likewise; nothing while standing.
    std::optional<PuntoPiano> direzione(std::size_t fix) const;
    /// The way from the first fix to this one, m.
    double metri(std::size_t fix) const { return metri_[fix]; }
    /// The way to a moment of a session.
    double metri(std::size_t sessione, double tempo) const;

    /// If more seconds than this lie between two fixes with a position, the way between them is not known.
    double buco() const { return buco_; }

    LineaPiana linea(const Linea& linea) const;
    /// A point and a direction of this plane as a line on the map.
    Linea linea(const PuntoPiano& centro, const PuntoPiano& direzione, double larghezza) const;

private:
    void dividi_sessioni();
    void misura_buco();
    void misura_metri();
    std::optional<PuntoPiano> base(std::size_t fix, double& secondi) const;

    std::vector<Fix> fix_;
    std::vector<std::size_t> validi_;
    std::vector<std::size_t> posto_valido_;  // of each fix: how many with a position come before it
    std::vector<std::size_t> sessioni_;
    std::vector<PuntoPiano> punti_;
    std::vector<double> metri_;
    double latitudine_ = 0;  // of the plane's origin
    double longitudine_ = 0;
    double buco_ = 1;
};

}  // namespace kel_registrazioni

#endif
