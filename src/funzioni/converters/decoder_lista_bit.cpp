#include "converters/decoder_lista_bit.h"

#include <algorithm>

#include "base/conversione_lineare.h"
#include "base/lettura.h"
#include "converters/campo_bit.h"

namespace kel {

// A decimal number whose digits are the set bits, counted from 1, the highest in the units place: 0x81 is 18.
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

// Unlike the whole byte's list, bits are counted from 0 and each has its own decimal place, set or not.
float lista_bit_mascherata(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const unsigned bit = campo_bit(conv, leggi<uint8_t>(campione));
    const unsigned quanti = std::min<unsigned>(conv->num_bit, 8);  // a byte has no bit above its eighth
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
