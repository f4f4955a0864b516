// The spaces, by subsystem.
#ifndef KEL_ESAUSTIVO_SPAZI_H
#define KEL_ESAUSTIVO_SPAZI_H

#include "exhaustive/spazio.h"

namespace esaustivo {

std::vector<Spazio> spazi_tabelle();
std::vector<Spazio> spazi_identificatori();
std::vector<Spazio> spazi_unita();
std::vector<Spazio> spazi_canali();
std::vector<Spazio> spazi_mezzi();
std::vector<Spazio> spazi_testi();
std::vector<Spazio> spazi_pacchetti();
std::vector<Spazio> spazi_impostazioni();
std::vector<Spazio> spazi_bit();
std::vector<Spazio> spazi_numeri();
std::vector<Spazio> spazi_tempi();
std::vector<Spazio> spazi_campioni();
std::vector<Spazio> spazi_colonne();

}  // namespace esaustivo

#endif
