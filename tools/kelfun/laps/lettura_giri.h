// The laps of files, and what there is to say of them on standard error.
#ifndef KELFUN_LAPS_LETTURA_GIRI_H
#define KELFUN_LAPS_LETTURA_GIRI_H

#include <string>

#include "IFunzioni.h"
#include "captures/file_campioni.h"
#include "domain/registrazioni.h"
#include "registrazioni/laps/lettura.h"
#include "registrazioni/recordings/canali.h"

namespace kel::strumento {

/// The laps of a u-blox capture, or of a recording.
/// @throws NonTrovato  where no lap is closed: one line that says why.
Lettura leggi_cattura(const std::string& file, const ScelteGiri& scelte);
Lettura leggi_registrazione(const std::string& file_canali, const std::string& file_campioni, Disposizione disposizione,
                            const SceltaTempo& scelta_tempo, const IFunzioni& catalogo, const ScelteGiri& scelte);

/// "kelfun laps: ..." on standard error.
void dillo(const std::string& testo);

}  // namespace kel::strumento

#endif
