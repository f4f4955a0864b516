// The library's tables and rows by name, and shared ways to ask it.
#ifndef KEL_ESAUSTIVO_LIBRERIA_H
#define KEL_ESAUSTIVO_LIBRERIA_H

#include <cstddef>
#include <string>

#include "IFunzioni.h"
#include "kelfunzioni.h"
#include "model/canali.h"
#include "model/tabelle.h"

namespace esaustivo {

// Rows of a table of the library; none for the name "-".
template <typename Riga>
struct Righe {
    const Riga* prima = nullptr;
    std::size_t righe = 0;
};
using Campi = Righe<s_campo_fid>;
using Unita = Righe<s_udm_associata>;
using Varianti = Righe<s_variante_posizione>;
using Scelte = Righe<s_scelta_fid>;

Campi campiDi(const std::string& nome);
Unita unitaDi(const std::string& nome);
Varianti variantiDi(const std::string& nome);
Scelte scelteDi(const std::string& nome);
const s_sottocampo* sottocampiDi(const std::string& nome);

// A unit row of the model as the library takes it.
s_converter_data datiDi(const modello::RigaUdm& riga);

// A channel record with these members, the others 0.
s_kel_canale canaleDi(const modello::Canale& canale);

// The library's catalogue.
IFunzioni& catalogo();

}  // namespace esaustivo

#endif
