// Laps as a plot: speeds over the distance, and below them the time that each lap loses.
#ifndef KELFUN_PLOTS_GRAFICO_GIRI_H
#define KELFUN_PLOTS_GRAFICO_GIRI_H

#include <span>
#include <string>

#include "domain/registrazioni.h"
#include "plots/grafico.h"
#include "registrazioni/laps/giri.h"
#include "registrazioni/laps/guida.h"

namespace kel::strumento {

/// @param scelti       closed laps, drawn in this order.
/// @param riferimento  the lap that gaps are to; its way is the track.
/// @param insieme      all speeds in one panel, told apart by their colours; else a panel for each.
Grafico grafico_giri(const Guida& guida, std::span<const Giro* const> scelti, const Giro& riferimento,
                     const std::string& udm, double fattore, bool insieme);

}  // namespace kel::strumento

#endif
