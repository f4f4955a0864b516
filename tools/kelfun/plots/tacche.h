// The ticks of an axis, at round values, and their texts.
#ifndef KELFUN_PLOTS_TACCHE_H
#define KELFUN_PLOTS_TACCHE_H

#include <string>
#include <vector>

#include "plots/grafico.h"

namespace kel::strumento {

struct Tacca {
    double x = 0;
    std::string testo;
};

/// Ticks of the axis of a plot, from left to right: at steps of 1, 2 or 5, or of 15 and 30 where time is counted, so
/// many that their texts have room. A session has ticks of its own time or distance.
/// @param larghezza  of the axis, in any unit.
/// @param carattere  width of a character in that unit.
std::vector<Tacca> tacche(const Grafico& grafico, double larghezza, double carattere);

/// The step of 1, 2 or 5 times a power of ten that cuts a range into at most so many parts.
double passo_tacche(double ampiezza, double parti);

/// "time, m:ss" and the like, and its short form "m:ss".
std::string nome_ascissa(const Grafico& grafico);
std::string unita_ascissa(const Grafico& grafico);

}  // namespace kel::strumento

#endif
