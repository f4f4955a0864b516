// The units of a function as a table.
#ifndef KELFUN_DOMAIN_UNITA_H
#define KELFUN_DOMAIN_UNITA_H

#include "IFunzioni.h"
#include "output/documento.h"
#include "text/parole.h"

namespace kel::strumento {

/// Adds the table "units": every unit of a function with its code, decimals and conversion, base unit first.
void tabella_unita(Documento& documento, const IFunzioni& catalogo, kel_funpos fid);

}  // namespace kel::strumento

#endif
