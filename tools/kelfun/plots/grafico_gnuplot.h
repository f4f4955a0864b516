// A plot in the language of gnuplot.
#ifndef KELFUN_PLOTS_GRAFICO_GNUPLOT_H
#define KELFUN_PLOTS_GRAFICO_GNUPLOT_H

#include <optional>
#include <string>

#include "plots/grafico.h"
#include "plots/opzioni_grafico.h"

namespace kel::strumento {

enum class Formato { svg, png, pdf };

struct Immagine {
    std::string istruzioni;
    std::string nota;  ///< what had no room; "" for nothing
};

/// A script that draws a plot to standard output: curves in panels one below the other over one axis, and the track
/// beside them, or above where there are many panels. Names go into it as data: nothing in them is an instruction.
/// @param misura  dots; nothing: as wide as a screen, as high as the panels need.
/// @throws ErroreUso  when the size is too small for the panels.
Immagine istruzioni_gnuplot(const Grafico& grafico, Formato formato, std::optional<Misura> misura);

}  // namespace kel::strumento

#endif
