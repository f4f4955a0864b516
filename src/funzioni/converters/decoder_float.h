// Decoders of floats and 16-bit floats.
#ifndef KEL_CONVERTERS_DECODER_FLOAT_H
#define KEL_CONVERTERS_DECODER_FLOAT_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

float float_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float float_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float mezzo_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float mezzo_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

}  // namespace kel

#endif
