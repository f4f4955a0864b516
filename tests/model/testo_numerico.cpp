#include "model/testo_numerico.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace modello {

namespace {

constexpr unsigned LUNGHEZZA_MASSIMA = 31;  // a text has 32 bytes with its terminator

// Wider than every text, and its powers of ten beyond every float: all widths above it are the same.
constexpr unsigned LARGHEZZA_MASSIMA = 100;

unsigned decimali_mostrati(const Aspetto& aspetto) {
    return aspetto.decimali > 3 ? 3 : aspetto.decimali;
}

double potenza10(int esponente) {
    return std::pow(10.0, esponente);
}

}  // namespace

void scegli_decimali(Aspetto& aspetto, float valore) {
    if (aspetto.auto_decimali == 0)
        return;
    if (aspetto.larghezza <= 2) {
        aspetto.decimali = 0;
        return;
    }
    // The width as it was set: only the text ends after 31 characters. From 41 places on every float is small.
    const int larghezza = static_cast<int>(std::min(aspetto.larghezza, 41U));
    const double v = static_cast<double>(valore);
    if (v < 0) {
        const double basso = -potenza10(larghezza - 2);
        const double alto = potenza10(larghezza - 3) + basso;
        if (v >= alto)
            aspetto.decimali = 1;
        else if (v <= basso)
            aspetto.decimali = 0;
    } else {
        const double alto = potenza10(larghezza - 1);
        const double basso = alto - potenza10(larghezza - 2);
        if (v <= basso)
            aspetto.decimali = 1;
        else if (v >= alto)
            aspetto.decimali = 0;
    }
}

double arrotondata(float grandezza, unsigned decimali) {
    float scala = 1.0F;
    for (unsigned i = 0; i < decimali; i++)
        scala *= 10.0F;
    const float scalata = grandezza * scala;
    // A double holds the sum of a half and any float from a half to 2 to the power of 52; below, the sum is less than 1
    // however it is rounded, and above, the float is a whole number that the half does not change.
    return std::floor(static_cast<double>(scalata) + 0.5);
}

std::string cifre(float grandezza, unsigned decimali, unsigned ammesse) {
    const double numero = arrotondata(grandezza, decimali);
    if (!(numero < 2147483648.0))  // more than an int holds, or no number at all
        return "";
    char testo[16];
    std::snprintf(testo, sizeof testo, "%d", static_cast<int>(numero));
    return std::string(testo).size() > ammesse ? "" : testo;
}

namespace {

// Lays the digits from the right, with zeros before them, and the point after the decimals.
std::string stendi(const std::string& numero, unsigned lunghezza, unsigned decimali) {
    std::string rovescio;  // from the right
    for (std::size_t i = 0; rovescio.size() < lunghezza; i++) {
        rovescio += i < numero.size() ? numero[numero.size() - 1 - i] : '0';
        if (i + 1 == decimali && rovescio.size() < lunghezza)
            rovescio += '.';
    }
    return {rovescio.rbegin(), rovescio.rend()};
}

// Takes the leading zeros away; the last of them becomes the sign of a negative number.
std::string senza_zeri(const std::string& testo, bool negativo, unsigned formato) {
    std::size_t zeri = 0;
    while (zeri + 1 < testo.size() && testo[zeri] == '0' && testo[zeri + 1] != '.')
        zeri += 1;
    if (zeri == 0)
        return testo;
    std::string numero = (negativo ? "-" : "") + testo.substr(zeri);
    const std::string vuoto(testo.size() - numero.size(), ' ');
    if (formato == 1)
        return numero + vuoto;
    if (formato == 2)
        return numero;
    return vuoto + numero;
}

}  // namespace

std::string testo_numerico(Aspetto& aspetto, float valore) {
    scegli_decimali(aspetto, valore);
    const unsigned decimali = decimali_mostrati(aspetto);
    unsigned larghezza = std::min(aspetto.larghezza, LARGHEZZA_MASSIMA);
    unsigned lunghezza = decimali == 0 ? larghezza : larghezza + 1;
    if (lunghezza > LUNGHEZZA_MASSIMA) {
        lunghezza = LUNGHEZZA_MASSIMA;
        larghezza = decimali == 0 ? lunghezza : lunghezza - 1;
    }
    const bool negativo = valore < 0;
    // Room for the sign is told from width and decimals as they were set: also from decimals above the three that are shown, and
    // from a width above the characters that a text has.
    const long long davanti = static_cast<long long>(aspetto.larghezza) - static_cast<long long>(aspetto.decimali);
    unsigned ammesse = larghezza;
    if (negativo)
        ammesse = davanti > 1 ? larghezza - 1 : 0;
    std::string numero = cifre(std::fabs(valore), decimali, ammesse);
    if (numero.empty())
        numero = std::string(larghezza, '-');
    return senza_zeri(stendi(numero, lunghezza, decimali), negativo, aspetto.formato);
}

}  // namespace modello
