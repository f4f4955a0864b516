// Decoders of integers: signed and unsigned 32, 16 and 8 bits, and bit fields within the unsigned ones.
#ifndef KEL_CONVERTERS_DECODER_INTERI_H
#define KEL_CONVERTERS_DECODER_INTERI_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

// T is int32_t, int16_t, uint32_t, uint16_t or uint8_t.
template <typename T>
float intero_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
template <typename T>
float intero_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

// T is uint32_t, uint16_t or uint8_t.
template <typename T>
float intero_campo_bit(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

}  // namespace kel

#endif
