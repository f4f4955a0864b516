// The spaces, by subsystem.
#ifndef KEL_ESAUSTIVO_SPAZI_H
#define KEL_ESAUSTIVO_SPAZI_H

#include "exhaustive/spazio.h"

namespace esaustivo {

std::vector<Spazio> spaziTabelle();
std::vector<Spazio> spaziIdentificatori();
std::vector<Spazio> spaziUnita();
std::vector<Spazio> spaziCanali();
std::vector<Spazio> spaziMezzi();
std::vector<Spazio> spaziTesti();
std::vector<Spazio> spaziPacchetti();
std::vector<Spazio> spaziImpostazioni();
std::vector<Spazio> spaziBit();
std::vector<Spazio> spaziNumeri();
std::vector<Spazio> spaziTempi();
std::vector<Spazio> spaziCampioni();
std::vector<Spazio> spaziColonne();

}  // namespace esaustivo

#endif
