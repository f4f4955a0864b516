#include "converters/testo_numerico.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "aritmetica.h"
#include "converters/scrittura.h"

namespace kel {
namespace {

// Decimals between 0 and 1 chosen by magnitude: one decimal as long as the number fits the width with it. Between the
// two limits the last choice stays, so that a value on the edge does not flicker.
uint32_t decimali_automatici(float valore, uint32_t larghezza, uint32_t decimali) noexcept {
    constexpr double potenze[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                  1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27,
                                  1e28, 1e29, 1e30, 1e31, 1e32, 1e33, 1e34, 1e35, 1e36, 1e37, 1e38, 1e39, 1e40};
    if (larghezza <= 2)
        return 0;
    // From 41 places on the limits lie beyond every finite float.
    const uint32_t w = std::min<uint32_t>(larghezza, std::size(potenze));
    if (valore < 0.0f) {
        const double basso = -potenze[w - 2];
        const double alto = potenze[w - 3] + basso;
        return valore >= alto ? 1 : valore <= basso ? 0 : decimali;
    }
    const double alto = potenze[w - 1];
    const double basso = alto - potenze[w - 2];
    return valore <= basso ? 1 : valore >= alto ? 0 : decimali;
}

// The digits of a number from the right, zeros once they are used up. A number too long is dashes instead.
class CifreDaDestra {
public:
    // `permesse`: digits that the number may have; `larghezza`: dashes shown when it has more.
    CifreDaDestra(float numero, uint32_t permesse, uint32_t larghezza) noexcept : trattini_(larghezza) {
        // Compared before it is converted: what does not fit an int has no conversion. A NaN fails the comparison too.
        constexpr float oltre_int = 2147483648.0f;
        if (numero < oltre_int) {
            resto_ = static_cast<uint32_t>(numero);
            troppo_lungo_ = conta(resto_) > permesse;
        }
    }

    char prossima() noexcept {
        if (troppo_lungo_)
            return trattini_ != 0 ? (--trattini_, '-') : '0';
        const char cifra = static_cast<char>('0' + resto_ % 10);
        resto_ /= 10;
        return cifra;
    }

private:
    static uint32_t conta(uint32_t numero) noexcept {
        uint32_t cifre = 1;
        for (; numero >= 10; numero /= 10)
            ++cifre;
        return cifre;
    }

    uint32_t resto_ = 0;
    uint32_t trattini_;
    bool troppo_lungo_ = true;
};

// Removes or blanks the zeros before the first figure, and puts the sign before it. A zero before the point stays.
void togli_zeri(char* testo, uint32_t lunghezza, bool negativo, eFormatoConv formato) noexcept {
    uint32_t prima = 0;  // the first character that stays
    while (prima + 1 < lunghezza && testo[prima] == '0' && testo[prima + 1] != '.')
        ++prima;
    if (prima == 0)
        return;
    if (negativo)
        testo[--prima] = '-';
    if (formato == FORMATO_SINISTRA || formato == FORMATO_COMPATTO) {
        std::memmove(testo, testo + prima, lunghezza - prima);
        std::memset(testo + lunghezza - prima, formato == FORMATO_SINISTRA ? ' ' : '\0', prima);
    } else {
        std::memset(testo, ' ', prima);
    }
}

}  // namespace

void testo_numerico(s_kel_converter* conv, const void* campione, char* testo) noexcept {
    uint32_t stato = KEL_STATO_ERRORE;
    const float valore = conv->valore != nullptr ? conv->valore(conv, campione, &stato) : 0.0f;
    if (stato != 0) {
        if (conv->testo_stato != nullptr)
            conv->testo_stato(stato, testo);
        else
            *testo = '?';
        return;
    }
    if (conv->auto_decimali != 0)
        conv->decimali = decimali_automatici(valore, conv->larghezza, conv->decimali);

    constexpr float scale[] = {1.0f, 10.0f, 100.0f, 1000.0f};
    const uint32_t decimali = std::min<uint32_t>(conv->decimali, 3);
    const uint32_t larghezza = conv->larghezza;
    const bool negativo = valore < 0.0f;
    // One place of a negative number is kept for its sign.
    const uint32_t permesse = !negativo ? larghezza : larghezza > decimali + 1 ? larghezza - 1 : 0;
    // Scaled and rounded in single precision: 123.45 to one decimal is 1234.5, and shows as 123.5.
    const float modulo = negativo ? -valore : valore;
    CifreDaDestra cifre(modulo * scale[decimali] + 0.5f, permesse, larghezza);

    const uint32_t lunghezza =
        std::min(std::min(larghezza, caratteri_testo) + (decimali != 0 ? 1u : 0u), caratteri_testo);
    uint32_t posto = lunghezza;
    for (uint32_t scritte = 1; posto > 0; ++scritte) {
        testo[--posto] = cifre.prossima();
        if (scritte == decimali && posto > 0)
            testo[--posto] = '.';
    }
    togli_zeri(testo, lunghezza, negativo, conv->formato);
}

void testo_assente(s_kel_converter*, const void*, char* testo) noexcept {
    std::memcpy(testo, "- -", 4);
}

}  // namespace kel
