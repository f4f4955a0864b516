// The 16-bit float, both ways.
#include <bit>
#include <cstdint>

#ifdef KEL_PARI_FP16
#include <fp16.h>
#endif
#ifdef __x86_64__
#include <immintrin.h>
#endif

#include "comune/prova.h"
#include "kelfunzioni.h"
#include "righe.h"

using namespace prova;

namespace {

// The compiler's own conversions: calls into its support library, as it is not told that the machine has F16C.
#ifdef __FLT16_MAX__
__attribute__((noinline)) std::uint32_t espandi_compilatore(std::uint16_t mezzo) {
    return std::bit_cast<std::uint32_t>(static_cast<float>(std::bit_cast<_Float16>(mezzo)));
}
__attribute__((noinline)) std::uint16_t comprimi_compilatore(std::uint32_t bit_float) {
    return std::bit_cast<std::uint16_t>(static_cast<_Float16>(std::bit_cast<float>(bit_float)));
}
#endif

// The machine's instruction, in a function of its own: not every machine has it.
#ifdef __x86_64__
__attribute__((noinline, target("f16c"))) std::uint32_t espandi_macchina(std::uint16_t mezzo) {
    return std::bit_cast<std::uint32_t>(_cvtsh_ss(mezzo));
}
__attribute__((noinline, target("f16c"))) std::uint16_t comprimi_macchina(std::uint32_t bit_float) {
    const __m128i mezzi = _mm_cvtps_ph(_mm_set_ss(std::bit_cast<float>(bit_float)), _MM_FROUND_TO_ZERO);
    return static_cast<std::uint16_t>(_mm_cvtsi128_si32(mezzi));
}
#endif

void espansione() {
    const std::string riga = "half to float";
    // Every bit pattern of the format once, so also zeros, subnormal numbers, infinities and NaNs.
    const auto mezzi = genera([](Casuale& casuale) { return static_cast<std::uint16_t>(sotto(casuale, 65536)); });
    serie(riga, Ruolo::nostro, "kelF16decompress", mezzi, [](std::uint16_t mezzo) { return kelF16decompress(mezzo); });
#ifdef KEL_PARI_FP16
    serie(riga, Ruolo::pari, "FP16", mezzi, [](std::uint16_t mezzo) { return fp16_ieee_to_fp32_bits(mezzo); });
    serie(riga, Ruolo::pari, "FP16 value", mezzi, [](std::uint16_t mezzo) { return fp16_ieee_to_fp32_value(mezzo); });
#endif
#ifdef __FLT16_MAX__
    serie(riga, Ruolo::pari, "compiler", mezzi, espandi_compilatore);
#endif
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2"))  // no processor has that without F16C
        serie(riga, Ruolo::limite, "f16c", mezzi, espandi_macchina);
#endif
}

void compressione() {
    const std::string riga = "float to half";
    // Magnitudes from 2^-26 to 2^17: a little beyond the format at both ends.
    const auto numeri = genera([](Casuale& casuale) {
        const std::uint32_t esponente = 127 - 26 + sotto(casuale, 26 + 17);
        const std::uint32_t segno = sotto(casuale, 2) << 31;
        return std::uint32_t{segno | esponente << 23 | sotto(casuale, 1u << 23)};
    });
    serie(riga, Ruolo::nostro, "kelF16compress", numeri, [](std::uint32_t bit) { return kelF16compress(bit); });
#ifdef KEL_PARI_FP16
    serie(riga, Ruolo::pari, "FP16", numeri,
          [](std::uint32_t bit) { return fp16_ieee_from_fp32_value(std::bit_cast<float>(bit)); });
#endif
#ifdef __FLT16_MAX__
    serie(riga, Ruolo::pari, "compiler", numeri, comprimi_compilatore);
#endif
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2"))  // no processor has that without F16C
        serie(riga, Ruolo::limite, "f16c", numeri, comprimi_macchina);
#endif
}

}  // namespace

void righe_mezzo_float() {
    espansione();
    compressione();
}
