#include "converters/decoder_numero_testo.h"

#include <cstddef>

#include "base/aritmetica.h"
#include "base/lettura.h"
#include "base/scrittura.h"

namespace kel {
namespace {

constexpr std::size_t INIZIO_TESTO = 2;  // behind the number

template <std::size_t Byte>
void copia(const void* campione, char* testo) noexcept {
    static_assert(Byte < BYTE_TESTO, "the copy leaves room for its NUL");
    const char* sorgente = static_cast<const char*>(campione) + INIZIO_TESTO;
    for (std::size_t i = 0; i < Byte && sorgente[i] != '\0'; ++i)
        testo[i] = sorgente[i];
}

}  // namespace

float numero(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    *stato = 0;
    return static_cast<float>(leggi<int16_t>(campione));
}

float numero_o_cifra(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const char cifra = leggi<char>(campione, INIZIO_TESTO);
    if (cifra < '1' || cifra > '9')
        return numero(conv, campione, stato);
    *stato = 0;
    return static_cast<float>(cifra - '0');
}

void testo_copia_6(s_kel_converter*, const void* campione, char* testo) noexcept {
    copia<6>(campione, testo);
}

void testo_copia_30(s_kel_converter*, const void* campione, char* testo) noexcept {
    copia<30>(campione, testo);
}

}  // namespace kel
