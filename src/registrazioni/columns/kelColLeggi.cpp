// The entry: columns read with the fastest loops that this processor can run.
#include <cstdint>

#include "columns/colonne.h"
#include "columns/nuclei.h"
#include "kelregistrazioni.h"

namespace {

// One value and nothing else, as kelConvGetValFloat reads it.
inline bool uno_solo(std::size_t numero, const s_kel_colonna* colonne, unsigned num_colonne) noexcept {
    return numero == 1 && num_colonne == 1 && colonne->valori != nullptr && colonne->conv->valore != nullptr &&
           colonne->stati == nullptr && colonne->validi == nullptr && colonne->testi == nullptr;
}

}  // namespace

void kelColLeggi(const void* record, size_t passo, size_t numero, s_kel_colonna* colonne,
                 unsigned num_colonne) noexcept {
    if (uno_solo(numero, colonne, num_colonne)) {
        const s_kel_converter* conv = colonne->conv;
        std::uint32_t stato = 0;
        *colonne->valori =
            conv->valore(conv, static_cast<const unsigned char*>(record) + conv->offset_campione, &stato);
    } else if (numero < kel_colonne::POCHI)
        kel_colonne::leggi_poche(record, passo, numero, colonne, num_colonne);
    else
        kel_colonne::leggi_colonne(kel_colonne::nuclei_migliori(), record, passo, numero, colonne, num_colonne);
}
