// The decimal digits of a number as text, eight at once.
#ifndef KEL_BASE_CIFRE_H
#define KEL_BASE_CIFRE_H

#include <cstdint>

namespace kel {

inline constexpr std::uint64_t ogni_byte = 0x0101010101010101;

// The eight digits of a number below 10^8, the first in the lowest byte: as the bytes of a text lie in a word. Halves, pairs
// and digits are parted side by side, by multiplications with 1/100 and 1/10 that are exact for the numbers that occur.
constexpr std::uint64_t otto_cifre(std::uint32_t numero) noexcept {
    const std::uint64_t meta = numero / 10000 | std::uint64_t{numero % 10000} << 32;
    const std::uint64_t centinaia = meta * 5243 >> 19 & 0x0000007F0000007F;
    const std::uint64_t coppie = centinaia | (meta - centinaia * 100) << 16;
    const std::uint64_t decine = coppie * 103 >> 10 & 0x000F000F000F000F;
    return (decine | (coppie - decine * 10) << 8) + '0' * ogni_byte;
}
static_assert(otto_cifre(12345678) == 0x3837363534333231 && otto_cifre(99999999) == 0x3939393939393939);

}  // namespace kel

#endif
