#include "converters/decoder_coordinata.h"

#include <cstdint>

#include "base/lettura.h"
#include "base/scrittura.h"
#include "base/stato.h"

namespace kel {

// Degrees and fraction are each printed with their sign: -12.3456789 shows as "-12.-3456789". Clients parse that form.
void testo_coordinata(s_kel_converter*, const void* campione, char* testo) noexcept {
    constexpr int unita_per_grado = 10000000;
    const auto grezzo = leggi<int32_t>(campione);
    if (stato_riservato(grezzo) != 0)
        return;
    Scrittore(testo).con_spazi(grezzo / unita_per_grado).testo(".").con_zeri(grezzo % unita_per_grado, 7);
}

}  // namespace kel
