#include "converters/decoder_interi.h"

#include "base/conversione_lineare.h"
#include "base/lettura.h"
#include "base/stato.h"
#include "converters/campo_bit.h"

namespace kel {

template <typename T>
float intero_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const T grezzo = leggi<T>(campione);
    *stato = stato_riservato(grezzo);
    return *stato != 0 ? 0.0f : lineare(conv, static_cast<float>(grezzo));
}

template <typename T>
float intero_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const T grezzo = leggi<T>(campione);
    *stato = stato_riservato(grezzo);
    return *stato != 0 ? 0.0f : reciproca(conv, static_cast<float>(grezzo));
}

template <typename T>
float intero_campo_bit(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const T grezzo = leggi<T>(campione);
    *stato = stato_riservato(grezzo);
    return *stato != 0 ? 0.0f : lineare(conv, static_cast<float>(static_cast<T>(campo_bit(conv, grezzo))));
}

template float intero_lineare<int32_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_lineare<int16_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_lineare<uint32_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_lineare<uint16_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_lineare<uint8_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;

template float intero_reciproco<int32_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_reciproco<int16_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_reciproco<uint32_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_reciproco<uint16_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_reciproco<uint8_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;

template float intero_campo_bit<uint32_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_campo_bit<uint16_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;
template float intero_campo_bit<uint8_t>(const s_kel_converter*, const void*, uint32_t*) noexcept;

}  // namespace kel
