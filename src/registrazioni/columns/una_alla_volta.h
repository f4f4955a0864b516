// Samples read one after the other, through the converter's own functions.
#ifndef KEL_COLUMNS_UNA_ALLA_VOLTA_H
#define KEL_COLUMNS_UNA_ALLA_VOLTA_H

#include <cstddef>

#include "columns/testi.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

// Values, statuses and validity of a column. `primo` is a multiple of 8: the place of the first sample in the column.
void leggi_uno_a_uno(const unsigned char* campioni, std::size_t passo, std::size_t numero, const s_kel_colonna& colonna,
                     std::size_t primo) noexcept;

// Texts.
void scrivi_uno_a_uno(s_kel_converter& conv, const BloccoTesti& blocco) noexcept;

}  // namespace kel_colonne

#endif
