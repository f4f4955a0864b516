// Rows as an Arrow array.
#ifndef KEL_REGISTRAZIONI_BLOCCO_H
#define KEL_REGISTRAZIONI_BLOCCO_H

#include "recordings/tabella.h"

namespace kel_registrazioni {

/// Fills an array with rows at hand: a struct with the children of `schema`. Values are read straight into its buffers.
void blocco(Tabella& tabella, bool testi, std::uint64_t da, std::size_t quante, ArrowArray& uscita);

}  // namespace kel_registrazioni

#endif
