// 32-bit float samples: sample type 6.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter con_dati(const s_converter_data& dati) {
    Impostazione come;
    come.dati = &dati;
    return convertitore(6, come);
}

struct Atteso {
    std::uint32_t bit;
    float valore;
    std::uint32_t stato;
    const char* testo;
};

void controlla(const s_converter_data& dati, const std::vector<Atteso>& casi) {
    for (const Atteso& caso : casi) {
        s_kel_converter conv = con_dati(dati);
        const Lettura letto = leggi(conv, le32(caso.bit));
        SCOPED_TRACE(::testing::Message() << "float bits 0x" << std::hex << caso.bit);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, caso.valore);
        EXPECT_EQ(letto.stato, caso.stato);
        EXPECT_EQ(letto.testo, caso.testo);
    }
}

TEST(FloatSample, IsTakenAsItIs) {
    controlla(IDENTITA, {
                            {0x3F800000, 1.0f, 0, "       1"},
                            {0xC2C80000, -100.0f, 0, "    -100"},
                            {0x00000000, 0.0f, 0, "       0"},
                            {0x80000000, -0.0f, 0, "       0"},
                            {0x00000001, std::numeric_limits<float>::denorm_min(), 0, "       0"},
                            {0x7F7FFFFF, std::numeric_limits<float>::max(), 0, "--------"},
                            {0xFF7FFFFF, -std::numeric_limits<float>::max(), 0, "--------"},
                        });
}

TEST(FloatSample, NanIsAnInvalidValue) {
    for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        controlla(*dati, {
                             {0x7FC00000, 0.0f, 8, "---"},
                             {0xFFC00000, 0.0f, 8, "---"},
                             {0x7F800001, 0.0f, 8, "---"},
                             {0x7FFFFFFF, 0.0f, 8, "---"},
                             {0xFF800001, 0.0f, 8, "---"},
                         });
    }
}

TEST(FloatSample, InfinityOfEitherSignIsOverRange) {
    for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        controlla(*dati, {{0x7F800000, 0.0f, 4, "---"}, {0xFF800000, 0.0f, 4, "---"}});
    }
}

TEST(FloatSample, HasNoReservedIntegerPatterns) {
    // As a float 0xFFFFCFFF is a NaN; 0x0000CFFF is a subnormal number.
    controlla(IDENTITA, {{0xFFFFCFFF, 0.0f, 8, "---"}, {0xFFFFCFFE, 0.0f, 8, "---"}});
    s_kel_converter conv = con_dati(IDENTITA);
    EXPECT_EQ(leggi(conv, le32(0x0000CFFF)).stato, 0u);
}

TEST(FloatSample, IsScaledByGainAndOffset) {
    s_kel_converter conv = con_dati(DOPPIO_PIU_CINQUE);
    EXPECT_EQ(leggi(conv, le_float(1.25f)).valore, 7.5f);
    EXPECT_EQ(leggi(conv, le_float(-2.5f)).valore, 0.0f);
    EXPECT_EQ(leggi(conv, le_float(0.0f)).valore, 5.0f);
}

TEST(FloatSample, ReciprocalFormDividesBeforeScaling) {
    s_kel_converter conv = con_dati(RECIPROCA);
    EXPECT_EQ(leggi(conv, le_float(4.0f)).valore, 5.5f);
    EXPECT_EQ(leggi(conv, le_float(-0.5f)).valore, 1.0f);
}

TEST(FloatSample, ReciprocalOfEitherZeroIsZeroWithoutTheOffset) {
    s_kel_converter conv = con_dati(RECIPROCA);
    for (float zero : {0.0f, -0.0f}) {
        const Lettura letto = leggi(conv, le_float(zero));
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, 0u);
    }
}

TEST(FloatSample, OverflowInScalingIsNoBadSampleButTooLongANumber) {
    const s_converter_data kilo = {"k", 0.0f, 1000.0f, 0};
    s_kel_converter conv = con_dati(kilo);
    const Lettura letto = leggi(conv, le_float(3e38f));
    EXPECT_EQ(letto.valore, std::numeric_limits<float>::infinity());
    EXPECT_EQ(letto.stato, 0u);
    EXPECT_EQ(letto.testo, "--------");
    EXPECT_EQ(leggi(conv, le_float(-3e38f)).testo, "--------");
}

TEST(FloatSample, PaceInMinutesPerKilometreIsTheReciprocalOfTheVelocity) {
    // 1 / 50 * 0.016667: the unit's own gain, applied after the reciprocal.
    const kel_funpos velocita = kelFidComponi(FID_PHI_VELOCITY, 0, FID_POS_VEHICLE);
    const s_converter_data* passo = kelFunGetConvData(velocita, "min/km");
    ASSERT_EQ(passo->reciproco, 1);
    s_kel_converter conv = con_dati(*passo);
    EXPECT_EQ(leggi(conv, le_float(50.0f)).valore, 1.0f / 50.0f * 0.016667f);
    EXPECT_EQ(leggi(conv, le_float(0.0f)).valore, 0.0f);
}

}  // namespace
