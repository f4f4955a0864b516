// Laps as a table.
#ifndef KELFUN_LAPS_TABELLA_GIRI_H
#define KELFUN_LAPS_TABELLA_GIRI_H

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "kelregistrazioni.h"
#include "output/documento.h"

namespace kel::strumento {

/// How the numbers of laps are shown.
struct AspettoGiri {
    std::string udm;             ///< of speeds
    double fattore = 1;          ///< from m/s
    bool per_programmi = false;  ///< all that there is; people get what fits the width of a screen
};

class TabellaGiri {
public:
    /// @param giri  must live as long as this.
    TabellaGiri(std::span<const s_kel_giro> giri, AspettoGiri aspetto);

    std::vector<Colonna> colonne() const;
    /// The row of one of the laps.
    std::vector<Cella> celle(const s_kel_giro& giro) const;

private:
    AspettoGiri aspetto_;
    std::size_t settori_;
};

}  // namespace kel::strumento

#endif
