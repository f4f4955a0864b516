// Decoders of a 16-bit number followed by a text.
#ifndef KEL_CONVERTERS_DECODER_NUMERO_TESTO_H
#define KEL_CONVERTERS_DECODER_NUMERO_TESTO_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

// The number, without the unit's conversion.
float numero(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
// The digit that the text begins with, else the number: of a gear, whose text says more than its number.
float numero_o_cifra(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

// The text, which ends with its NUL or with the sample.
void testo_copia_6(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_copia_30(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
