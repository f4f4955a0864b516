// Bit sets shown as a list of bit numbers: sample type 13.
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter elenco_bit(const s_converter_data* dati = &IDENTITA, unsigned short pos_bit = 0,
                           unsigned short num_bit = 0) {
    Impostazione come;
    come.dati = dati;
    come.pos_bit = pos_bit;
    come.num_bit = num_bit;
    return convertitore(13, come);
}

TEST(BitList, ListsTheNumbersOfTheSetBitsHighestInTheUnits) {
    struct Caso {
        unsigned char byte;
        float valore;
        const char* testo;
    };
    // clang-format off
    const Caso casi[] = {
        {0x00, 0.0f,        "       0"},
        {0x01, 1.0f,        "       1"},
        {0x80, 8.0f,        "       8"},
        {0x81, 18.0f,       "      18"},
        {0x03, 12.0f,       "      12"},
        {0xC0, 78.0f,       "      78"},
        {0x55, 1357.0f,     "    1357"},
        {0xAA, 2468.0f,     "    2468"},
        {0xFF, 12345678.0f, "12345678"},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        s_kel_converter conv = elenco_bit();
        const Lettura letto = leggi(conv, Byte{caso.byte});
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, caso.valore);
        EXPECT_EQ(letto.stato, 0u);
        EXPECT_EQ(letto.testo, caso.testo);
    }
}

TEST(BitList, EveryByteListsItsBitsInAscendingOrder) {
    s_kel_converter conv = elenco_bit();
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
        std::string cifre = "0";
        for (unsigned bit = 0; bit < 8; ++bit) {
            if (byte >> bit & 1u) {
                cifre += static_cast<char>('1' + bit);
            }
        }
        const unsigned char campione = static_cast<unsigned char>(byte);
        float valore = -1.0f;
        kelConvGetValFloat(&conv, &campione, &valore);
        EXPECT_EQ(valore, std::stof(cifre)) << "byte " << byte;
    }
}

TEST(BitList, IsScaledByGainAndOffset) {
    s_kel_converter conv = elenco_bit(&DOPPIO_PIU_CINQUE);
    EXPECT_EQ(leggi(conv, Byte{0x81}).valore, 41.0f);
    EXPECT_EQ(leggi(conv, Byte{0x00}).valore, 5.0f);
}

TEST(BitList, IsLinearEvenWithAReciprocalUnit) {
    s_kel_converter conv = elenco_bit(&RECIPROCA);
    EXPECT_EQ(leggi(conv, Byte{0x81}).valore, 41.0f);
}

TEST(MaskedBitList, FindsNoBitOfItsOwnThroughTheMaskOfTheSetUp) {
    // The mask is the bit above the field, so that shifted down no bit below the count is ever set.
    for (unsigned short num_bit = 1; num_bit <= 7; ++num_bit) {
        s_kel_converter conv = elenco_bit(&DOPPIO_PIU_CINQUE, 0, num_bit);
        ASSERT_NE(conv.maschera, 0u);
        for (const Byte& campione : {Byte{0x00}, Byte{0x01}, Byte{0x7F}, Byte{0xFF}}) {
            EXPECT_EQ(leggi(conv, campione).valore, 5.0f) << "count " << num_bit;
        }
    }
}

TEST(MaskedBitList, CountsFromZeroAndWeighsEveryBit) {
    // The record is the caller's: with a mask of his own the field's bits come through.
    s_kel_converter conv = elenco_bit(&IDENTITA, 0, 4);
    conv.maschera = 0x0F;
    EXPECT_EQ(leggi(conv, Byte{0x01}).valore, 0.0f);
    EXPECT_EQ(leggi(conv, Byte{0x02}).valore, 10.0f);
    EXPECT_EQ(leggi(conv, Byte{0x08}).valore, 3000.0f);
    EXPECT_EQ(leggi(conv, Byte{0x0E}).valore, 3210.0f);
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 3210.0f);
    conv.maschera = 0xF0;
    conv.pos_bit = 4;
    EXPECT_EQ(leggi(conv, Byte{0xE1}).valore, 3210.0f);
    conv.num_bit = 2;
    EXPECT_EQ(leggi(conv, Byte{0xE1}).valore, 10.0f);
    conv.dati = &DOPPIO_PIU_CINQUE;
    EXPECT_EQ(leggi(conv, Byte{0xE1}).valore, 25.0f);
}

TEST(MaskedBitList, WithoutBitsOrBeyondTheWordIsTheOffset) {
    s_kel_converter conv = elenco_bit(&DOPPIO_PIU_CINQUE, 0, 4);
    conv.maschera = 0xFF;
    conv.num_bit = 0;
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 5.0f);
    conv.num_bit = 4;
    conv.pos_bit = 32;
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 5.0f);
    conv.pos_bit = 65535;
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 5.0f);
}

}  // namespace
