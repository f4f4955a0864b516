// Look-ups in the quantity table and in its unit tables.
#ifndef KEL_UNITS_GRANDEZZA_H
#define KEL_UNITS_GRANDEZZA_H

#include "kelfunzioni.h"

namespace kel {

// The first row with the identifier's quantity, and with its object or no object; null when there is none.
const s_grandezza_fisica_uiv* cerca_grandezza(kel_funpos fid) noexcept;

// The row of a unit in the unit table of a quantity row; null when the quantity does not have the unit.
const s_udm_associata* cerca_udm(const s_grandezza_fisica_uiv& grandezza, const char* udm) noexcept;

}  // namespace kel

#endif
