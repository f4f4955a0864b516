// Decoders of the gear indicator.
#ifndef KEL_CONVERTERS_DECODER_MARCIA_H
#define KEL_CONVERTERS_DECODER_MARCIA_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

float marcia(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
void testo_marcia(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
