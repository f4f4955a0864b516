// The laps of a file, and what there is to say of them on standard error.
#ifndef KELFUN_LAPS_LETTURA_GIRI_H
#define KELFUN_LAPS_LETTURA_GIRI_H

#include <optional>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "captures/file_campioni.h"
#include "domain/registrazioni.h"
#include "registrazioni/laps/giri.h"
#include "registrazioni/laps/guida.h"
#include "registrazioni/laps/linea.h"
#include "registrazioni/recordings/canali.h"

namespace kel::strumento {

/// Who has timed the laps.
enum class FonteGiri { qualunque, registratore, gps };

struct ScelteGiri {
    FonteGiri fonte = FonteGiri::qualunque;
    std::optional<Linea> linea;  ///< the finish line; else it is found
    double minimo = 10;          ///< s, of a lap
    std::string udm;             ///< of speeds
    double fattore = 1;          ///< from m/s
};

/// Laps, and what they were driven with.
struct Lettura {
    Guida guida{{}};
    std::vector<Giro> giri;
    std::vector<double> origini;  ///< of each session: from when its times are counted, s
};

/// The laps of a u-blox capture, or of a recording.
/// @throws NonTrovato  where no lap is closed: one line that says why.
Lettura leggiCattura(const std::string& file, const ScelteGiri& scelte);
Lettura leggiRegistrazione(const std::string& file_canali, const std::string& file_campioni, Disposizione disposizione,
                           const SceltaTempo& scelta_tempo, const IFunzioni& catalogo, const ScelteGiri& scelte);

/// "kelfun laps: ..." on standard error.
void dillo(const std::string& testo);

}  // namespace kel::strumento

#endif
