// What a user can ask of a plot.
#ifndef KELFUN_PLOTS_OPZIONI_GRAFICO_H
#define KELFUN_PLOTS_OPZIONI_GRAFICO_H

#include <optional>
#include <string>

#include "cli/opzioni.h"
#include "plots/percorso.h"

namespace kel::strumento {

struct SceltaGrafico {
    std::optional<std::string> file;    ///< where it goes; nothing: no plot
    std::optional<std::string> misura;  ///< "1600x900"
    std::optional<std::string> da, a, ascissa;
};

/// Adds --plot, in whose place no form of a table can be asked for, and --size.
Opzione aggiungi_grafico(Comando& comando, SceltaGrafico& scelta);

/// Refuses options of plots where there is none.
void verifica_senza_grafico(const SceltaGrafico& scelta);

/// Adds --from, --to and --x, for plots over time.
void aggiungi_tratto(Comando& comando, SceltaGrafico& scelta);

/// What of a recording is drawn, and over what.
/// @param con_tempo  the recording has times.
/// @throws ErroreUso  for options that are no times, make no sense together, or are of use for a plot alone.
Tratto tratto_scelto(const SceltaGrafico& scelta, bool con_tempo);

/// A size: columns or dots, and lines or dots.
struct Misura {
    int larghezza = 0;
    int altezza = 0;
};

/// Of "1600x900".
std::optional<Misura> leggi_misura(const std::string& testo);

}  // namespace kel::strumento

#endif
