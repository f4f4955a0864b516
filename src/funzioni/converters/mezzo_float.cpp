#include "converters/mezzo_float.h"

#include <algorithm>
#include <bit>

#include "base/aritmetica.h"
#include "kelfunzioni.h"

namespace kel {
namespace {

constexpr uint32_t INFINITO_FLOAT = 0x7F800000;
constexpr int BIT_FRAZIONE_TOLTI = 13;         // 23 fraction bits of a float, 10 of a 16-bit float
constexpr uint32_t PASSO_BIAS = 0x1C000;       // (127 - 15) << 10: from one exponent bias to the other
constexpr uint32_t INIZIO_INFINITI = 0x23C00;  // exponent 31 + 112, fraction 0, on 10 fraction bits
constexpr uint32_t PRIMO_NORMALE = 1u << 10;   // smallest pattern with a non-zero exponent

}  // namespace

uint32_t espandi_mezzo(uint32_t mezzo) noexcept {
    const uint32_t segno = (mezzo & 0x8000) << 16;
    uint32_t modulo = mezzo & 0x7FFF;
    if (modulo < PRIMO_NORMALE)  // zero or subnormal: fraction times 2^-24, exact in single precision
        return segno | std::bit_cast<uint32_t>(static_cast<float>(modulo) * 0x1p-24f);
    modulo += PASSO_BIAS;
    if (modulo >= INIZIO_INFINITI)  // an infinity or a NaN has exponent 31 here and 255 in a float
        modulo += PASSO_BIAS;
    return segno | modulo << BIT_FRAZIONE_TOLTI;
}

uint32_t comprimi_mezzo(uint32_t bit_float) noexcept {
    constexpr uint32_t normale_minimo = 0x38800000;  // 2^-14
    constexpr uint32_t massimo = 0x477FE000;         // 65504
    constexpr uint32_t infinito = 0x7C00;
    const uint32_t segno = bit_float >> 16 & 0x8000;
    const uint32_t modulo = bit_float & 0x7FFFFFFF;
    if (modulo > INFINITO_FLOAT)  // a fraction of 0 would make an infinity of a NaN
        return segno | infinito | std::max((modulo & ~INFINITO_FLOAT) >> BIT_FRAZIONE_TOLTI, 1u);
    // The fraction is cut, so that no value grows; above 65504, the largest 16-bit float, it becomes an infinity.
    // Both the normal and the subnormal form are computed, and a mask keeps one. The form that is not used costs a few
    // instructions; a branch on the size, wrongly predicted where tiny and usual values alternate, some 15 cycles.
    const uint32_t troppo = modulo > massimo ? 1 : 0;
    const uint32_t normale = std::min((modulo >> BIT_FRAZIONE_TOLTI) - PASSO_BIAS + troppo, infinito);
    const float piccolissimo = std::bit_cast<float>(std::min(modulo, normale_minimo));
    const auto subnormale = static_cast<uint32_t>(static_cast<int32_t>(piccolissimo * 0x1p24f));
    const uint32_t piccolo = modulo < normale_minimo ? ~0u : 0u;
    return segno | (subnormale & piccolo) | (normale & ~piccolo);
}

}  // namespace kel

unsigned kelF16compress(unsigned bit_float) noexcept {
    return kel::comprimi_mezzo(bit_float);
}

unsigned kelF16decompress(unsigned mezzo) noexcept {
    return kel::espandi_mezzo(mezzo);
}
