// GPS solutions as a plot: speed and satellites over time or distance, and the track.
#ifndef KELFUN_PLOTS_GRAFICO_SOLUZIONI_H
#define KELFUN_PLOTS_GRAFICO_SOLUZIONI_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plots/grafico.h"
#include "plots/nota.h"
#include "plots/percorso.h"

namespace kel::strumento {

/// A solution as a point of a plot, whatever rule its numbers follow.
struct PuntoGps {
    std::uint32_t settimana_ms = 0;
    unsigned satelliti = 0;
    std::optional<double> latitudine;  ///< degrees
    std::optional<double> longitudine;
    std::optional<double> velocita;  ///< in the unit of the plot
};

class GraficoSoluzioni {
public:
    /// @param per_ms  factor from the speed's unit to m/s.
    GraficoSoluzioni(const std::string& udm_velocita, double per_ms, const Tratto& tratto);

    /// The next solution. Where the fix is lost, speed and track are broken.
    void aggiungi(const PuntoGps& punto);

    /// Completes the plot.
    /// @return  what is to be said about it.
    std::vector<Nota> chiudi();

    Grafico& grafico() { return grafico_; }

private:
    double secondi(std::uint32_t settimana_ms);

    Grafico grafico_;
    Percorso percorso_;
    double per_ms_;
    std::optional<std::uint32_t> ultimo_ms_;
    double secondi_ = 0;
};

}  // namespace kel::strumento

#endif
