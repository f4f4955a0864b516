#include "comune/testo_limite.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace prova {
namespace {

static_assert(std::endian::native == std::endian::little, "the first character lies in the lowest byte");

// Eight decimal digits of a number below 10^8, one in each byte, the first in the lowest byte. The number is split into
// halves, quarters and digits; one multiplication divides all parts of a step, which lie side by side in the register.
constexpr std::uint64_t otto_cifre(std::uint32_t numero) {
    std::uint64_t x = numero / 10000 | std::uint64_t{numero % 10000} << 32;
    std::uint64_t q = (x * 10486 >> 20) & 0x0000007F0000007F;
    x = q | (x - q * 100) << 16;
    q = (x * 103 >> 10) & 0x000F000F000F000F;
    return q | (x - q * 10) << 8;
}
static_assert(otto_cifre(12345678) == 0x0807060504030201);

// Constants for each number of decimals.
struct Punto {
    float scala;
    std::uint64_t interi;     // bytes of the digits before the point, after they have been shifted to make room for it
    std::uint64_t frazione;   // bytes of the digits after it
    std::uint64_t caratteri;  // added to the digits: makes them characters, and inserts the point
    unsigned ultimo_intero;   // byte of the digit before the point, which is written even if it is zero
    unsigned spinta;          // bits by which the digits before the point are shifted
};

constexpr Punto punto(unsigned decimali, float scala) {
    constexpr std::uint64_t zeri = 0x3030303030303030;
    if (decimali == 0)
        return {scala, ~std::uint64_t{0}, 0, zeri, 7, 0};
    const unsigned posto = 7 - decimali;
    const std::uint64_t prima = (std::uint64_t{1} << 8 * posto) - 1;
    return {scala, prima, ~prima << 8, zeri - (std::uint64_t{2} << 8 * posto), posto - 1, 8};
}

constexpr Punto PUNTI[] = {punto(0, 1.0f), punto(1, 10.0f), punto(2, 100.0f), punto(3, 1000.0f)};
constexpr std::uint32_t POTENZE[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

}  // namespace

void testo_limite(char* testo, float valore, const Forma& forma) {
    const Punto& p = PUNTI[std::min(forma.decimali, 3u)];
    const unsigned negativo = valore < 0.0f ? 1 : 0;
    const unsigned lunghezza = forma.larghezza + p.spinta / 8;
    // The converters round halves up, exactly. Adding 0.5 would round some sums up; adding the float just below 0.5 and
    // truncating is right for every float.
    constexpr float quasi_mezzo = 0x1.fffffep-2f;
    const auto numero = static_cast<std::uint32_t>(std::fabs(valore) * p.scala + quasi_mezzo);
    std::memset(testo, 0, 32);
    if (numero >= POTENZE[forma.larghezza - negativo]) {
        std::memset(testo, '-', lunghezza);
        return;
    }
    const std::uint64_t cifre = otto_cifre(numero);
    const std::uint64_t con_punto = (cifre >> p.spinta & p.interi) | (cifre & p.frazione);
    const auto prima =
        static_cast<unsigned>(std::countr_zero(con_punto | std::uint64_t{1} << 8 * p.ultimo_intero)) & ~7u;
    const std::uint64_t vuoti = (std::uint64_t{1} << prima) - 1;
    constexpr std::uint64_t bianchi = 0x2020202020202020;
    std::uint64_t parola = ((con_punto + p.caratteri) & ~vuoti) | (bianchi & vuoti);
    parola ^= std::uint64_t{negativo} * (' ' ^ '-') << ((prima - 8) & 63);
    parola >>= 64 - 8 * lunghezza;
    std::memcpy(testo, &parola, sizeof parola);
}

}  // namespace prova
