// Laps as a plot: speeds over the distance, and below them the time that each lap loses.
#ifndef KELFUN_PLOTS_GRAFICO_GIRI_H
#define KELFUN_PLOTS_GRAFICO_GIRI_H

#include <span>
#include <string>

#include "laps/lettura_giri.h"
#include "plots/grafico.h"

namespace kel::strumento {

/// @param scelti       closed laps, drawn in this order.
/// @param riferimento  the lap that gaps are to; its way is the track.
/// @param insieme      all speeds in one panel, told apart by their colours; else a panel for each.
Grafico grafico_giri(const Giri& giri, std::span<const s_kel_giro* const> scelti, const s_kel_giro& riferimento,
                     const std::string& udm, double fattore, bool insieme);

}  // namespace kel::strumento

#endif
