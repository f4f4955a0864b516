// Units of measure: the quantity table's rows, unit texts and codes, decimals, conversions.
#ifndef KEL_MODELLO_UNITA_H
#define KEL_MODELLO_UNITA_H

#include <optional>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace modello {

// Row of the quantity table that an identifier falls under, or null. Depends on quantity and object alone.
const RigaGrandezza* rigaGrandezza(Fid fid);
// Key of that row; 0 when there is none.
Fid fidEquivalente(Fid fid);

std::string unitaBase(Fid fid);
std::vector<std::string> unita(Fid fid);

std::optional<std::string> testoCodice(unsigned codice);
int codiceTesto(const std::string& testo);

// Where the decimals of a unit and its conversion are read: a row of a unit table.
struct RigaTrovata {
    std::string tabella;
    std::size_t riga;
    const RigaUdm& dati() const { return tabelle().udm.at(tabella).at(riga); }
};
// `udm` without value stands for a null text.
RigaTrovata rigaDecimali(Fid fid, const std::string& udm);
RigaTrovata rigaConversione(Fid fid, const std::optional<std::string>& udm);

int decimaliDefault(Fid fid, const std::string& udm);
int decimaliMax(Fid fid, const std::string& udm);
int decimaliMin(Fid fid, const std::string& udm);

struct Conversione {
    float offset, gain;
};
Conversione conversioneTra(Fid fid, const std::string& da, const std::string& a);

}  // namespace modello

#endif
