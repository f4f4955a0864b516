#include "converters/decoder_lista_bit.h"

#include <algorithm>

#include "base/conversione_lineare.h"
#include "base/lettura.h"
#include "converters/campo_bit.h"

namespace kel {

// The set bits as the digits of a decimal number. Bits are counted from 1, and the highest stands in the units place:
// of 0x81 bits 1 and 8 are set, which is 18.
float lista_bit(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const unsigned bit = leggi<uint8_t>(campione);
    unsigned elenco = 0;
    unsigned peso = 1;
    for (unsigned numero = 8; numero > 0; --numero)
        if ((bit >> (numero - 1) & 1u) != 0) {
            elenco += numero * peso;
            peso *= 10;
        }
    *stato = 0;
    return lineare(conv, static_cast<float>(elenco));
}

// Unlike in the whole byte's list, bits are counted from 0, and each has its decimal place whether it is set or not: of
// a field with bits 1 and 3 set it is 3010.
float lista_bit_mascherata(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const unsigned bit = campo_bit(conv, leggi<uint8_t>(campione));
    const unsigned quanti = std::min<unsigned>(conv->num_bit, 8);  // a sample has no more bits
    unsigned elenco = 0;
    unsigned peso = 1;
    for (unsigned numero = 0; numero < quanti; ++numero) {
        elenco += (bit >> numero & 1u) * numero * peso;
        peso *= 10;
    }
    *stato = 0;
    return lineare(conv, static_cast<float>(elenco));
}

}  // namespace kel
