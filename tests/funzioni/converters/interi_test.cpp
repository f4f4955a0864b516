// Integer samples: sample types 0 to 5 in their linear and reciprocal forms, and the reserved raw values.
#include <gtest/gtest.h>

#include <ostream>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter con_dati(unsigned tipo, const s_converter_data& dati) {
    Impostazione come;
    come.dati = &dati;
    return convertitore(tipo, come);
}

struct Caso {
    unsigned tipo;
    Byte campione;
    float valore;
};

void controlla(const s_converter_data& dati, const std::vector<Caso>& casi) {
    for (const Caso& caso : casi) {
        SCOPED_TRACE("sample type " + std::to_string(caso.tipo) + ", expected " + std::to_string(caso.valore));
        s_kel_converter conv = con_dati(caso.tipo, dati);
        const Lettura letto = leggi(conv, caso.campione);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, caso.valore);
        EXPECT_EQ(letto.stato, 0u);
    }
}

TEST(IntegerSample, IsReadLittleEndianInItsWidthAndSign) {
    controlla(IDENTITA, {
                            {0, {0x01, 0x02, 0x03, 0x04}, 67305985.0f},  // 0x04030201, rounded to a float: 67305984
                            {0, {0xFF, 0xFF, 0xFF, 0xFF}, -1.0f},
                            {0, {0x00, 0x00, 0x00, 0x80}, -2147483648.0f},
                            {0, {0xFF, 0xFF, 0xFF, 0x7F}, 2147483648.0f},  // the nearest float
                            {1, {0x34, 0x12}, 4660.0f},
                            {1, {0xFF, 0xFF}, -1.0f},
                            {1, {0x00, 0x80}, -32768.0f},
                            {1, {0xFF, 0x7F}, 32767.0f},
                            {2, {0x00}, 0.0f},
                            {2, {0xFF}, 255.0f},
                            {3, {0xFF, 0xFF, 0xFF, 0xFF}, 4294967296.0f},
                            {3, {0x00, 0x00, 0x00, 0x80}, 2147483648.0f},
                            {3, {0x78, 0x56, 0x34, 0x12}, 305419896.0f},  // rounded to a float: 305419904
                            {4, {0xFF, 0xFF}, 65535.0f},
                            {4, {0x00, 0x80}, 32768.0f},
                            {5, {0xFF}, 255.0f},
                            {5, {0x80}, 128.0f},
                        });
}

TEST(IntegerSample, IsScaledByGainAndOffset) {
    controlla(DOPPIO_PIU_CINQUE, {
                                     {0, le32(100), 205.0f},
                                     {0, le_i32(-100), -195.0f},
                                     {1, le16(100), 205.0f},
                                     {1, le16(0xFF9C), -195.0f},  // -100
                                     {2, {100}, 205.0f},
                                     {3, le32(100), 205.0f},
                                     {4, le16(100), 205.0f},
                                     {5, {100}, 205.0f},
                                     {0, le32(0), 5.0f},
                                     {5, {0}, 5.0f},
                                 });
}

TEST(IntegerSample, IsScaledInSinglePrecisionWithTwoRoundings) {
    // 16777217 becomes the float 16777216 before it is multiplied; the product is rounded before the sum.
    const s_converter_data mille = {"m", 0.0f, 0.001f, 0};
    controlla(mille, {{0, le32(16777217), 16777.216f}});
    const s_converter_data fahrenheit = {"F", 32.0f, 1.8f, 0};
    controlla(fahrenheit, {{1, le16(100), 212.0f}, {1, le16(37), 98.6f}, {1, le16(0xFFD8), -40.0f}});
}

TEST(IntegerSample, ReciprocalFormDividesBeforeScaling) {
    controlla(RECIPROCA, {
                             {0, le32(4), 5.5f},
                             {0, le_i32(-4), 4.5f},
                             {1, le16(4), 5.5f},
                             {1, le16(0xFFFC), 4.5f},
                             {2, {4}, 5.5f},
                             {3, le32(4), 5.5f},
                             {4, le16(4), 5.5f},
                             {5, {4}, 5.5f},
                         });
}

TEST(IntegerSample, ReciprocalOfZeroIsZeroWithoutTheOffset) {
    controlla(RECIPROCA, {
                             {0, le32(0), 0.0f},
                             {1, le16(0), 0.0f},
                             {2, {0}, 0.0f},
                             {3, le32(0), 0.0f},
                             {4, le16(0), 0.0f},
                             {5, {0}, 0.0f},
                         });
}

struct Riservato {
    unsigned tipo;
    std::uint32_t grezzo;
    std::uint32_t stato;
    const char* testo;
};

void PrintTo(const Riservato& caso, std::ostream* dove) {
    *dove << "type " << caso.tipo << ", raw " << caso.grezzo;
}

class ReservedValue : public ::testing::TestWithParam<Riservato> {};

TEST_P(ReservedValue, ReadsAsZeroWithItsStatus) {
    const Riservato& caso = GetParam();
    const Byte campione = caso.tipo == 1 || caso.tipo == 4 ? le16(caso.grezzo) : le32(caso.grezzo);
    for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        s_kel_converter conv = con_dati(caso.tipo, *dati);
        const Lettura letto = leggi(conv, campione);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, caso.stato);
        EXPECT_EQ(letto.testo, caso.testo);
        EXPECT_TRUE(letto.pulito);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ReservedValue,
                         ::testing::Values(Riservato{1, 0xCFFF, 4, "---"}, Riservato{1, 0xCFFE, 2, "   "},
                                           Riservato{1, 0xCFFD, 8, "---"}, Riservato{4, 0xCFFF, 4, "---"},
                                           Riservato{4, 0xCFFE, 2, "   "}, Riservato{4, 0xCFFD, 8, "---"},
                                           Riservato{0, 0xFFFFCFFF, 4, "---"}, Riservato{0, 0xFFFFCFFE, 2, "   "},
                                           Riservato{0, 0xFFFFCFFD, 8, "---"}, Riservato{3, 0xFFFFCFFF, 4, "---"},
                                           Riservato{3, 0xFFFFCFFE, 2, "   "}, Riservato{3, 0xFFFFCFFD, 8, "---"}));

TEST(IntegerSample, NeighboursOfTheReservedValuesAreMeasurements) {
    controlla(IDENTITA, {
                            {1, le16(0xCFFC), -12292.0f},
                            {1, le16(0xD000), -12288.0f},
                            {4, le16(0xCFFC), 53244.0f},
                            {4, le16(0xD000), 53248.0f},
                            {0, le32(0xFFFFCFFC), -12292.0f},
                            {0, le32(0xFFFFD000), -12288.0f},
                            {3, le32(0xFFFFCFFC), 4294955004.0f},
                            {3, le32(0xFFFFD000), 4294955008.0f},
                        });
}

TEST(IntegerSample, ReservedPatternsOfAnotherWidthAreMeasurements) {
    controlla(IDENTITA, {
                            {0, le32(0x0000CFFF), 53247.0f},
                            {3, le32(0x0000CFFE), 53246.0f},
                            {2, {0xFF}, 255.0f},
                            {2, {0xFE}, 254.0f},
                            {2, {0xFD}, 253.0f},
                            {2, {0xCF}, 207.0f},
                            {5, {0xFF}, 255.0f},
                            {5, {0xFE}, 254.0f},
                            {5, {0xFD}, 253.0f},
                            {5, {0xCF}, 207.0f},
                        });
}

TEST(IntegerSample, EverySixteenBitPatternAgreesWithTheRule) {
    s_kel_converter segno = con_dati(1, IDENTITA);
    s_kel_converter senza = con_dati(4, IDENTITA);
    for (unsigned grezzo = 0; grezzo <= 0xFFFF; ++grezzo) {
        const bool riservato = grezzo == 0xCFFF || grezzo == 0xCFFE || grezzo == 0xCFFD;
        const int come_segno = grezzo < 0x8000 ? static_cast<int>(grezzo) : static_cast<int>(grezzo) - 65536;
        float valore = -1.0f;
        ASSERT_EQ(kelConvGetValFloat(&segno, le16(grezzo).data(), &valore), 1);
        ASSERT_EQ(valore, riservato ? 0.0f : static_cast<float>(come_segno)) << std::hex << grezzo;
        ASSERT_EQ(kelConvGetValFloat(&senza, le16(grezzo).data(), &valore), 1);
        ASSERT_EQ(valore, riservato ? 0.0f : static_cast<float>(grezzo)) << std::hex << grezzo;
    }
}

TEST(IntegerSample, ShowsAsNumericText) {
    for (unsigned tipo : {0u, 3u}) {
        s_kel_converter conv = con_dati(tipo, DOPPIO_PIU_CINQUE);
        EXPECT_EQ(leggi(conv, le32(100)).testo, "     205");
    }
    for (unsigned tipo : {1u, 4u}) {
        s_kel_converter conv = con_dati(tipo, DOPPIO_PIU_CINQUE);
        EXPECT_EQ(leggi(conv, le16(100)).testo, "     205");
    }
    for (unsigned tipo : {2u, 5u}) {
        s_kel_converter conv = con_dati(tipo, DOPPIO_PIU_CINQUE);
        EXPECT_EQ(leggi(conv, Byte{100}).testo, "     205");
    }
}

}  // namespace
