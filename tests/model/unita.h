// Units of measure: the quantity table's rows, unit texts and codes, decimals, conversions.
#ifndef KEL_MODELLO_UNITA_H
#define KEL_MODELLO_UNITA_H

#include <optional>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace modello {

// Row of the quantity table that an identifier falls under, or null. Depends on quantity and object alone.
const RigaGrandezza* riga_grandezza(Fid fid);
// Key of that row; 0 when there is none.
Fid fid_equivalente(Fid fid);

std::string unita_base(Fid fid);
std::vector<std::string> unita(Fid fid);

std::optional<std::string> testo_codice(unsigned codice);
int codice_testo(const std::string& testo);

// Where the decimals of a unit and its conversion are read: a row of a unit table.
struct RigaTrovata {
    std::string tabella;
    std::size_t riga;
    const RigaUdm& dati() const { return tabelle().udm.at(tabella).at(riga); }
};
// `udm` without value stands for a null text.
RigaTrovata riga_decimali(Fid fid, const std::string& udm);
RigaTrovata riga_conversione(Fid fid, const std::optional<std::string>& udm);

int decimali_default(Fid fid, const std::string& udm);
int decimali_max(Fid fid, const std::string& udm);
int decimali_min(Fid fid, const std::string& udm);

struct Conversione {
    float offset, gain;
};
Conversione conversione_tra(Fid fid, const std::string& da, const std::string& a);

}  // namespace modello

#endif
