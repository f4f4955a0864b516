// Numbers with a point to texts and back, by the C library's printf and strtod, which know no locale here and round
// correctly. The C++ library's own to_chars carries 100 KB of tables that save time nobody misses in messages.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace std {

namespace {

to_chars_result metti(char* first, char* last, const char* testo, int quanti) {
    if (quanti < 0 || quanti > last - first)
        return {last, errc::value_too_large};
    memcpy(first, testo, static_cast<size_t>(quanti));
    return {first + quanti, errc()};
}

constexpr int CIFRE_FLOAT = 9;
constexpr int CIFRE_DOUBLE = 17;
constexpr int DECIMALI_MASSIMI = 340;

// The fewest digits that read back as the same number, then written without an exponent.
template <typename Numero, typename Leggi>
to_chars_result piu_corto(char* first, char* last, Numero valore, int cifre_massime, Leggi leggi) {
    char testo[400];
    if (!isfinite(valore) || valore == 0)
        return metti(first, last, testo, snprintf(testo, sizeof testo, "%.0f", static_cast<double>(valore)));
    int cifre = 1;
    while (cifre < cifre_massime) {
        snprintf(testo, sizeof testo, "%.*e", cifre - 1, static_cast<double>(valore));
        if (leggi(testo) == valore)
            break;
        ++cifre;
    }
    snprintf(testo, sizeof testo, "%.*e", cifre - 1, static_cast<double>(valore));
    const int esponente = atoi(strchr(testo, 'e') + 1);
    const int decimali = min(max(cifre - 1 - esponente, 0), DECIMALI_MASSIMI);
    return metti(first, last, testo, snprintf(testo, sizeof testo, "%.*f", decimali, static_cast<double>(valore)));
}

// What from_chars takes for a number in decimal: no blanks, no plus, no 0x before it.
template <typename Numero, typename Leggi>
from_chars_result leggi_numero(const char* first, const char* last, Numero& value, Leggi leggi) {
    const char* cifre = first != last && *first == '-' ? first + 1 : first;
    const bool numero = cifre != last && ((*cifre >= '0' && *cifre <= '9') || *cifre == '.');
    const bool esadecimale = last - cifre > 1 && cifre[0] == '0' && (cifre[1] == 'x' || cifre[1] == 'X');
    if (!numero)
        return {first, errc::invalid_argument};
    if (esadecimale) {
        value = *first == '-' ? -Numero(0) : Numero(0);
        return {cifre + 1, errc()};
    }
    const string testo(first, last);
    char* fine = nullptr;
    const Numero letto = leggi(testo.c_str(), &fine);
    if (fine == testo.c_str())
        return {first, errc::invalid_argument};
    if (isinf(letto))
        return {first + (fine - testo.c_str()), errc::result_out_of_range};
    value = letto;
    return {first + (fine - testo.c_str()), errc()};
}

}  // namespace

inline namespace __2 {

to_chars_result to_chars(char* first, char* last, float value) {
    return piu_corto(first, last, value, CIFRE_FLOAT, [](const char* testo) { return strtof(testo, nullptr); });
}

to_chars_result to_chars(char* first, char* last, float value, chars_format /*fixed*/) {
    return to_chars(first, last, value);
}

to_chars_result to_chars(char* first, char* last, float value, chars_format /*fixed*/, int precision) {
    return to_chars(first, last, static_cast<double>(value), chars_format::fixed, precision);
}

to_chars_result to_chars(char* first, char* last, double value, chars_format /*fixed*/) {
    return piu_corto(first, last, value, CIFRE_DOUBLE, [](const char* testo) { return strtod(testo, nullptr); });
}

to_chars_result to_chars(char* first, char* last, double value, chars_format /*fixed*/, int precision) {
    char testo[700];
    return metti(first, last, testo, snprintf(testo, sizeof testo, "%.*f", precision, value));
}

}  // namespace __2

from_chars_result from_chars(const char* first, const char* last, float& value) {
    return leggi_numero(first, last, value, strtof);
}

from_chars_result from_chars(const char* first, const char* last, double& value) {
    return leggi_numero(first, last, value, strtod);
}

}  // namespace std
