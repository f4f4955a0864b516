// The row of the quantity table that an identifier falls under.
#ifndef KEL_UNITS_GRANDEZZA_H
#define KEL_UNITS_GRANDEZZA_H

#include "kelfunzioni.h"

namespace kel {

// The first row of the identifier's quantity whose object is the identifier's or none; null when there is no such row.
const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept;

// The unit row of a text within a quantity row; null when there is none.
const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept;

}  // namespace kel

#endif
