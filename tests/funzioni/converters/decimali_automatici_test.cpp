// Automatic decimals: a numeric text that chooses between one and none by magnitude, and keeps its choice between two limits.
//
// In W places a value of 0 or more gets one decimal up to 10^(W-1) - 10^(W-2) and none from 10^(W-1) on; a negative one gets
// one from 10^(W-3) - 10^(W-2) on and none down to -10^(W-2). Floats end below 10^39.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

struct Passo {
    float valore;
    const char* testo;
    std::uint32_t decimali;  // after the read
};

void cammina(std::uint32_t larghezza, std::uint32_t decimali, const std::vector<Passo>& passi) {
    Impostazione come;
    come.larghezza = larghezza;
    come.decimali = decimali;
    come.auto_decimali = 1;
    s_kel_converter conv = convertitore(6, come);
    for (const Passo& passo : passi) {
        char testo[32];
        ASSERT_EQ(kelConvGetString(&conv, le_float(passo.valore).data(), testo), 1);
        EXPECT_STREQ(testo, passo.testo) << passo.valore;
        EXPECT_EQ(conv.decimali, passo.decimali) << passo.valore;
    }
}

TEST(AutomaticDecimals, HoldTheirChoiceBetweenTheTwoLimits) {
    // clang-format off
    cammina(4, 0, {
        {5.0f,    "  5.0", 1},
        {900.0f,  "900.0", 1},
        {900.5f,  "900.5", 1},
        {950.0f,  "950.0", 1},
        {999.9f,  "999.9", 1},
        {1000.0f, "1000",  0},
        {999.9f,  "1000",  0},   // still none: rounded to a whole number
        {950.0f,  " 950",  0},
        {901.0f,  " 901",  0},
        {900.0f,  "900.0", 1},
        {1e6f,    "----",  0},
        {0.0f,    "  0.0", 1},
    });
    // clang-format on
}

TEST(AutomaticDecimals, OfANegativeValueKeepAPlaceForTheMinus) {
    // clang-format off
    cammina(4, 0, {
        {-5.0f,    " -5.0", 1},
        {-90.0f,   "-90.0", 1},
        {-95.0f,   "-95.0", 1},
        {-99.9f,   "-99.9", 1},
        {-99.96f,  "---.-", 1},  // rounds to a hundred, and the limit is not reached
        {-100.0f,  "-100",  0},
        {-95.0f,   " -95",  0},
        {-90.5f,   " -91",  0},
        {-90.0f,   "-90.0", 1},
        {-999.0f,  "-999",  0},
        {-1000.0f, "----",  0},
    });
    // clang-format on
}

TEST(AutomaticDecimals, ScaleWithTheWidth) {
    // clang-format off
    cammina(3, 0, {
        {90.0f, "90.0", 1}, {95.0f, "95.0", 1}, {100.0f, "100", 0}, {91.0f, " 91", 0}, {90.0f, "90.0", 1},
        {-9.0f, "-9.0", 1}, {-9.5f, "-9.5", 1}, {-10.0f, "-10", 0}, {-9.5f, "-10", 0}, {-9.0f, "-9.0", 1},
    });
    cammina(5, 0, {
        {9000.0f, "9000.0", 1}, {9500.0f, "9500.0", 1}, {10000.0f, "10000", 0}, {9001.0f, " 9001", 0},
        {-900.0f, "-900.0", 1}, {-950.0f, "-950.0", 1}, {-1000.0f, "-1000", 0}, {-901.0f, " -901", 0},
    });
    // clang-format on
}

TEST(AutomaticDecimals, BetweenTheLimitsKeepAnyNumberOfDecimals) {
    cammina(6, 2, {{95000.0f, "----.--", 2}, {5.0f, "    5.0", 1}});
    cammina(4, 2, {{950.0f, "--.--", 2}, {1000.0f, "1000", 0}});
}

TEST(AutomaticDecimals, AreNoneInTwoPlacesOrLess) {
    cammina(2, 2, {{7.0f, " 7", 0}, {99.0f, "99", 0}, {-7.0f, "-7", 0}});
    cammina(1, 1, {{7.0f, "7", 0}});
    cammina(0, 3, {{7.0f, "", 0}});
}

TEST(AutomaticDecimals, WorkInVeryWideFields) {
    for (std::uint32_t larghezza : {31u, 40u, 100u, 0xFFFFFFFFu}) {
        Impostazione come;
        come.larghezza = larghezza;
        come.auto_decimali = 1;
        s_kel_converter conv = convertitore(6, come);
        EXPECT_EQ(leggi(conv, le_float(5.0f)).testo, std::string(28, ' ') + "5.0") << larghezza;
        EXPECT_EQ(conv.decimali, 1u) << larghezza;
        EXPECT_EQ(leggi(conv, le_float(-5.0f)).testo, std::string(27, ' ') + "-5.0") << larghezza;
        EXPECT_EQ(conv.decimali, 1u) << larghezza;
    }
}

TEST(AutomaticDecimals, AnyNonZeroFlagTurnsThemOn) {
    for (std::uint32_t acceso : {1u, 2u, 0x80000000u, 0xFFFFFFFFu}) {
        Impostazione come;
        come.larghezza = 4;
        come.auto_decimali = acceso;
        s_kel_converter conv = convertitore(6, come);
        EXPECT_EQ(leggi(conv, le_float(5.0f)).testo, "  5.0");
    }
}

TEST(AutomaticDecimals, AreLeftAloneByBadSamplesAndValueReads) {
    Impostazione come;
    come.larghezza = 4;
    come.decimali = 2;
    come.auto_decimali = 1;
    s_kel_converter conv = convertitore(1, come);
    EXPECT_EQ(leggi(conv, le16(0xCFFF)).testo, "---");
    EXPECT_EQ(conv.decimali, 2u);
    float valore = 0.0f;
    kelConvGetValFloat(&conv, le16(5).data(), &valore);
    EXPECT_EQ(conv.decimali, 2u);
    EXPECT_EQ(leggi(conv, le16(5)).testo, "  5.0");
    EXPECT_EQ(conv.decimali, 1u);
}

// --- the limits of every width: the float at each chooses, its neighbour on the other side does not ------------------

constexpr float OLTRE = INFINITY;

// 9 * 10^n or 10^n as the library's users write it; the strtof of the C library rounds it to the nearest float.
double decimale(int cifra, unsigned zeri) {
    return std::strtod((std::to_string(cifra) + "e" + std::to_string(zeri)).c_str(), nullptr);
}

// The decimals that a text read leaves where there were `prima`.
unsigned decimali_dopo(float valore, unsigned larghezza, unsigned prima) {
    const s_kel_canale canale = un_canale(FID, KEL_TIPO_FLOAT);
    s_kel_converter conv{};
    conv.larghezza = larghezza;
    conv.decimali = prima;
    conv.auto_decimali = 1;
    kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, 1);
    leggi(conv, le_float(valore));
    return conv.decimali;
}

// The largest float that is not above a limit, and the smallest that is not below it.
float non_sopra(double limite) {
    const float vicino = static_cast<float>(limite);
    return vicino > limite ? std::nextafterf(vicino, -OLTRE) : vicino;
}
float non_sotto(double limite) {
    const float vicino = static_cast<float>(limite);
    return vicino < limite ? std::nextafterf(vicino, OLTRE) : vicino;
}

constexpr unsigned RIMANGONO = 2;  // neither limit is reached: the choice of before stays

TEST(AutomaticDecimals, OfEveryWidthChangeAtTheLimits) {
    for (unsigned w = 3; w <= 38; ++w) {
        const float uno = non_sopra(decimale(9, w - 2));
        const float nessuno = non_sotto(decimale(1, w - 1));
        EXPECT_EQ(decimali_dopo(uno, w, RIMANGONO), 1u) << w << " places, " << uno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(uno, OLTRE), w, RIMANGONO), RIMANGONO) << w << " places, above " << uno;
        EXPECT_EQ(decimali_dopo(nessuno, w, RIMANGONO), 0u) << w << " places, " << nessuno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(nessuno, -OLTRE), w, RIMANGONO), RIMANGONO)
            << w << " places, below " << nessuno;
    }
}

TEST(AutomaticDecimals, OfEveryWidthChangeAtTheLimitsOfNegativeValues) {
    for (unsigned w = 3; w <= 40; ++w) {
        const float uno = non_sotto(-decimale(9, w - 3));
        const float nessuno = non_sopra(-decimale(1, w - 2));
        EXPECT_EQ(decimali_dopo(uno, w, RIMANGONO), 1u) << w << " places, " << uno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(uno, -OLTRE), w, RIMANGONO), RIMANGONO)
            << w << " places, below " << uno;
        EXPECT_EQ(decimali_dopo(nessuno, w, RIMANGONO), 0u) << w << " places, " << nessuno;
        EXPECT_EQ(decimali_dopo(std::nextafterf(nessuno, OLTRE), w, RIMANGONO), RIMANGONO)
            << w << " places, above " << nessuno;
    }
}

}  // namespace
