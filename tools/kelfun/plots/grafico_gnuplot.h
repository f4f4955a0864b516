// A plot in the language of gnuplot.
#ifndef KELFUN_PLOTS_GRAFICO_GNUPLOT_H
#define KELFUN_PLOTS_GRAFICO_GNUPLOT_H

#include <string>

#include "plots/grafico.h"

namespace kel::strumento {

/// A script that draws a plot to standard output, as SVG or PNG: series in panels one below the other over one time axis,
/// the track beside them.
std::string istruzioniGnuplot(const Grafico& grafico, bool svg);

}  // namespace kel::strumento

#endif
