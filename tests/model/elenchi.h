// Function lists by physical quantity, and the choices of sides and in/out.
#ifndef KEL_MODELLO_ELENCHI_H
#define KEL_MODELLO_ELENCHI_H

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/tabelle.h"

namespace modello {

// Functions to offer, by quantity. Quantities without a function have no entry.
std::map<unsigned, std::vector<std::pair<Fid, std::string>>> funzioni(const std::vector<unsigned>& filtro);

struct Dettagli {
    std::map<unsigned, std::string> lati, inout;
    int primo, ultimo;
};
// Without value when the function has no choices: maps are then emptied, numbers left alone.
// Depends on quantity, object and position alone.
std::optional<Dettagli> dettagli(Fid fid);

// Texts of the quantities, added to a map without overwriting.
void riempi_grandezze(std::map<unsigned, std::string>& mappa);

}  // namespace modello

#endif
