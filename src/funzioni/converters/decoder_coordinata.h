// Text of a coordinate in units of 1e-7 degree.
#ifndef KEL_CONVERTERS_DECODER_COORDINATA_H
#define KEL_CONVERTERS_DECODER_COORDINATA_H

#include "kelfunzioni.h"

namespace kel {

void testo_coordinata(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
