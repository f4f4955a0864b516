// A kart on the circuit, as its GPS receiver sees it: one solution after the other.
#ifndef KELSIM_KART_H
#define KELSIM_KART_H

#include <cstdint>

#include "circuito.h"
#include "wgs84.h"

namespace kel::simulatore {

/// One solution of the receiver.
struct Istante {
    std::uint32_t settimana = 0;     ///< GPS week
    std::uint32_t settimana_ms = 0;  ///< its time, ms
    double secondi = 0;              ///< since the start
    double distanza = 0;             ///< along the circuit from the first crossing of the line, m; before it below 0
    double andatura = 0;             ///< true speed, m/s
    double curvatura = 0;            ///< of the circuit there, 1/m; above 0 to the left
    Vettore posizione;               ///< east, north, up in the circuit's plane, m
    Vettore velocita;                ///< likewise, m/s
    unsigned fix = 3;                ///< 3: solved in space; 2: in the plane; 0: none
    unsigned satelliti = 9;
    std::uint32_t accuratezza_posizione = 0;  ///< cm
    std::uint32_t accuratezza_velocita = 0;   ///< cm/s
};

/// When a drive starts, and how.
struct Partenza {
    std::uint32_t settimana = 2372;          ///< GPS week; the made-up day is 28 June 2025
    std::uint32_t settimana_ms = 554400000;  ///< its time, ms: Saturday, 10:00 of GPS time
    double ritmo = 1;                        ///< share of its possible speed that this kart has
};

/// Drives laps: from a standing start before the line to a little way behind it, no two laps equally fast. The same
/// arguments give the same solutions.
class Kart {
public:
    /// @param giri       closed laps, at least 1; half-way through the middle lap the fix is lost for some seconds.
    /// @param frequenza  solutions a second, 1 to 25.
    /// @param seme       seed of the receiver's noise and of the driver's pace.
    Kart(unsigned giri, unsigned frequenza, std::uint64_t seme);
    /// Likewise on another circuit, at another time.
    Kart(const Circuito& circuito, const Partenza& partenza, unsigned giri, unsigned frequenza, std::uint64_t seme);

    /// The next solution; false when the drive is over.
    bool prossimo(Istante& istante);

    /// Length of a lap, m.
    double lunghezza_giro() const { return circuito_.lunghezza(); }

private:
    double rumore();
    double passo() const;
    void ricezione(Istante& istante);

    Circuito circuito_;
    Partenza partenza_;
    unsigned frequenza_;
    std::uint64_t seme_;
    std::uint64_t stato_;    // of the noise
    double arrivo_;          // m, where the drive ends
    double perdita_da_;      // m, where the fix begins to go
    double distanza_;        // m from the line
    double velocita_ = 0;    // m/s
    double perdita_s_ = -1;  // s since then; below 0 = not yet
    std::uint64_t passi_ = 0;
    Vettore errore_;  // of the position; drifts slowly
    Istante ultimo_;  // the last one that had a fix
};

}  // namespace kel::simulatore

#endif
