// Laps as a table.
#ifndef KELFUN_LAPS_TABELLA_GIRI_H
#define KELFUN_LAPS_TABELLA_GIRI_H

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "domain/registrazioni.h"
#include "output/documento.h"
#include "registrazioni/laps/giri.h"

namespace kel::strumento {

/// How the numbers of laps are shown.
struct AspettoGiri {
    std::string udm;              ///< of speeds
    double fattore = 1;           ///< from m/s
    std::vector<double> origini;  ///< s, from which the starts are counted, by session
    bool per_programmi = false;   ///< all that there is; people get what fits the width of a screen
};

class TabellaGiri {
public:
    /// @param giri  must live as long as this.
    TabellaGiri(std::span<const Giro> giri, AspettoGiri aspetto);

    std::vector<Colonna> colonne() const;
    /// The row of one of the laps.
    std::vector<Cella> celle(const Giro& giro) const;

private:
    Cella distacco(const Giro& giro) const;

    AspettoGiri aspetto_;
    std::size_t settori_;
    const Giro* migliore_;
};

}  // namespace kel::strumento

#endif
