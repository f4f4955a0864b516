// The bits of each field within an identifier.
#ifndef KEL_BASE_BIT_FID_H
#define KEL_BASE_BIT_FID_H

#include "kelfunzioni.h"

namespace kel {

inline constexpr kel_funpos bit_grandezza = kel_funpos{FID_MASK_PHI} << FID_SHIFT_PHI;
inline constexpr kel_funpos bit_oggetto = kel_funpos{FID_MASK_OBJ} << FID_SHIFT_OBJ;
inline constexpr kel_funpos bit_posizione = kel_funpos{FID_MASK_POS} << FID_SHIFT_POS;
inline constexpr kel_funpos bit_inout = kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT;
inline constexpr kel_funpos bit_numerato = kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED;
inline constexpr kel_funpos bit_leftright = kel_funpos{FID_MASK_LEFTRIGHT} << FID_SHIFT_LEFTRIGHT;
inline constexpr kel_funpos bit_frontrear = kel_funpos{FID_MASK_FRONTREAR} << FID_SHIFT_FRONTREAR;
inline constexpr kel_funpos bit_updown = kel_funpos{FID_MASK_UPDOWN} << FID_SHIFT_UPDOWN;

static_assert((bit_grandezza | bit_oggetto | bit_posizione | bit_inout | bit_numerato | bit_leftright | bit_frontrear |
               bit_updown) == 0x1FFFFFFF,
              "the fields fill bits 0 to 28");

}  // namespace kel

#endif
