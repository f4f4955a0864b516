// The numeric text: width, decimals, alignment, signs, numbers too long.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "converters/lettura.h"
#include "model/testo_numerico.h"

using namespace kel_test;

namespace {

constexpr eFormatoConv ALTRO = static_cast<eFormatoConv>(3);

std::string testo(float valore, std::uint32_t larghezza, std::uint32_t decimali,
                  eFormatoConv formato = FORMATO_DESTRA) {
    Impostazione come;
    come.larghezza = larghezza;
    come.decimali = decimali;
    come.formato = formato;
    s_kel_converter conv = convertitore(6, come);
    const Lettura letto = leggi(conv, le_float(valore));
    EXPECT_EQ(letto.ha_testo, 1);
    EXPECT_TRUE(letto.pulito);
    EXPECT_EQ(conv.decimali, decimali) << "only automatic decimals are written back";
    return letto.testo;
}

TEST(NumericText, IsRightAlignedInItsWidth) {
    EXPECT_EQ(testo(12.34f, 4, 1), " 12.3");
    EXPECT_EQ(testo(7.0f, 4, 0), "   7");
    EXPECT_EQ(testo(-7.0f, 4, 0), "  -7");
    EXPECT_EQ(testo(100.0f, 4, 0), " 100");
    EXPECT_EQ(testo(123.0f, 4, 1), "123.0");
}

TEST(NumericText, LeftAlignedIsPaddedToItsLength) {
    EXPECT_EQ(testo(7.0f, 4, 0, FORMATO_SINISTRA), "7   ");
    EXPECT_EQ(testo(-7.0f, 4, 0, FORMATO_SINISTRA), "-7  ");
    EXPECT_EQ(testo(12.34f, 4, 1, FORMATO_SINISTRA), "12.3 ");
    EXPECT_EQ(testo(-12.34f, 4, 1, FORMATO_SINISTRA), "-12.3");
    EXPECT_EQ(testo(-1.5f, 4, 1, FORMATO_SINISTRA), "-1.5 ");
    EXPECT_EQ(testo(1000.0f, 4, 0, FORMATO_SINISTRA), "1000");
}

TEST(NumericText, CompactIsCutAfterTheLastDigit) {
    EXPECT_EQ(testo(7.0f, 4, 0, FORMATO_COMPATTO), "7");
    EXPECT_EQ(testo(-7.0f, 4, 0, FORMATO_COMPATTO), "-7");
    EXPECT_EQ(testo(12.34f, 4, 1, FORMATO_COMPATTO), "12.3");
    EXPECT_EQ(testo(-12.34f, 4, 1, FORMATO_COMPATTO), "-12.3");
    EXPECT_EQ(testo(-1.5f, 4, 1, FORMATO_COMPATTO), "-1.5");
    EXPECT_EQ(testo(10.0f, 8, 0, FORMATO_COMPATTO), "10");
    EXPECT_EQ(testo(0.05f, 8, 3, FORMATO_COMPATTO), "0.050");
}

TEST(NumericText, AnyOtherFormatIsRightAligned) {
    for (eFormatoConv formato : {ALTRO, static_cast<eFormatoConv>(4), static_cast<eFormatoConv>(0xFFFFFFFFu)}) {
        EXPECT_EQ(testo(7.0f, 4, 0, formato), "   7");
        EXPECT_EQ(testo(-0.5f, 4, 1, formato), " -0.5");
    }
}

TEST(NumericText, KeepsTheZeroBeforeThePoint) {
    EXPECT_EQ(testo(0.05f, 4, 1), "  0.1");
    EXPECT_EQ(testo(0.5f, 4, 1), "  0.5");
    EXPECT_EQ(testo(0.5f, 4, 1, FORMATO_SINISTRA), "0.5  ");
    EXPECT_EQ(testo(0.5f, 4, 1, FORMATO_COMPATTO), "0.5");
    EXPECT_EQ(testo(0.001f, 5, 3), " 0.001");
}

TEST(NumericText, WithAsManyDecimalsAsPlacesBeginsWithThePoint) {
    EXPECT_EQ(testo(0.5f, 1, 1), ".5");
    EXPECT_EQ(testo(0.0f, 1, 1), ".0");
    EXPECT_EQ(testo(0.5f, 3, 3), ".500");
    EXPECT_EQ(testo(0.05f, 2, 2, FORMATO_COMPATTO), ".05");
    EXPECT_EQ(testo(1.0f, 3, 3), ".---");
}

TEST(NumericText, PutsTheMinusBeforeTheFirstDigit) {
    EXPECT_EQ(testo(-0.5f, 4, 1), " -0.5");
    EXPECT_EQ(testo(-0.5f, 3, 1), "-0.5");
    EXPECT_EQ(testo(-1.23f, 4, 2), "-1.23");
    EXPECT_EQ(testo(-0.5f, 4, 2), "-0.50");
    EXPECT_EQ(testo(-0.5f, 5, 2), " -0.50");
    EXPECT_EQ(testo(-0.5f, 5, 3), "-0.500");
    EXPECT_EQ(testo(-10.0f, 4, 0), " -10");
    EXPECT_EQ(testo(-100.0f, 4, 0), "-100");
    EXPECT_EQ(testo(-5.0f, 2, 0), "-5");
    EXPECT_EQ(testo(-1005.0f, 6, 0), " -1005");
    EXPECT_EQ(testo(-0.5f, 8, 1, FORMATO_SINISTRA), "-0.5     ");
    EXPECT_EQ(testo(-0.5f, 8, 1, FORMATO_COMPATTO), "-0.5");
}

TEST(NumericText, KeepsTheMinusOfANegativeValueThatRoundsToZero) {
    EXPECT_EQ(testo(-0.04f, 4, 1), " -0.0");
    EXPECT_EQ(testo(-0.04f, 4, 1, FORMATO_COMPATTO), "-0.0");
    EXPECT_EQ(testo(-0.3f, 4, 0), "  -0");
    EXPECT_EQ(testo(-0.0f, 4, 1), "  0.0") << "minus zero is not negative";
}

TEST(NumericText, RoundsHalfUpInMagnitude) {
    EXPECT_EQ(testo(0.5f, 1, 0), "1");
    EXPECT_EQ(testo(1.5f, 4, 0), "   2");
    EXPECT_EQ(testo(2.5f, 4, 0), "   3");
    EXPECT_EQ(testo(-2.5f, 4, 0), "  -3");
    EXPECT_EQ(testo(2.4f, 4, 0), "   2");
    EXPECT_EQ(testo(0.25f, 4, 1), "  0.3");
    EXPECT_EQ(testo(-0.25f, 4, 1), " -0.3");
}

TEST(NumericText, ScalesInSinglePrecision) {
    EXPECT_EQ(testo(123.45f, 4, 1), "123.5") << "123.449997 * 10 is 1234.5 in single precision";
    EXPECT_EQ(testo(1.005f, 5, 2), "  1.01");
    EXPECT_EQ(testo(9.8765f, 5, 3), " 9.877");
}

TEST(NumericText, RoundsExactly) {
    EXPECT_EQ(testo(0.49999997f, 1, 0), "0") << "0.49999997 + 0.5 is 1 in single precision, and not here";
    EXPECT_EQ(testo(-0.49999997f, 2, 0), "-0");
    EXPECT_EQ(testo(0.50000006f, 1, 0), "1");
    EXPECT_EQ(testo(1.4999999f, 1, 0), "1");
    EXPECT_EQ(testo(4194303.5f, 8, 0), " 4194304") << "the last halves whose neighbours are quarters";
    EXPECT_EQ(testo(4194304.5f, 8, 0), " 4194305");
    EXPECT_EQ(testo(8388606.5f, 8, 0), " 8388607");
    EXPECT_EQ(testo(8388607.0f, 8, 0), " 8388607");
    EXPECT_EQ(testo(8388607.5f, 8, 0), " 8388608") << "the last half that a float has";
}

TEST(NumericText, ShowsAWholeNumberAsItself) {
    EXPECT_EQ(testo(8388608.0f, 8, 0), " 8388608");
    EXPECT_EQ(testo(8388609.0f, 8, 0), " 8388609") << "8388609 + 0.5 is no float";
    EXPECT_EQ(testo(-8388609.0f, 8, 0), "-8388609");
    EXPECT_EQ(testo(8388610.0f, 8, 0), " 8388610");
    EXPECT_EQ(testo(8388611.0f, 8, 0), " 8388611");
    EXPECT_EQ(testo(16777215.0f, 10, 0), "  16777215") << "a field longer than eight characters";
    EXPECT_EQ(testo(16777218.0f, 8, 0), "16777218");
    EXPECT_EQ(testo(838860.9f, 7, 1), "838860.9") << "the product is 8388609";
    EXPECT_EQ(testo(838860.9f, 12, 1), "     838860.9");
    EXPECT_EQ(testo(83886.09f, 7, 2), "83886.09");
    EXPECT_EQ(testo(8388.609f, 7, 3), "8388.609");
    // Every whole number that a float has, as far as it has them all.
    Impostazione come;
    s_kel_converter conv = convertitore(6, come);
    for (std::uint32_t numero = 8388607; numero <= 16777216; numero += 1021) {
        ASSERT_EQ(leggi(conv, le_float(static_cast<float>(numero))).testo,
                  std::string(8 - std::to_string(numero).size(), ' ') + std::to_string(numero));
    }
}

TEST(NumericText, ShowsThreeDecimalsForAnyLargerNumber) {
    for (std::uint32_t decimali : {3u, 4u, 5u, 7u, 100u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        EXPECT_EQ(testo(1.5f, 6, decimali), "  1.500") << decimali;
        EXPECT_EQ(testo(1.5f, 4, decimali), "1.500") << decimali;
        EXPECT_EQ(testo(12.5f, 4, decimali), "-.---") << decimali;
    }
}

TEST(NumericText, RoomForTheMinusIsToldFromTheDecimalsAsRecorded) {
    EXPECT_EQ(testo(-12.5f, 6, 5), "---.---") << "one place before the point, by five decimals";
    EXPECT_EQ(testo(-12.5f, 7, 5), " -12.500");
    EXPECT_EQ(testo(12.5f, 6, 5), " 12.500") << "a number without a sign needs no room for it";
    EXPECT_EQ(testo(-1.5f, 5, 3), "-1.500");
    EXPECT_EQ(testo(-1.5f, 5, 4), "--.---");
    EXPECT_EQ(testo(-1.5f, 5, 6), "--.---") << "more decimals than places";
    EXPECT_EQ(testo(1.5f, 5, 6), " 1.500");
    EXPECT_EQ(testo(1.5f, 5, 0xFFFFFFFFu), " 1.500");
    for (eFormatoConv formato : {FORMATO_SINISTRA, FORMATO_COMPATTO}) {
        EXPECT_EQ(testo(-12.5f, 6, 5, formato), "---.---");
        EXPECT_EQ(testo(-12.5f, 7, 5, formato), formato == FORMATO_COMPATTO ? "-12.500" : "-12.500 ");
    }
    // Long fields, in which a number is written another way.
    EXPECT_EQ(testo(-12.5f, 12, 12), "---------.---");
    EXPECT_EQ(testo(12.5f, 12, 12), "       12.500");
    for (std::uint32_t decimali : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
        EXPECT_EQ(testo(-12.5f, 8, decimali), "-----.---") << decimali;
        EXPECT_EQ(testo(-12.5f, 12, decimali), "---------.---") << decimali;
        EXPECT_EQ(testo(-12.5f, 0, decimali), "0") << decimali;
    }
    EXPECT_EQ(testo(-12.5f, 0xFFFFFFFFu, 0xFFFFFFFDu), std::string(24, ' ') + "-12.500") << "two places left";
    EXPECT_EQ(testo(-12.5f, 0xFFFFFFFFu, 0xFFFFFFFEu), std::string(27, '-') + ".---") << "one place left";
}

TEST(NumericText, TooLongANumberIsDashesWithThePoint) {
    EXPECT_EQ(testo(1234.5f, 4, 1), "---.-");
    EXPECT_EQ(testo(999.6f, 3, 0), "---");
    EXPECT_EQ(testo(999.4f, 3, 0), "999");
    EXPECT_EQ(testo(100.0f, 4, 2), "--.--");
    EXPECT_EQ(testo(10.0f, 4, 3), "-.---");
    for (eFormatoConv formato : {FORMATO_SINISTRA, FORMATO_COMPATTO}) {
        EXPECT_EQ(testo(1234.5f, 4, 1, formato), "---.-");
        EXPECT_EQ(testo(12345.0f, 4, 0, formato), "----");
    }
}

TEST(NumericText, OfAWidthEndsWhereRoundingAddsAFigure) {
    float limite = 9.5f;  // rounds to 10
    for (unsigned larghezza = 1; larghezza <= 6; ++larghezza) {
        const std::string nove(larghezza, '9');
        const std::string trattini(larghezza, '-');
        EXPECT_EQ(testo(std::nextafterf(limite, 0.0f), larghezza, 0), nove) << larghezza;
        EXPECT_EQ(testo(limite, larghezza, 0), trattini) << larghezza << " places, " << limite;
        EXPECT_EQ(testo(-limite, larghezza + 1, 0), trattini + "-") << larghezza << " places behind a minus";
        limite = limite * 10.0f + 4.5f;
    }
    // From 2^23 on a float has no halves: a number shows as itself.
    EXPECT_EQ(testo(9999998.0f, 7, 0), "9999998");
    EXPECT_EQ(testo(9999999.0f, 7, 0), "9999999");
    EXPECT_EQ(testo(10000000.0f, 7, 0), "-------");
    EXPECT_EQ(testo(99999992.0f, 8, 0), "99999992");
    EXPECT_EQ(testo(100000000.0f, 8, 0), "--------");
}

TEST(NumericText, OfNoWidthHasOnlyThePlaceOfThePoint) {
    EXPECT_EQ(testo(7.0f, 0, 0), "");
    EXPECT_EQ(testo(7.0f, 0, 1), "0") << "no dash, no digit, and the place filled up";
}

TEST(NumericText, ANegativeNumberHasOnePlaceLess) {
    EXPECT_EQ(testo(-999.0f, 4, 0), "-999");
    EXPECT_EQ(testo(-1000.0f, 4, 0), "----");
    EXPECT_EQ(testo(-123.4f, 4, 1), "---.-");
    EXPECT_EQ(testo(-9.9f, 3, 1), "-9.9");
}

TEST(NumericText, ANegativeNumberWithoutAPlaceForItsMinusIsDashes) {
    EXPECT_EQ(testo(-5.0f, 1, 0), "-");
    EXPECT_EQ(testo(-0.3f, 1, 0), "-");
    EXPECT_EQ(testo(-0.5f, 2, 1), "-.-");
    EXPECT_EQ(testo(-0.5f, 1, 1), ".-");
    EXPECT_EQ(testo(-0.005f, 3, 2), "-.--");
}

TEST(NumericText, MagnitudesBeyondThirtyTwoBitsAreDashes) {
    const float infinito = std::numeric_limits<float>::infinity();
    EXPECT_EQ(testo(2147483520.0f, 10, 0), "2147483520");
    EXPECT_EQ(testo(2147483520.0f, 12, 0), "  2147483520");
    EXPECT_EQ(testo(-2147483520.0f, 11, 0), "-2147483520");
    EXPECT_EQ(testo(2147483648.0f, 10, 0), "----------");
    EXPECT_EQ(testo(4294967296.0f, 12, 0), "------------");
    EXPECT_EQ(testo(3e38f, 12, 0), "------------");
    EXPECT_EQ(testo(infinito, 8, 0), "---") << "an infinite sample is over range";
}

TEST(NumericText, InfinitiesAndNanThatAreNoBadSampleAreDashes) {
    // A half float's NaN is a good value; a gain makes an infinity of a large float.
    Impostazione come;
    come.larghezza = 5;
    come.decimali = 1;
    s_kel_converter mezzo = convertitore(20, come);
    for (eFormatoConv formato : {FORMATO_DESTRA, FORMATO_SINISTRA, FORMATO_COMPATTO}) {
        mezzo.formato = formato;
        EXPECT_EQ(leggi(mezzo, le16(0x7E00)).testo, "----.-");
        EXPECT_EQ(leggi(mezzo, le16(0xFE00)).testo, "----.-");
    }
    const s_converter_data kilo = {"k", 0.0f, 1000.0f, 0};
    come.dati = &kilo;
    s_kel_converter grande = convertitore(6, come);
    EXPECT_EQ(leggi(grande, le_float(3e38f)).testo, "----.-");
    EXPECT_EQ(leggi(grande, le_float(-3e38f)).testo, "----.-");
}

TEST(NumericText, WidthZeroIsEmpty) {
    for (float valore : {0.0f, 7.0f, -7.0f, 3e38f}) {
        for (eFormatoConv formato : {FORMATO_DESTRA, FORMATO_SINISTRA, FORMATO_COMPATTO}) {
            EXPECT_EQ(testo(valore, 0, 0, formato), "");
        }
    }
}

TEST(NumericText, LongFieldsAreClippedToThirtyOneCharacters) {
    for (std::uint32_t larghezza : {31u, 32u, 33u, 40u, 255u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(testo(7.0f, larghezza, 0), std::string(30, ' ') + "7") << larghezza;
        EXPECT_EQ(testo(-7.0f, larghezza, 0), std::string(29, ' ') + "-7") << larghezza;
        EXPECT_EQ(testo(7.0f, larghezza, 0, FORMATO_SINISTRA), "7" + std::string(30, ' ')) << larghezza;
        EXPECT_EQ(testo(7.0f, larghezza, 0, FORMATO_COMPATTO), "7") << larghezza;
        EXPECT_EQ(testo(3e9f, larghezza, 0), std::string(31, '-')) << larghezza;
    }
    for (std::uint32_t larghezza : {30u, 31u, 32u, 40u, 0xFFFFFFFFu}) {
        EXPECT_EQ(testo(7.0f, larghezza, 1), std::string(28, ' ') + "7.0") << larghezza;
        EXPECT_EQ(testo(-7.0f, larghezza, 3), std::string(25, ' ') + "-7.000") << larghezza;
        EXPECT_EQ(testo(3e9f, larghezza, 1), std::string(29, '-') + ".-") << larghezza;
    }
    EXPECT_EQ(testo(7.0f, 30, 0), std::string(29, ' ') + "7");
}

TEST(NumericText, FewerPlacesThanDecimalsStaysInsideItsField) {
    // No layout is promised where the point itself does not fit; the text still ends where its field ends.
    for (std::uint32_t larghezza : {0u, 1u, 2u}) {
        for (std::uint32_t decimali : {larghezza + 1, 3u, 0xFFFFFFFFu}) {
            for (float valore : {0.0f, 0.001f, -0.001f, 5.0f, -5.0f, 3e38f}) {
                EXPECT_LE(testo(valore, larghezza, decimali).size(), larghezza + 1);
                EXPECT_LE(testo(valore, larghezza, decimali, FORMATO_COMPATTO).size(), larghezza + 1);
            }
        }
    }
}

TEST(NumericText, ShowsTheStatusTextOfABadSample) {
    Impostazione come;
    come.larghezza = 4;
    come.decimali = 1;
    s_kel_converter conv = convertitore(1, come);
    EXPECT_EQ(leggi(conv, le16(0xCFFF)).testo, "---");
    EXPECT_EQ(leggi(conv, le16(0xCFFE)).testo, "   ");
    EXPECT_EQ(leggi(conv, le16(0xCFFD)).testo, "---");
}

TEST(NumericText, WithoutAStatusTextABadSampleIsAQuestionMark) {
    s_kel_converter conv = convertitore(1, {});
    conv.testo_stato = nullptr;
    EXPECT_EQ(leggi(conv, le16(0xCFFF)).testo, "?");
    EXPECT_EQ(leggi(conv, le16(12)).testo, "      12");
}

TEST(NumericText, WithoutAValueFunctionIsAnError) {
    s_kel_converter conv = convertitore(1, {});
    conv.valore = nullptr;
    EXPECT_EQ(leggi(conv, le16(12)).testo, "Err");
    conv.testo_stato = nullptr;
    EXPECT_EQ(leggi(conv, le16(12)).testo, "?");
}

// --- against the model ----------------------------------------------------------------------------------------------

TEST(NumericText, AgreesWithItsModelOnRandomNumbers) {
    constexpr unsigned kSeme = 4;
    std::mt19937 caso(kSeme);
    for (int i = 0; i < 100000; ++i) {
        const unsigned decimali = static_cast<unsigned>(caso() % 7);
        const unsigned minima = decimali > 3 ? 3 : decimali;
        const unsigned larghezza = minima + static_cast<unsigned>(caso() % (28 - minima));
        if (larghezza == 0) {
            continue;
        }
        const eFormatoConv formato = static_cast<eFormatoConv>(caso() % 3);
        const float mantissa = static_cast<float>(static_cast<int>(caso() % 2000001) - 1000000);
        const float valore = std::ldexp(mantissa, static_cast<int>(caso() % 40) - 28);
        modello::Aspetto aspetto{larghezza, decimali, 0, formato};
        ASSERT_EQ(testo(valore, larghezza, decimali, formato), modello::testo_numerico(aspetto, valore))
            << "value " << valore << ", width " << larghezza << ", decimals " << decimali << ", format " << formato
            << ", seed " << kSeme;
    }
}

}  // namespace
