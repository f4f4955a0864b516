// Decoders of a byte that is shown as the list of its set bits.
#ifndef KEL_CONVERTERS_DECODER_LISTA_BIT_H
#define KEL_CONVERTERS_DECODER_LISTA_BIT_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

float lista_bit(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float lista_bit_mascherata(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

}  // namespace kel

#endif
