// Numeric texts of many values.
#ifndef KEL_COLUMNS_TESTI_H
#define KEL_COLUMNS_TESTI_H

#include <cstddef>

#include "kelregistrazioni.h"

namespace kel_colonne {

inline constexpr std::size_t byte_testo = 32;

// Whether the texts of a converter of numbers are short enough for `scrivi_numeri`.
bool numeri_in_parola(const s_kel_converter& conv) noexcept;

// The texts of values that were read with the converter, with their status words, from the samples of which they were read.
void scrivi_numeri(s_kel_converter& conv, const unsigned char* campioni, std::size_t passo, std::size_t numero,
                   const float* valori, const unsigned char* stati, char* testi) noexcept;

}  // namespace kel_colonne

#endif
