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
unsigned inOut(Fid fid);
bool numerato(Fid fid);
unsigned numero(Fid fid);
unsigned leftRight(Fid fid);
unsigned frontRear(Fid fid);
unsigned upDown(Fid fid);

// Each argument is cut to its field.
Fid componi(unsigned grandezza, unsigned oggetto, unsigned posizione);
Fid bitInOut(unsigned inout);
Fid bitLati(unsigned leftright, unsigned frontrear, unsigned updown);
Fid bitIstanza(unsigned numero);

bool fineTabella(Fid fid);

// Text and XML name of a value of a field, by the name of the field's table; "" out of range.
std::string testoCampo(const std::string& tabella, long long valore);
std::string xmlCampo(const std::string& tabella, long long valore);
// Value of an XML name; 0 when there is none.
int valoreCampo(const std::string& tabella, const std::string& xml);

// The twelve lists of field values, in the order of the operation's arguments.
std::vector<std::list<std::string>> valoriCampi();

}  // namespace modello

#endif
