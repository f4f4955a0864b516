// The status word of a value.
#ifndef KEL_BASE_STATO_H
#define KEL_BASE_STATO_H

#include <cstdint>
#include <type_traits>

#include "kelfunzioni.h"

namespace kel {

// Writes the text of a status; nothing for status 0. The formats whose samples have a status use it.
void testo_stato(uint32_t stato, char* testo) noexcept;

// Status of a 16- or 32-bit integer sample. Three bit patterns are reserved and carry no measurement: 0xCFFF, 0xCFFE
// and 0xCFFD, in 32 bits with 0xFFFF before them. They are reserved in signed and in unsigned formats, so a signed
// sample of -12289, -12290 or -12291 is no value either.
template <typename T>
constexpr uint32_t stato_riservato(T grezzo) noexcept {
    switch (static_cast<uint32_t>(static_cast<int32_t>(static_cast<std::make_signed_t<T>>(grezzo)))) {
        case 0xFFFFCFFF:
            return KEL_STATO_FUORI_SCALA;
        case 0xFFFFCFFE:
            return KEL_STATO_MANCANTE;
        case 0xFFFFCFFD:
            return KEL_STATO_NON_VALIDO;
        default:
            return 0;
    }
}

// 8-bit formats have no reserved patterns: all 256 are values.
constexpr uint32_t stato_riservato(uint8_t) noexcept {
    return 0;
}

}  // namespace kel

#endif
