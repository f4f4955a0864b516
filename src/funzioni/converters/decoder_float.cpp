#include "converters/decoder_float.h"

#include <bit>

#include "base/conversione_lineare.h"
#include "base/lettura.h"
#include "converters/mezzo_float.h"

namespace kel {
namespace {

// A NaN is an invalid value, an infinity of either sign one over the range.
uint32_t stato_float(uint32_t bit_float) noexcept {
    constexpr uint32_t infinito = 0x7F800000;
    const uint32_t modulo = bit_float & 0x7FFFFFFF;
    if (modulo < infinito)
        return 0;
    return modulo == infinito ? KEL_STATO_FUORI_SCALA : KEL_STATO_NON_VALIDO;
}

// Of 16-bit floats only the infinities have a status; a NaN is passed on as a value.
uint32_t stato_mezzo(uint16_t mezzo) noexcept {
    switch (mezzo) {
        case 0x7C00:  // +infinity
            return KEL_STATO_FUORI_SCALA | KEL_STATO_NON_VALIDO;
        case 0xFC00:  // -infinity
            return KEL_STATO_MANCANTE;
        default:
            return 0;
    }
}

}  // namespace

float float_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const auto grezzo = leggi<uint32_t>(campione);
    *stato = stato_float(grezzo);
    return *stato != 0 ? 0.0f : lineare(conv, std::bit_cast<float>(grezzo));
}

float float_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const auto grezzo = leggi<uint32_t>(campione);
    *stato = stato_float(grezzo);
    return *stato != 0 ? 0.0f : reciproca(conv, std::bit_cast<float>(grezzo));
}

float mezzo_lineare(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const auto grezzo = leggi<uint16_t>(campione);
    *stato = stato_mezzo(grezzo);
    return *stato != 0 ? 0.0f : lineare(conv, std::bit_cast<float>(espandi_mezzo(grezzo)));
}

float mezzo_reciproco(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const auto grezzo = leggi<uint16_t>(campione);
    *stato = stato_mezzo(grezzo);
    return *stato != 0 ? 0.0f : reciproca(conv, std::bit_cast<float>(espandi_mezzo(grezzo)));
}

}  // namespace kel
