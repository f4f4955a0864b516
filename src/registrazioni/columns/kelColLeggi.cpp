// Columns out of records.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "kelregistrazioni.h"

namespace kel_registrazioni {
namespace {

// One sample after the other, through the converter's own functions.
void leggi_valori(const unsigned char* campione, std::size_t passo, std::size_t numero, const s_kel_colonna& colonna) {
    const s_kel_converter& conv = *colonna.conv;
    if (colonna.validi != nullptr)
        std::memset(colonna.validi, 0, numero / 8 + (numero % 8 != 0 ? 1 : 0));
    for (std::size_t i = 0; i < numero; ++i, campione += passo) {
        uint32_t stato = conv.valore != nullptr ? 0 : KEL_STATO_ERRORE;
        const float valore = conv.valore != nullptr ? conv.valore(&conv, campione, &stato) : 0.0f;
        if (colonna.valori != nullptr)
            colonna.valori[i] = valore;
        if (colonna.stati != nullptr)
            colonna.stati[i] = static_cast<unsigned char>(stato);
        if (colonna.validi != nullptr && stato == 0)
            colonna.validi[i / 8] = static_cast<unsigned char>(colonna.validi[i / 8] | 1u << i % 8);
    }
}

void leggi_testi(const unsigned char* record, std::size_t passo, std::size_t numero, const s_kel_colonna& colonna) {
    for (std::size_t i = 0; i < numero; ++i, record += passo)
        kelConvGetString(colonna.conv, record, colonna.testi + i * 32);
}

}  // namespace
}  // namespace kel_registrazioni

void kelColLeggi(const void* record, size_t passo, size_t numero, s_kel_colonna* colonne,
                 unsigned num_colonne) noexcept {
    const auto* primo = static_cast<const unsigned char*>(record);
    for (unsigned i = 0; i < num_colonne; ++i) {
        const s_kel_colonna& colonna = colonne[i];
        kel_registrazioni::leggi_valori(primo + colonna.conv->offset_campione, passo, numero, colonna);
        if (colonna.testi != nullptr)
            kel_registrazioni::leggi_testi(primo, passo, numero, colonna);
    }
}
