// The kart circuit: its shape, and how fast a kart can be at each point of it.
#ifndef KELSIM_CIRCUITO_H
#define KELSIM_CIRCUITO_H

#include <vector>

#include "wgs84.h"

namespace kel::simulatore {

/// The circuit's place: made up, somewhere in the plain of the Po.
constexpr Geodetiche LUOGO = {44.8231, 10.4107, 62.0};
constexpr double ANTENNA_M = 1.0;  ///< of a kart's receiver above the ground

/// A point of the circuit in its own plane.
struct PuntoCircuito {
    double est = 0;      ///< m
    double nord = 0;     ///< m
    double dir_est = 0;  ///< direction of travel, unit vector
    double dir_nord = 0;
    double curvatura = 0;  ///< 1/m; above 0 in a left-hand corner
    double velocita = 0;   ///< m/s that a kart reaches here on a flying lap
};

/// A closed circuit.
class Circuito {
public:
    /// @param lunghezza  of a lap, m; the shape is the same at any length.
    explicit Circuito(double lunghezza = 1000);

    double lunghezza() const { return lunghezza_; }

    /// The point at a distance from the finish line, m; distances wrap around.
    PuntoCircuito punto(double distanza) const;

private:
    void profilo_velocita();

    double lunghezza_ = 0;
    std::vector<PuntoCircuito> punti_;  // at equal distances
};

}  // namespace kel::simulatore

#endif
