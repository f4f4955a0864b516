#include "output/cifre.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>

#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr float POTENZE_FLOAT[] = {1, 10, 100, 1e3f, 1e4f, 1e5f, 1e6f};
constexpr std::uint64_t POTENZE[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};
constexpr float INTERI_CERTI = 1e6f;          // decimals of six digits are all told apart by floats
constexpr double INTERI_CERTI_DOUBLE = 1e15;  // and of fifteen by doubles
constexpr int ESPONENTE_MINIMO = -4;
constexpr int ESPONENTE_OLTRE = 15;
constexpr float PICCOLO = 1e-4f;  // below this, and from 1e15 on, numbers have exponents
constexpr float GRANDE = 1e15f;
constexpr float INTERI = 16777216.0f;  // from here on floats are whole, and their digits those of the integer

char* scrivi(char* dove, std::uint64_t valore) {
    return std::to_chars(dove, dove + CIFRE_MASSIME, valore).ptr;
}

// An integer with its point so many digits from the right: 123 and 1 give "12.3", 120 and 2 "1.2", 5 and 0 "5.0".
char* con_punto(char* dove, std::uint64_t intero, int decimali) {
    const std::uint64_t sopra = intero / POTENZE[decimali];
    std::uint64_t sotto = intero % POTENZE[decimali];
    dove = scrivi(dove, sopra);
    *dove++ = '.';
    if (sotto == 0) {
        *dove++ = '0';
        return dove;
    }
    for (; sotto % 10 == 0; --decimali)
        sotto /= 10;
    for (int i = decimali - 1; i >= 0; --i, sotto /= 10)
        dove[i] = static_cast<char>('0' + sotto % 10);
    return dove + decimali;
}

// Of a number that has no exponent: its shortest digits with a decimal point among them.
char* breve_senza_esponente(char* dove, float grandezza) {
    char* fine = std::to_chars(dove, dove + CIFRE_MASSIME, grandezza, std::chars_format::fixed).ptr;
    if (std::memchr(dove, '.', static_cast<std::size_t>(fine - dove)) != nullptr)
        return fine;
    return std::copy_n(".0", 2, fine);
}

}  // namespace

char* scrivi_double(char* dove, double valore) {
    if (!std::isfinite(valore))
        return std::copy_n("null", 4, dove);
    if (std::signbit(valore))
        *dove++ = '-';
    // Digits, a point behind the first, and the exponent.
    char testo[CIFRE_MASSIME];
    const char* fine = std::to_chars(testo, testo + sizeof testo, std::fabs(valore), std::chars_format::scientific).ptr;
    const char* e = std::find(static_cast<const char*>(testo), fine, 'e');
    int esponente = 0;
    std::from_chars(e[1] == '+' ? e + 2 : e + 1, fine, esponente);
    if (esponente < ESPONENTE_MINIMO || esponente >= ESPONENTE_OLTRE)
        return std::copy(static_cast<const char*>(testo), fine, dove);
    if (e - testo > 1)
        testo[1] = testo[0];  // beside the other digits
    const char* da = e - testo > 1 ? testo + 1 : testo;
    const auto cifre = static_cast<int>(e - da);
    if (esponente < 0) {
        *dove++ = '0';
        *dove++ = '.';
        return std::copy(da, e, std::fill_n(dove, -esponente - 1, '0'));
    }
    const int sopra = esponente + 1;
    dove = std::copy_n(da, std::min(sopra, cifre), dove);
    dove = std::fill_n(dove, std::max(0, sopra - cifre), '0');
    *dove++ = '.';
    if (cifre <= sopra)
        *dove++ = '0';
    return std::copy(da + std::min(sopra, cifre), e, dove);
}

char* scrivi_float(char* dove, float valore) {
    const float grandezza = std::fabs(valore);
    if (!(grandezza < GRANDE) || (grandezza < PICCOLO && grandezza != 0))
        return scrivi_double(dove, come_scritto(valore));
    if (std::signbit(valore))
        *dove++ = '-';
    // Most samples are a few digits with some decimals. Where a number of up to six digits, divided by a power of ten, is
    // the float, no other text is as short.
    for (int decimali = 0; decimali < static_cast<int>(std::size(POTENZE_FLOAT)); ++decimali) {
        const float scalato = grandezza * POTENZE_FLOAT[decimali];
        if (scalato >= INTERI_CERTI)
            break;
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): the division below tells whether it is the number
        const auto intero = static_cast<std::uint32_t>(scalato + 0.5f);
        if (static_cast<float>(intero) / POTENZE_FLOAT[decimali] == grandezza && intero < 1000000)
            return con_punto(dove, intero, decimali);
    }
    if (grandezza < INTERI)
        return breve_senza_esponente(dove, grandezza);
    return scrivi_double(dove, come_scritto(grandezza));
}

char* scrivi_arrotondato(char* dove, double valore, int decimali) {
    const double grandezza = std::fabs(valore);
    const double scala = static_cast<double>(POTENZE[decimali]);
    // Where a decimal with so many digits behind the point has this number for its double, it is what rounding gives.
    if (grandezza * scala < INTERI_CERTI_DOUBLE && grandezza >= 1e-4) {
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): the division below tells whether it is the number
        const auto intero = static_cast<std::uint64_t>(grandezza * scala + 0.5);
        if (static_cast<double>(intero) / scala == grandezza) {
            if (valore < 0)
                *dove++ = '-';
            return con_punto(dove, intero, decimali);
        }
    }
    char testo[352];
    const auto scritto = std::to_chars(testo, testo + sizeof testo, valore, std::chars_format::fixed, decimali);
    const bool corto = scritto.ptr - testo <= 16;  // of fifteen digits, point and sign
    if (!corto || !(grandezza < INTERI_CERTI_DOUBLE))
        return scrivi_double(dove, come_scritto(std::string(testo, scritto.ptr)));
    const char* da = testo;
    std::uint64_t intero = 0;
    if (*da == '-')
        *dove++ = *da++;
    for (; da != scritto.ptr; ++da)
        if (*da != '.')
            intero = intero * 10 + static_cast<std::uint64_t>(*da - '0');
    // Below 0.0001 there would be an exponent.
    if (intero != 0 && static_cast<double>(intero) / scala < 1e-4)
        return scrivi_double(dove, come_scritto(std::string(testo[0] == '-' ? testo + 1 : testo, scritto.ptr)));
    return con_punto(dove, intero, decimali);
}

char* scrivi_intero(char* dove, std::int64_t valore) {
    return std::to_chars(dove, dove + CIFRE_MASSIME, valore).ptr;
}

}  // namespace kel::strumento
