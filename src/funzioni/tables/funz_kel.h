// The indexes over the table of legacy identifiers. Its end row is not in them.
#ifndef KEL_TABLES_FUNZ_KEL_H
#define KEL_TABLES_FUNZ_KEL_H

#include <iterator>

#include "kelfunzioni.h"
#include "tables/indice_perfetto.h"

namespace kel {

inline constexpr std::size_t righe_kel = std::size(funz_Kel) - 1;
extern const IndicePerfetto<64> indice_kel_fid;
extern const IndiceTesti<64, righe_kel> indice_kel_id;

}  // namespace kel

#endif
