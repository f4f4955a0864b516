// The decimal digits of a number as text, eight at a time.
#ifndef KEL_BASE_CIFRE_H
#define KEL_BASE_CIFRE_H

#include <cstdint>

namespace kel {

// Times a character: that character in all eight bytes of a word.
inline constexpr std::uint64_t OGNI_BYTE = 0x0101010101010101;

// A division by multiplication: numero / divisore == numero * fattore >> bit, for numbers up to `massimo`.
struct Divisione {
    std::uint32_t divisore, fattore, bit, massimo;
};
inline constexpr Divisione PER_CENTO = {100, 5243, 19, 9999};
inline constexpr Divisione PER_DIECI = {10, 103, 10, 99};

// Whether it is exact for all of them, and whether the products leave the numbers beside them alone, `corsia` bits
// further up in the same word.
constexpr bool esatta(const Divisione& d, unsigned corsia) {
    for (std::uint32_t numero = 0; numero <= d.massimo; ++numero)
        if ((numero * d.fattore >> d.bit) != numero / d.divisore)
            return false;
    return std::uint64_t{d.massimo} * d.fattore >> corsia == 0;
}
static_assert(esatta(PER_CENTO, 32) && esatta(PER_DIECI, 16));

// The eight digits of a number below 10^8 as characters, the first in the lowest byte, as a text lies in a
// little-endian word. Three divisions, each of all parts at once, take the place of seven one after the other:
//
//     byte       0     1     2     3     4     5     6     7
//     meta       1234                    5678                     12345678 in two halves
//     coppie     12          34          56          78           each divided by 100, the remainders behind
//     result     '1'   '2'   '3'   '4'   '5'   '6'   '7'   '8'    each divided by 10, the remainders behind
//
// The masks cut off what the shift brings down from the number above: a quotient by 100 has 7 bits, one by 10 has 4.
constexpr std::uint64_t otto_cifre(std::uint32_t numero) noexcept {
    const std::uint64_t meta = numero / 10000 | std::uint64_t{numero % 10000} << 32;
    const std::uint64_t centinaia = meta * PER_CENTO.fattore >> PER_CENTO.bit & 0x0000007F0000007F;
    const std::uint64_t coppie = centinaia | (meta - centinaia * 100) << 16;
    const std::uint64_t decine = coppie * PER_DIECI.fattore >> PER_DIECI.bit & 0x000F000F000F000F;
    return (decine | (coppie - decine * 10) << 8) + '0' * OGNI_BYTE;
}
static_assert(otto_cifre(12345678) == 0x3837363534333231 && otto_cifre(99999999) == 0x3939393939393939);

}  // namespace kel

#endif
