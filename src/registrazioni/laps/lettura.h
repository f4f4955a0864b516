// The laps of a recording or a capture, and what there is to say of them.
#ifndef KEL_REGISTRAZIONI_LETTURA_H
#define KEL_REGISTRAZIONI_LETTURA_H

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "common/parole.h"
#include "laps/giri.h"
#include "laps/guida.h"
#include "laps/linea.h"
#include "laps/raccolta.h"

namespace kel_registrazioni {

/// Who has timed the laps.
enum class FonteGiri { qualunque, registratore, gps };

struct ScelteGiri {
    FonteGiri fonte = FonteGiri::qualunque;
    std::optional<Linea> linea;  ///< the finish line; else it is found
    double minimo = 10;          ///< s, of a lap
    std::string udm = "km/h";    ///< of speeds in what is said
    double fattore = 3.6;        ///< from m/s
};

/// Where a sector ends: at a line, or so many metres behind the finish line.
struct Metri {
    double metri = 0;
    std::string detto;  ///< as they were written
};
using Intermedio = std::variant<Linea, Metri>;

/// Takes what is to be said, a line at a time.
using Dillo = std::function<void(const std::string&)>;

/// Laps, and what they were driven with.
struct Lettura {
    Guida guida{{}};
    std::vector<Giro> giri;
    std::vector<double> origini;  ///< of each session: from when its times are counted, s
};

/// The laps of a capture's fixes.
/// @throws Errore  where no lap is closed: one line that says why.
Lettura giri_della_cattura(std::vector<Fix> fix, const ScelteGiri& scelte, const Parole& parole, const Dillo& dillo);

/// The laps of a recording, once all its records have been put in.
/// @throws Errore  where no lap is closed: one line that says why.
Lettura giri_della_registrazione(const RaccoltaRecord& raccolta, const ScelteGiri& scelte, const Parole& parole,
                                 const Dillo& dillo);

/// The ends of sectors as lines: those given in metres lie where the best lap has driven so far, or the first where none
/// counts, or another where that one had no fix.
/// @throws Errore  where there are no positions, for metres that the lap does not have, and where no lap had a fix.
std::vector<Linea> linee_intermedie(const Lettura& lettura, std::span<const Intermedio> intermedi, const Parole& parole,
                                    const Dillo& dillo);

/// Says that there is more than one session.
void di_sessioni(const Guida& guida, const Dillo& dillo);

}  // namespace kel_registrazioni

#endif
