// Bit fields within a sample.
#ifndef KEL_CONVERTERS_CAMPO_BIT_H
#define KEL_CONVERTERS_CAMPO_BIT_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

// The mask of a field: the single bit just above it, not the field's own bits. Of bits 0 to 11 it is bit 12, 0x1000.
// Clients depend on the values that come out of it. Without a field, or where that bit would be above bit 31, it is 0.
constexpr uint32_t maschera_campo_bit(unsigned pos_bit, unsigned num_bit) noexcept {
    return num_bit == 0 || pos_bit + num_bit >= 32 ? 0u : 1u << (pos_bit + num_bit);
}
static_assert(maschera_campo_bit(0, 12) == 0x1000 && maschera_campo_bit(8, 1) == 0x200);
static_assert(maschera_campo_bit(0, 0) == 0 && maschera_campo_bit(5, 0) == 0, "no field");
static_assert(maschera_campo_bit(0, 31) == 0x80000000u && maschera_campo_bit(0, 32) == 0);
static_assert(maschera_campo_bit(31, 1) == 0 && maschera_campo_bit(65535, 65535) == 0);

// The masked bit, moved down by the field's position. A position above bit 31, by which nothing can be shifted, gives
// 0.
inline uint32_t campo_bit(const s_kel_converter* conv, uint32_t grezzo) noexcept {
    return conv->pos_bit >= 32 ? 0u : (grezzo & conv->maschera) >> conv->pos_bit;
}

}  // namespace kel

#endif
