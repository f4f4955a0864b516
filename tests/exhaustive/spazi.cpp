#include "exhaustive/spazi.h"

#include <utility>

namespace esaustivo {

std::vector<Spazio> tutti_gli_spazi() {
    std::vector<Spazio> tutti;
    for (const auto& famiglia :
         {spazi_tabelle, spazi_identificatori, spazi_unita, spazi_canali, spazi_mezzi, spazi_testi, spazi_pacchetti,
          spazi_impostazioni, spazi_bit, spazi_numeri, spazi_tempi, spazi_campioni, spazi_colonne})
        for (Spazio& spazio : famiglia())
            tutti.push_back(std::move(spazio));
    return tutti;
}

}  // namespace esaustivo
