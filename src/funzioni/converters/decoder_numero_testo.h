// Decoders of a 16-bit number followed by a text.
#ifndef KEL_CONVERTERS_DECODER_NUMERO_TESTO_H
#define KEL_CONVERTERS_DECODER_NUMERO_TESTO_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

// The number, without the unit's conversion.
float numero(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
// Of a gear: the digit 1 to 9 that the text begins with, or the number where it begins with another character.
float numero_o_cifra(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

// The text, up to its NUL or to the end of the sample.
void testo_copia_6(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_copia_30(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
