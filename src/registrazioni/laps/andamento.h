// A lap over its distance, so that laps can be compared place by place.
#ifndef KEL_REGISTRAZIONI_ANDAMENTO_H
#define KEL_REGISTRAZIONI_ANDAMENTO_H

#include <optional>
#include <vector>

#include "laps/giri.h"
#include "laps/guida.h"

namespace kel_registrazioni {

struct PuntoGiro {
    double metri = 0;                ///< behind the line
    double secondi = 0;              ///< since the line
    std::optional<double> velocita;  ///< m/s
    bool staccato = false;           ///< the way from the point before is not known
};

/// A closed lap from line to line. Laps driven a little wider or tighter are stretched to one length, so that the same
/// distance is the same place. If the fix was lost for a while, only that part is stretched, because the rest has been
/// measured.
/// @param lunghezza  m.
std::vector<PuntoGiro> andamento(const Giro& giro, const Guida& guida, double lunghezza);

}  // namespace kel_registrazioni

#endif
