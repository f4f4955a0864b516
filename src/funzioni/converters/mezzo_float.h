// 16-bit floats (IEEE 754 binary16).
#ifndef KEL_CONVERTERS_MEZZO_FLOAT_H
#define KEL_CONVERTERS_MEZZO_FLOAT_H

#include <cstdint>

namespace kel {

// Bits of the float equal to a 16-bit float.
uint32_t espandi_mezzo(uint32_t mezzo) noexcept;

// Bits of the 16-bit float for a float: its fraction is cut, not rounded.
uint32_t comprimi_mezzo(uint32_t bit_float) noexcept;

}  // namespace kel

#endif
