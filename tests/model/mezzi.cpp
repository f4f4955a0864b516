#include "model/mezzi.h"

#include <cmath>
#include <cstring>

namespace modello {

namespace {

float reale(std::uint32_t bit) {
    float x = 0;
    std::memcpy(&x, &bit, sizeof x);
    return x;
}

std::uint32_t bit_di(float x) {
    std::uint32_t bit = 0;
    std::memcpy(&bit, &x, sizeof bit);
    return bit;
}

}  // namespace

std::uint32_t comprimi(std::uint32_t bit_float) {
    const std::uint32_t segno = bit_float >= 0x80000000U ? 0x8000U : 0U;
    const std::uint32_t frazione = bit_float % 0x800000U;
    const double grandezza = std::fabs(static_cast<double>(reale(bit_float)));
    if (std::isnan(grandezza)) {
        const std::uint32_t resto = frazione / 8192;  // the fraction's ten highest bits
        return segno + 0x7C00U + (resto == 0 ? 1 : resto);
    }
    if (grandezza > 65504.0)
        return segno + 0x7C00U;
    if (grandezza < 1.0 / 16384.0)  // below the smallest normal half: steps of 2^-24
        return segno + static_cast<std::uint32_t>(grandezza * 16777216.0);
    int esponente = 0;
    const double mantissa = std::frexp(grandezza, &esponente);         // 0.5 to 1
    const auto passi = static_cast<std::uint32_t>(mantissa * 2048.0);  // 1024 to 2047
    return segno + static_cast<std::uint32_t>(esponente - 1 + 15) * 1024U + (passi - 1024U);
}

std::uint32_t espandi(std::uint32_t mezzo) {
    const std::uint32_t h = mezzo % 65536U;
    const std::uint32_t segno = h >= 0x8000U ? 0x80000000U : 0U;
    const std::uint32_t esponente = h / 1024U % 32U;
    const std::uint32_t frazione = h % 1024U;
    if (esponente == 31)
        return segno + 0x7F800000U + frazione * 8192U;
    double grandezza = 0;
    if (esponente == 0)
        grandezza = frazione * std::ldexp(1.0, -24);
    else
        grandezza = (1024.0 + frazione) * std::ldexp(1.0, static_cast<int>(esponente) - 25);
    return segno + bit_di(static_cast<float>(grandezza));
}

}  // namespace modello
