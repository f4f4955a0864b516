// Laps out of the passages of a line, or as a logger has timed them.
#ifndef KEL_REGISTRAZIONI_GIRI_H
#define KEL_REGISTRAZIONI_GIRI_H

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "laps/guida.h"
#include "laps/passaggi.h"

namespace kel_registrazioni {

/// Only laps of the first kind count for the best.
enum class StatoGiro {
    buono,
    uscita,      ///< began before the line was passed, or from standing on it
    rientro,     ///< did not end at the line, or by standing on it
    senza_fix,   ///< the fix was lost for longer than the receiver's pace explains
    contromano,  ///< the line was passed the wrong way
    fermo        ///< stood for some seconds
};

/// "", "out", "in", "no fix", "wrong way", "stopped".
std::string_view nome(StatoGiro stato);

struct Giro {
    int numero = 0;
    std::size_t sessione = 0;
    std::optional<double> inizio, fine;  ///< s; nothing where no time is known
    std::optional<int> ms;               ///< the lap time; nothing for a lap that is not closed
    StatoGiro stato = StatoGiro::buono;
    std::vector<std::optional<int>> settori;  ///< ms
    std::optional<double> massima, minima;    ///< speed, m/s
    std::optional<double> metri;
    std::size_t campioni = 0;

    bool chiuso() const { return ms.has_value(); }
};

/// A lap between each passage and the next. Each session also has the way out before its first passage and the way in behind
/// its last. They are numbered in their order; the first closed lap is 1.
std::vector<Giro> giri(const Guida& guida, const Passaggi& passaggi);

/// The fixes of a lap whose times are known: the first, and the first behind it.
std::pair<std::size_t, std::size_t> fix_del_giro(const Giro& giro, const Guida& guida);

/// Speeds, way and fixes of laps whose times are known.
void misura(std::span<Giro> giri, const Guida& guida);

/// Sets the sector times of closed laps. The splits are taken in the order in which they are passed; the last sector ends at
/// the finish. If a lap does not pass a split, the sectors before and behind it have no time.
void dividi(std::span<Giro> giri, const Guida& guida, std::span<const Linea> intermedi);

/// The line across the track where a lap has driven so many metres; nothing where it has not, or where it had no fix.
std::optional<Linea> linea_a_distanza(const Giro& giro, const Guida& guida, double metri);

/// The fastest of the laps that count; null when none does.
const Giro* migliore(std::span<const Giro> giri);

}  // namespace kel_registrazioni

#endif
