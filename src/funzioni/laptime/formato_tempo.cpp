// Lap times and lap numbers as text.
//
// Every number of a time is written as unsigned: -1 ms is "71582:47.295". Clients compare with the texts of negative
// times.
#include "CLaptimeAndStrings.h"

#include <charconv>
#include <cstdint>
#include <cstring>

#include "base/cifre.h"

namespace {

// Digits, padded on the left with `riempimento` to at least `larghezza` characters.
template <typename Numero>
[[gnu::cold]] char* scrivi(char* dove, Numero numero, int larghezza, char riempimento) {
    constexpr int cifre_massime = 11;  // "-2147483648", "4294967295"
    char cifre[cifre_massime] = {};
    const char* fine = std::to_chars(cifre, cifre + cifre_massime, numero).ptr;
    for (int mancanti = larghezza - static_cast<int>(fine - cifre); mancanti > 0; --mancanti)
        *dove++ = riempimento;
    for (const char* cifra = cifre; cifra != fine; ++cifra)
        *dove++ = *cifra;
    return dove;
}

constexpr int BYTE_TEMPO = 10 + 1 + 10 + 1 + 2;  // "4294967295:4294967295:59": more than any time needs

// Times below an hour: eight characters are one 64-bit word, the first of them the lowest byte.
//
//   digits   "0MMSSmmm"   minutes, seconds, milliseconds
//   word     "M:SS.mmm"   "1:23.456"; from ten minutes on behind the tens of the minutes, "12:34.567"
char* scrivi_minuti(char* dove, std::uint32_t millisecondi) {
    const std::uint32_t minuti = millisecondi / 60000;
    const std::uint64_t cifre = kel::otto_cifre(minuti * 100000 + millisecondi % 60000);
    const std::uint64_t parola = (cifre >> 16 & 0xFF) | std::uint64_t{':'} << 8 | (cifre >> 24 & 0xFFFF) << 16 |
                                 std::uint64_t{'.'} << 32 | cifre >> 40 << 40;
    *dove = static_cast<char>(cifre >> 8);  // the tens of the minutes; below ten minutes the word is stored over it
    dove += minuti >= 10 ? 1 : 0;
    std::memcpy(dove, &parola, sizeof parola);
    return dove + sizeof parola;
}

// Times of an hour or more, and negative ones.
[[gnu::cold]] char* scrivi_altri(char* dove, int millisecondi) {
    constexpr int millisecondi_ora = 3600000;
    const int ore = millisecondi / millisecondi_ora;
    const auto resto = static_cast<std::uint32_t>(millisecondi - ore * millisecondi_ora);
    const std::uint32_t minuti = resto / 60000;
    const std::uint32_t secondi = resto % 60000 / 1000;
    if (ore != 0) {
        dove = scrivi(dove, static_cast<std::uint32_t>(ore), 0, ' ');
        *dove++ = ':';
        dove = scrivi(dove, minuti, 2, '0');
        *dove++ = ':';
        return scrivi(dove, secondi, 2, '0');
    }
    dove = scrivi(dove, minuti, 0, ' ');
    *dove++ = ':';
    dove = scrivi(dove, secondi, 2, '0');
    *dove++ = '.';
    return scrivi(dove, resto % 1000, 3, '0');
}

char* scrivi_tempo(char* dove, int millisecondi) {
    constexpr std::uint32_t ora = 3600000;
    const auto giro = static_cast<std::uint32_t>(millisecondi);
    return giro < ora ? scrivi_minuti(dove, giro) : scrivi_altri(dove, millisecondi);
}

}  // namespace

std::string CLaptimeAndStrings::LapTimeToStringa(int lapTime) {
    char testo[BYTE_TEMPO];
    return {testo, scrivi_tempo(testo, lapTime)};
}

std::string CLaptimeAndStrings::LapNumAndTimeToStringa(int lapNum, int lapTime) {
    constexpr int byte_numero = 11 + 3;  // "-2147483648 - "
    char testo[byte_numero + BYTE_TEMPO];
    char* fine = scrivi(testo, lapNum, 3, ' ');
    for (const char c : {' ', '-', ' '})
        *fine++ = c;
    return {testo, scrivi_tempo(fine, lapTime)};
}
