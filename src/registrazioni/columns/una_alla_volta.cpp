#include "columns/una_alla_volta.h"

#include <cstdint>
#include <cstring>

namespace kel_colonne {
namespace {

// A converter without a decoder.
void senza_decoder(std::size_t numero, const s_kel_colonna& colonna, std::size_t primo) noexcept {
    if (colonna.valori != nullptr)
        std::memset(colonna.valori + primo, 0, numero * sizeof(float));
    if (colonna.stati != nullptr)
        std::memset(colonna.stati + primo, KEL_STATO_ERRORE, numero);
    if (colonna.validi != nullptr)
        std::memset(colonna.validi + primo / 8, 0, (numero + 7) / 8);
}

}  // namespace

void leggi_uno_a_uno(const unsigned char* campioni, std::size_t passo, std::size_t numero, const s_kel_colonna& colonna,
                     std::size_t primo) noexcept {
    const s_kel_converter& conv = *colonna.conv;
    if (conv.valore == nullptr) {
        senza_decoder(numero, colonna, primo);
        return;
    }
    const f_valore_conv valore = conv.valore;
    unsigned validi = 0;
    for (std::size_t i = 0; i < numero; ++i, campioni += passo) {
        std::uint32_t stato = 0;
        const float letto = valore(&conv, campioni, &stato);
        if (colonna.valori != nullptr)
            colonna.valori[primo + i] = letto;
        if (colonna.stati != nullptr)
            colonna.stati[primo + i] = static_cast<unsigned char>(stato);
        if (colonna.validi != nullptr) {
            validi |= (stato == 0 ? 1u : 0u) << i % 8;
            if (i % 8 == 7 || i + 1 == numero) {
                colonna.validi[(primo + i) / 8] = static_cast<unsigned char>(validi);
                validi = 0;
            }
        }
    }
}

void scrivi_uno_a_uno(s_kel_converter& conv, const BloccoTesti& blocco) noexcept {
    const unsigned char* campione = blocco.campioni;
    char* testo = blocco.testi;
    for (std::size_t i = 0; i < blocco.numero; ++i, campione += blocco.passo, testo += BYTE_TESTO) {
        std::memset(testo, 0, BYTE_TESTO);
        if (conv.testo != nullptr)
            conv.testo(&conv, campione, testo);
        else
            std::memcpy(testo, "- -", 4);
    }
}

}  // namespace kel_colonne
