// Lap times and lap numbers from text, by the rules of a stream in the classic locale.
#include <charconv>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "CLaptimeAndStrings.h"

namespace {

constexpr bool spazio(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool cifra(char c) {
    return c >= '0' && c <= '9';
}

// Reads numbers off a text as a stream does: white space, a sign, digits. After a failure nothing is read any more, and
// a number that nothing was read for keeps its value.
class Lettore {
public:
    explicit Lettore(std::string_view testo) : resto_(testo) {}

    // A number that does not fit is the nearest that does, and a failure; without digits it is 0, and a failure.
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
        const char* fine = resto_.data() + resto_.size();
        const auto esito = std::from_chars(resto_.data(), fine, modulo);
        resto_.remove_prefix(static_cast<std::size_t>(esito.ptr - resto_.data()));
        const bool smisurato = esito.ec == std::errc::result_out_of_range;
        assegna(valore, smisurato ? std::numeric_limits<std::uint64_t>::max() : modulo, negativo);
    }

    // Passes over one character of any kind; at the end of the text that fails.
    void salta() {
        if (resto_.empty())
            fallito_ = true;
        if (!fallito_)
            resto_.remove_prefix(1);
    }

private:
    // An unsigned number is negated modulo 2^32, but too large a one is the largest whatever its sign.
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
};

int leggi_tempo(std::string_view testo) {
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
    const bool con_millesimi = testo.find('.') != std::string_view::npos;
    const std::uint32_t millisecondi = con_millesimi ? campi[0] * 60000u + campi[1] * 1000u + campi[2]
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
