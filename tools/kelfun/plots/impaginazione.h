// Where everything stands in a picture, in dots from its upper left corner.
#ifndef KELFUN_PLOTS_IMPAGINAZIONE_H
#define KELFUN_PLOTS_IMPAGINAZIONE_H

#include <optional>
#include <string>
#include <vector>

#include "plots/grafico.h"
#include "plots/opzioni_grafico.h"

namespace kel::strumento {

struct Riquadro {
    double sinistra = 0;
    double destra = 0;
    double sopra = 0;
    double sotto = 0;

    double larghezza() const { return destra - sinistra; }
    double altezza() const { return sotto - sopra; }
};

struct Impaginazione {
    double larghezza = 0;
    double altezza = 0;
    std::vector<Riquadro> pannelli;  ///< one for each
    std::optional<Riquadro> traccia;
    std::string nota;  ///< what had no room; "" for nothing
};

/// @param misura  of the picture; nothing: as wide as a screen, as high as the panels need.
/// @throws ErroreUso  when the size is too small for the panels.
Impaginazione impagina(const Grafico& grafico, std::optional<Misura> misura);

}  // namespace kel::strumento

#endif
