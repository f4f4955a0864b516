// The 16-bit float, written from the numbers it stands for.
#ifndef KEL_MODELLO_MEZZI_H
#define KEL_MODELLO_MEZZI_H

#include <cstdint>

namespace modello {

// Bits of a float to bits of a half: magnitudes are cut toward zero.
std::uint32_t comprimi(std::uint32_t bit_float);
// Bits of a half (low 16) to bits of the equal float.
std::uint32_t espandi(std::uint32_t mezzo);

}  // namespace modello

#endif
