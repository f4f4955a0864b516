// The decimal digits of a number as text, eight at once, as the first library makes them.
#ifndef KEL_COLUMNS_CIFRE_H
#define KEL_COLUMNS_CIFRE_H

#include <cstdint>

namespace kel_colonne {

inline constexpr std::uint64_t OGNI_BYTE = 0x0101010101010101;

// Four digits of a number below 10000, as numbers, the first in the lowest byte.
static constexpr std::uint32_t quattro_cifre(std::uint32_t numero) noexcept {
    const std::uint32_t centinaia = numero * 5243 >> 19;
    const std::uint32_t coppie = centinaia | (numero - centinaia * 100) << 16;
    const std::uint32_t decine = coppie * 103 >> 10 & 0x000F000F;
    return decine | (coppie - decine * 10) << 8;
}

// Eight digits of a number below 10^8, as characters.
static constexpr std::uint64_t otto_cifre(std::uint32_t numero) noexcept {
    return (quattro_cifre(numero / 10000) | std::uint64_t{quattro_cifre(numero % 10000)} << 32) + '0' * OGNI_BYTE;
}
static_assert(otto_cifre(12345678) == 0x3837363534333231 && otto_cifre(99999999) == 0x3939393939393939);

}  // namespace kel_colonne

#endif
