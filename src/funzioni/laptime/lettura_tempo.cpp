// Lap times and lap numbers from text, read as a standard stream in the classic locale reads numbers.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "CLaptimeAndStrings.h"

namespace {

constexpr bool spazio(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool cifra(char c) {
    return c >= '0' && c <= '9';
}

// Reads numbers off a text as a stream does: white space, a sign, digits. After a failure nothing more is read, and the
// variables of the numbers that follow keep their values.
class Lettore {
public:
    explicit Lettore(std::string_view testo) : resto_(testo) {}

    // Two failures give a value too: a number that does not fit is the nearest one that does, and one without digits is
    // 0.
    template <typename Numero>
    void numero(Numero& valore) {
        if (fallito_)
            return;
        while (!resto_.empty() && spazio(resto_.front()))
            resto_.remove_prefix(1);
        if (resto_.empty()) {
            fallito_ = true;
            return;
        }
        const bool negativo = resto_.front() == '-';
        if (negativo || resto_.front() == '+')
            resto_.remove_prefix(1);
        if (resto_.empty() || !cifra(resto_.front())) {
            valore = 0;
            fallito_ = true;
            return;
        }
        std::uint64_t modulo = 0;
        for (; !resto_.empty() && cifra(resto_.front()); resto_.remove_prefix(1))
            modulo = std::min(modulo * 10 + static_cast<std::uint64_t>(resto_.front() - '0'), SMISURATO);
        assegna(valore, modulo, negativo);
    }

    // Passes over one character of any kind. At the end of the text there is none, which is a failure.
    void salta() {
        if (resto_.empty())
            fallito_ = true;
        if (fallito_)
            return;
        punto_ = punto_ || resto_.front() == '.';
        resto_.remove_prefix(1);
    }

    // Whether the text has a point anywhere: among the characters passed over, or in the rest.
    bool punto() const { return punto_ || resto_.find('.') != std::string_view::npos; }

private:
    // Stands for every number that is too large; further digits leave it there.
    static constexpr std::uint64_t SMISURATO = std::uint64_t{1} << 40;

    // An unsigned number with a minus is negated modulo 2^32; one too large is the largest, whatever its sign.
    void assegna(std::uint32_t& valore, std::uint64_t modulo, bool negativo) {
        constexpr std::uint32_t massimo = std::numeric_limits<std::uint32_t>::max();
        fallito_ = modulo > massimo;
        valore = fallito_ ? massimo : static_cast<std::uint32_t>(modulo);
        if (negativo && !fallito_)
            valore = 0u - valore;
    }

    void assegna(std::int32_t& valore, std::uint64_t modulo, bool negativo) {
        const std::uint64_t limite = std::uint64_t{1} << 31;
        fallito_ = negativo ? modulo > limite : modulo >= limite;
        if (fallito_)
            valore = negativo ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
        else
            valore = static_cast<std::int32_t>(negativo ? 0u - static_cast<std::uint32_t>(modulo)
                                                        : static_cast<std::uint32_t>(modulo));
    }

    std::string_view resto_;
    bool fallito_ = false;
    bool punto_ = false;
};

constexpr int ALTRA_FORMA = -1;

// "1:23.456" and "12:34.567", as the library writes times below an hour: the last eight characters are read as one
// 64-bit word, the first of them the lowest byte. -1 for every other text.
//
//   parola                   "1:23.456"
//   forma                    "0:00.000"
//   cifre = parola ^ forma    10230456    values of digits from 0 to 9; 0 where a separator is what it must be
//
// Of a byte that is none of these, `cifre` or the sum with `limiti` has a bit in the upper half: the sum of the largest
// value that is good, 9 or 0, is 15.
int leggi_minuti(std::string_view testo) {
    constexpr std::size_t n = sizeof(std::uint64_t);
    if (testo.size() != n && testo.size() != n + 1)
        return ALTRA_FORMA;
    const auto decine = testo.size() == n ? 0u : static_cast<std::uint32_t>(testo.front()) - '0';
    std::uint64_t parola = 0;
    std::memcpy(&parola, testo.data() + testo.size() - n, n);
    constexpr std::uint64_t forma = 0x3030302E30303A30;
    constexpr std::uint64_t limiti = 0x0606060F06060F06;
    const std::uint64_t cifre = parola ^ forma;
    if (((cifre | (cifre + limiti)) & 0xF0F0F0F0F0F0F0F0) != 0 || decine > 9)
        return ALTRA_FORMA;
    const auto a = [cifre](int posto) { return static_cast<std::uint32_t>(cifre >> 8 * posto & 0xF); };
    return static_cast<int>(decine * 600000 + a(0) * 60000 + a(2) * 10000 + a(3) * 1000 + a(5) * 100 + a(6) * 10 +
                            a(7));
}

int leggi_tempo(std::string_view testo) {
    if (const int tempo = leggi_minuti(testo); tempo != ALTRA_FORMA)
        return tempo;
    // One variable for the three fields: a field that nothing is read for repeats the one before it.
    std::uint32_t campo = 0;
    std::uint32_t campi[3];
    Lettore lettore(testo);
    for (int i = 0; i < 3; ++i) {
        if (i != 0)
            lettore.salta();
        lettore.numero(campo);
        campi[i] = campo;
    }
    const std::uint32_t millisecondi = lettore.punto() ? campi[0] * 60000u + campi[1] * 1000u + campi[2]
                                                       : campi[0] * 3600000u + campi[1] * 60000u + campi[2] * 1000u;
    return static_cast<int>(millisecondi);
}

}  // namespace

int CLaptimeAndStrings::StringaToLapTime(const std::string& text) {
    return leggi_tempo(text);
}

void CLaptimeAndStrings::StringaToLapNumAndTime(const std::string& text, int& lapNum, int& lapTime) {
    constexpr std::size_t inizio_tempo = 6;  // where a line with a number of up to three digits has its time
    std::int32_t numero = 0;
    Lettore(text).numero(numero);
    lapNum = numero;
    if (text.size() < inizio_tempo)
        throw std::out_of_range("basic_string::substr");
    lapTime = leggi_tempo(std::string_view(text).substr(inizio_tempo));
}
