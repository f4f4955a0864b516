// Automatic decimals of every width: the float at each limit chooses, its neighbour on the other side does not.
//
// In W places a value of 0 or more gets one decimal up to 10^(W-1) - 10^(W-2) and none from 10^(W-1) on; a negative one gets
// one from 10^(W-3) - 10^(W-2) on and none down to -10^(W-2). Floats end below 10^39.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

constexpr float oltre = INFINITY;

// 9 * 10^n or 10^n as the library's users write it; the strtof of the C library rounds it to the nearest float.
double decimale(int cifra, unsigned zeri) {
    return std::strtod((std::to_string(cifra) + "e" + std::to_string(zeri)).c_str(), nullptr);
}

// The decimals that a text read leaves where there were `prima`.
unsigned decimali_dopo(float valore, unsigned larghezza, unsigned prima) {
    const s_kel_canale canale = Canale(kFid, KEL_TIPO_FLOAT);
    s_kel_converter conv{};
    conv.larghezza = larghezza;
    conv.decimali = prima;
    conv.auto_decimali = 1;
    kelConvInit(&conv, &canale, kFid, &kIdentita, 0, 0, 1);
    Leggi(conv, LeFloat(valore));
    return conv.decimali;
}

// The largest float that is not above a limit, and the smallest that is not below it.
float non_sopra(double limite) {
    const float vicino = static_cast<float>(limite);
    return vicino > limite ? std::nextafterf(vicino, -oltre) : vicino;
}
float non_sotto(double limite) {
    const float vicino = static_cast<float>(limite);
    return vicino < limite ? std::nextafterf(vicino, oltre) : vicino;
}

constexpr unsigned rimangono = 2;  // neither limit is reached: the choice of before stays

TEST(AutomaticDecimals, OfEveryWidthChangeAtTheLimits) {
    for (unsigned w = 3; w <= 38; ++w) {
        const float uno = non_sopra(decimale(9, w - 2));
        const float nessuno = non_sotto(decimale(1, w - 1));
        EXPECT_EQ(decimali_dopo(uno, w, rimangono), 1u) << w << " places, " << uno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(uno, oltre), w, rimangono), rimangono) << w << " places, above " << uno;
        EXPECT_EQ(decimali_dopo(nessuno, w, rimangono), 0u) << w << " places, " << nessuno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(nessuno, -oltre), w, rimangono), rimangono)
            << w << " places, below " << nessuno;
    }
}

TEST(AutomaticDecimals, OfEveryWidthChangeAtTheLimitsOfNegativeValues) {
    for (unsigned w = 3; w <= 40; ++w) {
        const float uno = non_sotto(-decimale(9, w - 3));
        const float nessuno = non_sopra(-decimale(1, w - 2));
        EXPECT_EQ(decimali_dopo(uno, w, rimangono), 1u) << w << " places, " << uno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(uno, -oltre), w, rimangono), rimangono)
            << w << " places, below " << uno;
        EXPECT_EQ(decimali_dopo(nessuno, w, rimangono), 0u) << w << " places, " << nessuno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(nessuno, oltre), w, rimangono), rimangono)
            << w << " places, above " << nessuno;
    }
}

}  // namespace
