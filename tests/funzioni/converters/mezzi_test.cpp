// The 16-bit float: its two conversions over every pattern, and samples of type 20.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "converters/lettura.h"
#include "model/mezzi.h"

using namespace kel_test;

namespace {

constexpr std::uint32_t bit(float valore) {
    return std::bit_cast<std::uint32_t>(valore);
}

TEST(HalfFloat, ExpandsKnownPatterns) {
    EXPECT_EQ(kelF16decompress(0x0000), 0x00000000u);
    EXPECT_EQ(kelF16decompress(0x8000), 0x80000000u);  // -0.0
    EXPECT_EQ(kelF16decompress(0x0001), 0x33800000u);  // 2^-24
}

TEST(HalfFloat, CompressesKnownValues) {
    EXPECT_EQ(kelF16compress(bit(0.0f)), 0x0000u);
    EXPECT_EQ(kelF16compress(bit(-0.0f)), 0x8000u);
    EXPECT_EQ(kelF16compress(bit(1.0f)), 0x3C00u);
    EXPECT_EQ(kelF16compress(bit(std::ldexp(1.0f, -24))), 0x0001u);
    EXPECT_EQ(kelF16compress(bit(std::ldexp(1.0f, -25))), 0x0000u);
    EXPECT_EQ(kelF16compress(0x33800000u - 1), 0x0000u);  // just below the smallest subnormal: truncated
}

TEST(HalfFloat, CompressesInfinitiesAndLargeValuesToInfinity) {
    EXPECT_EQ(kelF16compress(0x7F7FFFFFu), 0x7C00u);
    EXPECT_EQ(kelF16compress(0xFF7FFFFFu), 0xFC00u);
    EXPECT_EQ(kelF16compress(0x7F800000u), 0x7C00u);
}

TEST(HalfFloat, CompressesANanToANan) {
    EXPECT_EQ(kelF16compress(0x7F800001u), 0x7C01u);
    EXPECT_EQ(kelF16compress(0x7F801FFFu), 0x7C01u);
    EXPECT_EQ(kelF16compress(0x7F802000u), 0x7C01u);
}

TEST(HalfFloat, EveryPatternExpandsAsIeee754Says) {
    for (unsigned mezzo = 0; mezzo <= 0xFFFF; ++mezzo) {
        ASSERT_EQ(kelF16decompress(mezzo), modello::espandi(mezzo)) << "half 0x" << std::hex << mezzo;
    }
}

TEST(HalfFloat, EveryPatternSurvivesExpandingAndCompressing) {
    for (unsigned mezzo = 0; mezzo <= 0xFFFF; ++mezzo) {
        ASSERT_EQ(kelF16compress(kelF16decompress(mezzo)), mezzo) << "half 0x" << std::hex << mezzo;
    }
}

TEST(HalfFloat, FloatsRoundEveryPatternAreTruncatedTowardZero) {
    for (unsigned mezzo = 0; mezzo <= 0xFFFF; ++mezzo) {
        const std::uint32_t centro = modello::espandi(mezzo);
        for (int scarto : {-4097, -4096, -2, -1, 0, 1, 2, 4095, 4096, 8191}) {
            const std::uint32_t bit = centro + static_cast<std::uint32_t>(scarto);
            ASSERT_EQ(kelF16compress(bit), modello::comprimi(bit)) << "float bits 0x" << std::hex << bit;
        }
    }
}

TEST(HalfFloat, RandomFloatsAreTruncatedTowardZero) {
    constexpr unsigned kSeme = 20240328;
    std::mt19937 caso(kSeme);
    for (int i = 0; i < 200000; ++i) {
        const auto bit = static_cast<std::uint32_t>(caso());
        ASSERT_EQ(kelF16compress(bit), modello::comprimi(bit))
            << "float bits 0x" << std::hex << bit << ", seed " << kSeme;
    }
}

TEST(HalfFloat, NeverGrowsInMagnitude) {
    for (std::uint32_t bit = 0x33000000u; bit <= 0x477FE000u; bit += 4099) {
        const std::uint32_t dopo = kelF16decompress(kelF16compress(bit));
        ASSERT_LE(dopo, bit) << "float bits 0x" << std::hex << bit;
    }
}

s_kel_converter con_dati(const s_converter_data& dati) {
    Impostazione come;
    come.dati = &dati;
    come.decimali = 2;
    return convertitore(20, come);
}

TEST(HalfSample, PlusInfinityIsOverRangeAndInvalid) {
    for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        s_kel_converter conv = con_dati(*dati);
        const Lettura letto = leggi(conv, le16(0x7C00));
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, 12u);
        EXPECT_EQ(letto.testo, "---");
    }
}

TEST(HalfSample, MinusInfinityIsMissing) {
    for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        s_kel_converter conv = con_dati(*dati);
        const Lettura letto = leggi(conv, le16(0xFC00));
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, 2u);
        EXPECT_EQ(letto.testo, "   ");
    }
}

TEST(HalfSample, NanIsNotTreatedSpeciallyAndShowsAsTooLong) {
    s_kel_converter conv = con_dati(IDENTITA);
    for (unsigned mezzo : {0x7C01u, 0x7E00u, 0x7FFFu, 0xFC01u, 0xFFFFu}) {
        const Lettura letto = leggi(conv, le16(mezzo));
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_TRUE(std::isnan(letto.valore)) << std::hex << mezzo;
        EXPECT_EQ(letto.stato, 0u);
        EXPECT_EQ(letto.testo, "------.--");
    }
}

TEST(HalfSample, HasNoReservedIntegerPatterns) {
    s_kel_converter conv = con_dati(IDENTITA);
    // 0xCFFF as a half is -31.984375, the two below it -31.96875 and -31.953125.
    EXPECT_EQ(leggi(conv, le16(0xCFFF)).valore, -31.984375f);
    EXPECT_EQ(leggi(conv, le16(0xCFFE)).valore, -31.96875f);
    EXPECT_EQ(leggi(conv, le16(0xCFFD)).valore, -31.953125f);
    EXPECT_EQ(leggi(conv, le16(0xCFFF)).stato, 0u);
}

TEST(HalfSample, IsScaledByGainAndOffset) {
    s_kel_converter conv = con_dati(DOPPIO_PIU_CINQUE);
    EXPECT_EQ(leggi(conv, le16(0x3C00)).valore, 7.0f);
    EXPECT_EQ(leggi(conv, le16(0xBC00)).valore, 3.0f);
    EXPECT_EQ(leggi(conv, le16(0x0000)).valore, 5.0f);
    EXPECT_EQ(leggi(conv, le16(0x3C00)).testo, "     7.00");
}

TEST(HalfSample, ReciprocalOfEitherZeroIsZeroWithoutTheOffset) {
    s_kel_converter conv = con_dati(RECIPROCA);
    EXPECT_EQ(leggi(conv, le16(0x4400)).valore, 5.5f);  // 4.0
    for (unsigned zero : {0x0000u, 0x8000u}) {
        const Lettura letto = leggi(conv, le16(zero));
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, 0u);
    }
}

}  // namespace
