// The index over the unit codes.
#ifndef KEL_TABLES_CODICI_UDM_H
#define KEL_TABLES_CODICI_UDM_H

#include <iterator>

#include "kelfunzioni.h"
#include "tables/indice_perfetto.h"

namespace kel {

extern const IndiceTesti<128, std::size(udm_codici)> INDICE_CODICI_UDM;

}  // namespace kel

#endif
