#include "converters/decoder_marcia.h"

#include <iterator>

#include "base/aritmetica.h"
#include "base/lettura.h"
#include "base/stato.h"

namespace kel {

float marcia(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    constexpr int minima = -8;  // of a sample without a gear, and of all below; it shows as "-"
    const auto grezzo = leggi<int16_t>(campione);
    *stato = stato_riservato(grezzo);
    return static_cast<float>(*stato != 0 || grezzo < minima ? minima : grezzo);
}

void testo_marcia(s_kel_converter*, const void* campione, char* testo) noexcept {
    constexpr char lettere[] = "BdWSPDRN123456789";  // of -7 to 9: R is -1, N is 0
    constexpr int prima = -7;
    const int indice = leggi<int16_t>(campione) - prima;
    const bool nota = indice >= 0 && indice < static_cast<int>(std::size(lettere)) - 1;
    *testo = nota ? lettere[indice] : '-';
}

}  // namespace kel
