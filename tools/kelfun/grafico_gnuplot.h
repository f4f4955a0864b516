// A plot in the language of gnuplot.
#ifndef KELFUN_GRAFICO_GNUPLOT_H
#define KELFUN_GRAFICO_GNUPLOT_H

#include <string>

#include "grafico.h"

namespace kel::strumento {

/// A script that draws a plot to standard output, as SVG or PNG: series in panels one below the other over one time axis,
/// the track beside them.
std::string istruzioniGnuplot(const Grafico& grafico, bool svg);

}  // namespace kel::strumento

#endif
