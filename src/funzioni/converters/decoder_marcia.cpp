#include "converters/decoder_marcia.h"

#include <iterator>

#include "base/aritmetica.h"
#include "base/lettura.h"
#include "base/stato.h"

namespace kel {

float marcia(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    constexpr int minima = -8;  // no gear is known below it, and none is shown for it
    const auto grezzo = leggi<int16_t>(campione);
    *stato = stato_riservato(grezzo);
    return static_cast<float>(*stato != 0 || grezzo < minima ? minima : grezzo);
}

void testo_marcia(s_kel_converter*, const void* campione, char* testo) noexcept {
    constexpr char lettere[] = "BdWSPDRN123456789";  // -7 to 9
    constexpr int prima = -7;
    const int indice = leggi<int16_t>(campione) - prima;
    const bool nota = indice >= 0 && indice < static_cast<int>(std::size(lettere)) - 1;
    *testo = nota ? lettere[indice] : '-';
}

}  // namespace kel
