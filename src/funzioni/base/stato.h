// The status word of a value.
#ifndef KEL_BASE_STATO_H
#define KEL_BASE_STATO_H

#include <cstdint>
#include <type_traits>

#include "kelfunzioni.h"

namespace kel {

// Status-text function of the formats that report a status.
void testo_stato(uint32_t stato, char* testo) noexcept;

// Status of a raw 16- or 32-bit sample: three bit patterns carry no measurement, in signed formats too.
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

// 8 bits leave no room for reserved values.
constexpr uint32_t stato_riservato(uint8_t) noexcept {
    return 0;
}

}  // namespace kel

#endif
