#include "converters/testo_numerico.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "base/aritmetica.h"
#include "base/cifre.h"
#include "base/scrittura.h"

namespace kel {
namespace {

// Automatic decimals: one as long as the number fits the width with it, else none. Between the two limits the last
// choice stays, so that the text does not change its form with every sample there. In a width of 4 there is one decimal
// up to 900 and none from 1000 on.
uint32_t decimali_automatici(float valore, uint32_t larghezza, uint32_t decimali) noexcept {
    static constexpr double potenze[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,
                                         1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21,
                                         1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31, 1e32,
                                         1e33, 1e34, 1e35, 1e36, 1e37, 1e38, 1e39, 1e40};
    if (larghezza <= 2)
        return 0;
    // In 41 places and more every finite float fits.
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

constexpr float SCALE[] = {1.0f, 10.0f, 100.0f, 1000.0f};

// Rounds halves up: it is added before the fraction is cut. It is not 0.5 but the largest float below it, because the
// sum is rounded to a float first: with 0.5, 0.49999997 would show as 1 and 8388609 as 8388610. With this number the
// result is right for every float:
// - of a fraction of one half, the sum is 2^-25 below the next whole number, and is rounded up to it;
// - of a smaller fraction, the sum stays below the next whole number;
// - from 2^23 on floats have no fraction, and less than half their step is added: the sum is rounded back.
constexpr float QUASI_MEZZO = 0x1.fffffep-2f;

uint32_t decimali_mostrati(const s_kel_converter& conv) noexcept {
    return std::min<uint32_t>(conv.decimali, std::size(SCALE) - 1);
}

// The digits of a number from the right, and zeros before its first one. A number with too many digits gives dashes.
class CifreDaDestra {
public:
    // `permesse`: digits that the number may have; `larghezza`: dashes shown when it has more.
    CifreDaDestra(float numero, uint32_t permesse, uint32_t larghezza) noexcept : trattini_(larghezza) {
        // Compared first: to convert what does not fit an int is undefined. A NaN fails the comparison too.
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

// Removes or blanks the zeros before the first digit that is none, and puts the sign there. A zero before the point
// stays.
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

// Any number in any field, a character at a time.
[[gnu::cold]] void testo_lungo(char* testo, float numero, const s_kel_converter& conv, bool negativo) noexcept {
    const uint32_t larghezza = conv.larghezza;
    const uint32_t decimali = decimali_mostrati(conv);
    // A negative number keeps one place for its sign if the width leaves two or more places before the point; if not,
    // it may have no digits, and shows as dashes. The record's decimals count here, also those above 3, which are not
    // shown.
    const bool posto_segno = int64_t{larghezza} - conv.decimali > 1;
    const uint32_t permesse = !negativo ? larghezza : posto_segno ? larghezza - 1 : 0;
    CifreDaDestra cifre(numero, permesse, larghezza);
    const uint32_t lunghezza =
        std::min(std::min(larghezza, CARATTERI_TESTO) + (decimali != 0 ? 1u : 0u), CARATTERI_TESTO);
    uint32_t posto = lunghezza;
    for (uint32_t scritte = 1; posto > 0; ++scritte) {
        testo[--posto] = cifre.prossima();
        if (scritte == decimali && posto > 0)
            testo[--posto] = '.';
    }
    togli_zeri(testo, lunghezza, negativo, conv.formato);
}

// --- Short texts: at most eight characters in one 64-bit word, the first in the lowest byte --------------------------

constexpr uint32_t CIFRE_PAROLA = 8;

// A number below POTENZE_10[n] fits n places; none fits 0 places.
constexpr float POTENZE_10[] = {0.0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f};
static_assert(std::size(POTENZE_10) == CIFRE_PAROLA + 1);

// A word whose lowest bits are set, up to 63 of them.
constexpr uint64_t primi(uint32_t bit) noexcept {
    return (uint64_t{1} << bit) - 1;
}

// A number that fits its field, in a field that fits a word. `segno`: 1 for a negative number, else 0. A word's
// characters for -1.2 in a width of 4 with 1 decimal, where the number is 12:
//
//   digits of the number                   "0012"
//   blanks before the first one            "  12"   a zero right before the point would stay: 0.2 is "  02" here
//   the sign in the last blank             " -12"
//   the point                              " -1.2"
//   FORMATO_COMPATTO: without blanks       "-1.2"
//   FORMATO_SINISTRA: they go to the end   "-1.2 "
//
// No branch depends on the sign or on the number of digits. They change from sample to sample: a processor would often
// predict such a branch wrongly, which costs some 15 cycles each time.
void testo_corto(char* testo, uint32_t numero, uint32_t larghezza, uint32_t decimali, uint32_t segno,
                 eFormatoConv formato) noexcept {
    constexpr uint64_t spazi = ' ' * OGNI_BYTE;
    const uint32_t interi = 8 * (larghezza - decimali);  // bits of the places before the point
    uint64_t parola = otto_cifre(numero) >> 8 * (CIFRE_PAROLA - larghezza);

    // The lowest byte that is no '0', or that stands right before the point, is the first to stay.
    const uint64_t figure = (parola ^ '0' * OGNI_BYTE) | uint64_t{1} << (interi - 8);
    const uint32_t prima = static_cast<uint32_t>(std::countr_zero(figure)) & 56;  // bits of the characters before it
    parola = (parola & ~primi(prima)) | (spazi & primi(prima));
    parola ^= (uint64_t{segno} * (' ' ^ '-') << prima) >> 8;

    uint32_t lunghezza = 8 * larghezza;
    if (decimali != 0) {
        const uint64_t frazione = parola >> interi;
        parola = (parola & primi(interi)) | ('.' | frazione << 8) << interi;
        lunghezza += 8;
    }
    if (formato == FORMATO_SINISTRA || formato == FORMATO_COMPATTO) {
        const uint32_t vuoti = prima - 8 * segno;
        parola >>= vuoti;
        if (formato == FORMATO_SINISTRA)
            parola |= (spazi & primi(vuoti)) << (lunghezza - vuoti - 8) << 8;
    }
    std::memcpy(testo, &parola, sizeof parola);
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

    // The product is rounded to a float: 123.45 with one decimal is 1234.5, and shows as 123.5.
    const uint32_t decimali = decimali_mostrati(*conv);
    const float numero = std::fabs(valore) * SCALE[decimali] + QUASI_MEZZO;
    const bool negativo = valore < 0.0f;

    const uint32_t larghezza = conv->larghezza;
    const uint32_t segno{negativo};
    const int64_t posti = int64_t{larghezza} - segno;  // for digits
    const uint32_t punto{decimali != 0};
    if (larghezza <= CIFRE_PAROLA - punto && posti > conv->decimali && numero < POTENZE_10[posti])
        testo_corto(testo, static_cast<uint32_t>(numero), larghezza, decimali, segno, conv->formato);
    else
        testo_lungo(testo, numero, *conv, negativo);
}

void testo_assente(s_kel_converter*, const void*, char* testo) noexcept {
    std::memcpy(testo, "- -", 4);
}

}  // namespace kel
