// From a decoded sample to the value in the converter's unit, in single precision.
#ifndef KEL_BASE_CONVERSIONE_LINEARE_H
#define KEL_BASE_CONVERSIONE_LINEARE_H

#include "base/aritmetica.h"
#include "kelfunzioni.h"

namespace kel {

inline float lineare(const s_kel_converter* conv, float x) noexcept {
    return x * conv->dati->gain + conv->dati->offset;
}

// In a unit that shows the quantity as its reciprocal. A zero sample has no reciprocal; its value is 0, without the
// offset. Programs depend on that.
inline float reciproca(const s_kel_converter* conv, float x) noexcept {
    return x == 0.0f ? 0.0f : lineare(conv, 1.0f / x);
}

}  // namespace kel

#endif
