// Running gnuplot.
#ifndef KELFUN_PLOTS_GNUPLOT_H
#define KELFUN_PLOTS_GNUPLOT_H

#include <string>

namespace kel::strumento {

/// The path of the first gnuplot on PATH.
/// @throws NonTrovato  when there is none.
std::string cerca_gnuplot();

/// What gnuplot writes to its standard output for a script; no shell takes part, nor the user's settings.
/// @throws NonTrovato  when it fails, with the first line of its complaint.
std::string esegui_gnuplot(const std::string& programma, const std::string& istruzioni);

}  // namespace kel::strumento

#endif
