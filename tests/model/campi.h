// Fields of an identifier and the texts of their values.
#ifndef KEL_MODELLO_CAMPI_H
#define KEL_MODELLO_CAMPI_H

#include <list>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace modello {

unsigned grandezza(Fid fid);
unsigned oggetto(Fid fid);    // packet details, when the quantity is 26
unsigned posizione(Fid fid);  // packet specialisation, when the quantity is 26
unsigned in_out(Fid fid);
bool numerato(Fid fid);
unsigned numero(Fid fid);
unsigned left_right(Fid fid);
unsigned front_rear(Fid fid);
unsigned up_down(Fid fid);

// Each argument is cut to its field.
Fid componi(unsigned grandezza, unsigned oggetto, unsigned posizione);
Fid bit_in_out(unsigned inout);
Fid bit_lati(unsigned leftright, unsigned frontrear, unsigned updown);
Fid bit_istanza(unsigned numero);

bool fine_tabella(Fid fid);

// Text and XML name of a value of a field, by the name of the field's table; "" out of range.
std::string testo_campo(const std::string& tabella, long long valore);
std::string xml_campo(const std::string& tabella, long long valore);
// Value of an XML name; 0 when there is none.
int valore_campo(const std::string& tabella, const std::string& xml);

// The twelve lists of field values, in the order of the operation's arguments.
std::vector<std::list<std::string>> valori_campi();

}  // namespace modello

#endif
