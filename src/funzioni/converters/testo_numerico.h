// The numeric text: a value in a field of fixed width.
#ifndef KEL_CONVERTERS_TESTO_NUMERICO_H
#define KEL_CONVERTERS_TESTO_NUMERICO_H

#include "kelfunzioni.h"

namespace kel {

// Text function of the numeric sample formats.
void testo_numerico(s_kel_converter* conv, const void* campione, char* testo) noexcept;

// Text function of a converter without a decoder: "- -".
void testo_assente(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
