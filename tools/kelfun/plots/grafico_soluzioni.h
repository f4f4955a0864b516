// GPS solutions as a plot: speed and satellites over time, and the track.
#ifndef KELFUN_PLOTS_GRAFICO_SOLUZIONI_H
#define KELFUN_PLOTS_GRAFICO_SOLUZIONI_H

#include <cstdint>
#include <optional>
#include <string>

#include "captures/soluzione.h"
#include "plots/grafico.h"

namespace kel::strumento {

class GraficoSoluzioni {
public:
    GraficoSoluzioni(const std::string& titolo, const std::string& udm_velocita);

    /// The next solution. Where the fix is lost, speed and track are broken.
    void aggiungi(const PuntoGps& punto);

    const Grafico& grafico() const { return grafico_; }

private:
    double secondi(std::uint32_t settimana_ms);

    Grafico grafico_;
    std::optional<std::uint32_t> ultimo_ms_;
    double secondi_ = 0;
};

}  // namespace kel::strumento

#endif
