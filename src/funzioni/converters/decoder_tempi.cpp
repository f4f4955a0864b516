#include "converters/decoder_tempi.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "base/cifre.h"
#include "base/lettura.h"
#include "base/scrittura.h"

namespace kel {
namespace {

// A time split for display. The parts of a negative time are negative. Three texts need its divisions, which are kept
// once: no text of a usual lap time takes this way.
struct Tempo {
    int ore = 0;
    int minuti;
    int secondi;
    int centesimi;

    [[gnu::noinline]] explicit Tempo(int32_t millisecondi) noexcept
        : minuti(millisecondi / 60000),
          secondi(millisecondi % 60000 / 1000),
          centesimi((millisecondi - secondi * 1000) / 10 % 100) {
        if (minuti >= 60) {
            ore = minuti / 60;
            minuti %= 60;
        }
    }
};

bool compatto(const s_kel_converter* conv) noexcept {
    return conv->larghezza == 5;
}
bool ai_decimi(const s_kel_converter* conv) noexcept {
    return conv->decimali == 1;
}

// " 1:23.4"
void minuti_e_decimi(Scrittore& testo, const Tempo& tempo) noexcept {
    testo.con_spazi(tempo.minuti, 2).testo(":").con_zeri(tempo.secondi, 2).testo(".").con_spazi(tempo.centesimi / 10);
}

// " 1:02:03". The form with tenths shows all digits of the hours, the others the last two: its callers say which.
void ore_minuti_secondi(Scrittore& testo, const Tempo& tempo, int ore) noexcept {
    testo.con_spazi(ore, 2).testo(":").con_zeri(tempo.minuti, 2).testo(":").con_zeri(tempo.secondi, 2);
}

void tempo_normale(Scrittore& testo, const Tempo& tempo, bool decimi) noexcept {
    if (tempo.ore >= 1)
        ore_minuti_secondi(testo, tempo, decimi ? tempo.ore : tempo.ore % 100);
    else if (decimi)
        minuti_e_decimi(testo, tempo);
    else
        testo.con_spazi(tempo.minuti, 2).testo(":").con_zeri(tempo.secondi, 2).testo(".").con_zeri(tempo.centesimi, 2);
}

// For a width of five: "1:02.03" from one hour on, with a point before the seconds, and " 10:02" from ten hours on.
void tempo_compatto(Scrittore& testo, const Tempo& tempo, bool decimi) noexcept {
    if (tempo.ore > 9)
        testo.con_spazi(tempo.ore, 3).testo(":").con_zeri(tempo.minuti, 2);
    else if (tempo.ore >= 1)
        testo.con_spazi(tempo.ore).testo(":").con_zeri(tempo.minuti, 2).testo(".").con_zeri(tempo.secondi, 2);
    else if (decimi)
        minuti_e_decimi(testo, tempo);
    else
        testo.con_spazi(tempo.minuti).testo(":").con_zeri(tempo.secondi, 2).testo(".").con_zeri(tempo.centesimi, 2);
}

// Times of an hour or more, and negative ones.
[[gnu::cold]] void altri_tempi(char* testo, int32_t millisecondi, bool compatto, bool decimi) noexcept {
    const Tempo tempo(millisecondi);
    Scrittore scrittore(testo);
    if (compatto)
        tempo_compatto(scrittore, tempo, decimi);
    else
        tempo_normale(scrittore, tempo, decimi);
}

// Times below an hour, those of nearly all laps: the whole text is one 64-bit word, its first character the lowest
// byte.
//
//   digits     "00MMSSCC"   minutes, seconds, hundredths
//   word       "MM:SS.CC"   " 1:23.45": below ten minutes the first digit is a blank
//   decimi     "MM:SS.C"    " 1:23.4": the word without its last character
//   compatto   "M:SS.CC"    "1:23.45": the word without its first one; from ten minutes on as `decimi`, "12:34.5"
void tempo_di_minuti(char* testo, uint32_t millisecondi, bool compatto, bool decimi) noexcept {
    const uint32_t minuti = millisecondi / 60000;
    const uint64_t cifre = otto_cifre(minuti * 10000 + millisecondi % 60000 / 10);  // "00MMSSCC"
    uint64_t parola = (cifre >> 16 & 0xFFFF) | uint64_t{':'} << 16 | (cifre >> 32 & 0xFFFF) << 24 |
                      uint64_t{'.'} << 40 | cifre >> 48 << 48;
    if (minuti < 10)
        parola ^= '0' ^ ' ';  // the lowest byte, '0', becomes ' '
    if (decimi || (compatto && minuti > 9))
        parola = parola << 8 >> 8;  // the highest byte becomes the text's NUL
    else if (compatto)
        parola >>= 8;
    std::memcpy(testo, &parola, sizeof parola);
}

}  // namespace

void testo_tempo_giro(s_kel_converter* conv, const void* campione, char* testo) noexcept {
    constexpr uint32_t ora = 3600000;
    const auto millisecondi = leggi<int32_t>(campione);
    const auto giro = static_cast<uint32_t>(millisecondi);
    if (giro < ora)
        tempo_di_minuti(testo, giro, compatto(conv), ai_decimi(conv));
    else
        altri_tempi(testo, millisecondi, compatto(conv), ai_decimi(conv));
}

// Seconds and hundredths. Minutes are not shown: two laps of a track differ by seconds.
void testo_differenza_tempo(s_kel_converter* conv, const void* campione, char* testo) noexcept {
    const auto millisecondi = leggi<int32_t>(campione);
    const Tempo tempo(millisecondi);
    const bool negativo = millisecondi < 0;
    Scrittore scrittore(testo);
    if (compatto(conv))
        scrittore.testo(negativo ? "-" : " ");
    else
        scrittore.testo(negativo ? " -" : " +");
    scrittore.con_spazi(std::abs(tempo.secondi), 2).testo(".").con_zeri(std::abs(tempo.centesimi), 2);
}

void testo_tempo_pacchetto(s_kel_converter*, const void* campione, char* testo) noexcept {
    const Tempo tempo(leggi<int32_t>(campione, 4));
    Scrittore scrittore(testo);
    if (tempo.ore >= 1)
        ore_minuti_secondi(scrittore, tempo, tempo.ore % 100);
    else
        scrittore.con_spazi(tempo.minuti, 2)
            .testo(":")
            .con_zeri(tempo.secondi, 2)
            .testo(".")
            .con_zeri(tempo.centesimi * 10, 3);
}

}  // namespace kel
