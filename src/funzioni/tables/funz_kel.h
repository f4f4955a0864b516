// The indexes over the table of legacy identifiers. Its end row is not in them.
#ifndef KEL_TABLES_FUNZ_KEL_H
#define KEL_TABLES_FUNZ_KEL_H

#include <iterator>

#include "kelfunzioni.h"
#include "tables/indice_perfetto.h"

namespace kel {

inline constexpr std::size_t RIGHE_KEL = std::size(funz_Kel) - 1;
extern const IndicePerfetto<64> INDICE_KEL_FID;
extern const IndiceTesti<64, RIGHE_KEL> INDICE_KEL_ID;

}  // namespace kel

#endif
