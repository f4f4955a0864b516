#include "base/scrittura.h"

namespace kel {
namespace {

// The decimal digits of a number without its sign. Computed as unsigned, because 2147483648, the magnitude of the most
// negative int, is no int.
class Cifre {
public:
    explicit Cifre(int numero) noexcept {
        unsigned resto = numero < 0 ? 0u - static_cast<unsigned>(numero) : static_cast<unsigned>(numero);
        do {
            cifre_[--prima_] = static_cast<char>('0' + resto % 10);
            resto /= 10;
        } while (resto != 0);
    }
    std::string_view vista() const noexcept { return {cifre_ + prima_, MASSIMO - prima_}; }

private:
    static constexpr unsigned MASSIMO = 10;  // 2^31 has ten digits
    char cifre_[MASSIMO];
    unsigned prima_ = MASSIMO;
};

}  // namespace

void Scrittore::carattere(char c) noexcept {
    *prossimo_++ = c;
}

Scrittore& Scrittore::testo(std::string_view testo) noexcept {
    for (const char c : testo)
        carattere(c);
    return *this;
}

Scrittore& Scrittore::con_spazi(int numero, unsigned larghezza) noexcept {
    const Cifre cifre(numero);
    const unsigned segno = numero < 0 ? 1 : 0;
    for (auto scritti = static_cast<unsigned>(cifre.vista().size()) + segno; scritti < larghezza; ++scritti)
        carattere(' ');
    if (segno != 0)
        carattere('-');
    return testo(cifre.vista());
}

Scrittore& Scrittore::con_zeri(int numero, unsigned larghezza) noexcept {
    const Cifre cifre(numero);
    const unsigned segno = numero < 0 ? 1 : 0;
    if (segno != 0)
        carattere('-');
    for (auto scritti = static_cast<unsigned>(cifre.vista().size()) + segno; scritti < larghezza; ++scritti)
        carattere('0');
    return testo(cifre.vista());
}

}  // namespace kel
