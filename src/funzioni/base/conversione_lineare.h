// From a decoded sample to the value in the converter's unit, in single precision.
#ifndef KEL_BASE_CONVERSIONE_LINEARE_H
#define KEL_BASE_CONVERSIONE_LINEARE_H

#include "base/aritmetica.h"
#include "kelfunzioni.h"

namespace kel {

inline float lineare(const s_kel_converter* conv, float x) noexcept {
    return x * conv->dati->gain + conv->dati->offset;
}

// A quantity carried as its reciprocal. A raw zero shows as 0, without the offset: clients rely on it.
inline float reciproca(const s_kel_converter* conv, float x) noexcept {
    return x == 0.0f ? 0.0f : lineare(conv, 1.0f / x);
}

}  // namespace kel

#endif
