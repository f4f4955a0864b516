// The library's rows that the model names, and shared ways to ask it.
#ifndef KEL_ESAUSTIVO_LIBRERIA_H
#define KEL_ESAUSTIVO_LIBRERIA_H

#include <string>

#include "IFunzioni.h"
#include "kelfunzioni.h"
#include "model/canali.h"
#include "model/tabelle.h"
#include "model/unita.h"

namespace esaustivo {

// The library's row that the model found.
const s_udm_associata& riga_unita(const modello::RigaTrovata& riga);
// A subfield table by the model's name of it.
const s_sottocampo* sottocampi_di(const std::string& nome);

// A unit row of the model as the library takes it.
s_converter_data dati_di(const modello::RigaUdm& riga);

// A channel record with these members, the others 0.
s_kel_canale canale_di(const modello::Canale& canale);

// The library's catalogue.
IFunzioni& catalogo();

}  // namespace esaustivo

#endif
