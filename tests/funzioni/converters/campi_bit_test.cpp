// Bit fields: the mask of a converter, and sample types 3, 4 and 5 decoded through it.
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter con_campo(unsigned tipo, unsigned short pos_bit, unsigned short num_bit,
                          const s_converter_data& dati = IDENTITA) {
    Impostazione come;
    come.dati = &dati;
    come.pos_bit = pos_bit;
    come.num_bit = num_bit;
    return convertitore(tipo, come);
}

TEST(BitMask, SelectsTheSingleBitAboveTheField) {
    struct Caso {
        unsigned short pos_bit, num_bit;
        std::uint32_t maschera;
    };
    // clang-format off
    const Caso casi[] = {
    //   pos    num     mask
        {0,     0,      0},           // no field
        {5,     0,      0},
        {31,    0,      0},
        {0,     1,      0x2},
        {0,     8,      0x100},
        {8,     1,      0x200},
        {9,     1,      0x400},
        {0,     12,     0x1000},
        {12,    4,      0x10000},
        {15,    16,     0x80000000},
        {0,     31,     0x80000000},
        {30,    1,      0x80000000},
        {31,    1,      0},           // 2 << 31 leaves the 32 bits
        {16,    16,     0},
        {1,     31,     0},
        {0,     32,     0},           // leaves them by the count alone
        {0,     33,     0},
        {0,     65535,  0},
        {32,    1,      0},           // the shift reaches 32
        {33,    4,      0},
        {65535, 1,      0},
        {65535, 65535,  0},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        const s_kel_converter conv = con_campo(3, caso.pos_bit, caso.num_bit);
        EXPECT_EQ(conv.maschera, caso.maschera) << "position " << caso.pos_bit << ", count " << caso.num_bit;
        EXPECT_EQ(conv.pos_bit, caso.pos_bit);
        EXPECT_EQ(conv.num_bit, caso.num_bit);
    }
}

struct Caso {
    unsigned tipo;
    unsigned short pos_bit, num_bit;
    Byte campione;
    float valore;
};

void controlla(const std::vector<Caso>& casi, const s_converter_data& dati = IDENTITA) {
    for (const Caso& caso : casi) {
        SCOPED_TRACE("sample type " + std::to_string(caso.tipo) + ", position " + std::to_string(caso.pos_bit) +
                     ", count " + std::to_string(caso.num_bit) + ", expected " + std::to_string(caso.valore));
        s_kel_converter conv = con_campo(caso.tipo, caso.pos_bit, caso.num_bit, dati);
        const Lettura letto = leggi(conv, caso.campione);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, caso.valore);
        EXPECT_EQ(letto.stato, 0u);
    }
}

TEST(BitField, KeepsOnlyTheBitOfTheMaskShiftedDown) {
    // clang-format off
    controlla({
        {3, 8,  1,  le32(0x200),      2.0f},    // mask 0x200
        {3, 8,  1,  le32(0x1FF),      0.0f},
        {3, 8,  1,  le32(0xFFFFFFFF), 2.0f},
        {3, 9,  1,  le32(0x200),      0.0f},    // mask 0x400
        {3, 9,  1,  le32(0x400),      2.0f},
        {3, 0,  8,  le32(0x1AA),      256.0f},  // mask 0x100: none of the field's own bits
        {3, 0,  8,  le32(0xFF),       0.0f},
        {3, 0,  31, le32(0x80000000), 2147483648.0f},
        {3, 30, 1,  le32(0x80000000), 2.0f},
        {4, 0,  12, le16(0x3005),     4096.0f}, // mask 0x1000
        {4, 12, 4,  le16(0xF005),     0.0f},    // mask 0x10000, above a 16-bit word
        {4, 4,  4,  le16(0x0100),     16.0f},
        {5, 0,  7,  {0x80},           128.0f},
        {5, 0,  8,  {0xFF},           0.0f},    // mask 0x100, above the byte
        {5, 4,  3,  {0xFF},           8.0f},    // mask 0x80
        {5, 0,  1,  {0x02},           2.0f},
    });
    // clang-format on
}

TEST(BitField, OfEightBitsIsCutToEightBits) {
    // The record is the caller's: a mask and position of his own. (0xFF & 0xF0) >> 4, and a byte never exceeds 255.
    s_kel_converter conv = con_campo(5, 0, 1);
    conv.maschera = 0xFFFFFFF0u;
    conv.pos_bit = 4;
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 15.0f);
    conv.pos_bit = 0;
    EXPECT_EQ(leggi(conv, Byte{0xFF}).valore, 240.0f);
}

TEST(BitField, AtPositionThirtyTwoOrMoreIsZero) {
    for (unsigned tipo : {3u, 4u, 5u}) {
        for (unsigned posizione : {32u, 33u, 64u, 65535u}) {
            s_kel_converter conv = con_campo(tipo, 0, 1, DOPPIO_PIU_CINQUE);
            conv.maschera = 0xFFFFFFFFu;
            conv.pos_bit = static_cast<std::uint16_t>(posizione);
            EXPECT_EQ(leggi(conv, Byte{0xFE, 0xFE, 0xFE, 0xFE}).valore, 5.0f)
                << "sample type " << tipo << ", position " << posizione;
        }
    }
}

TEST(BitField, IsScaledByGainAndOffset) {
    controlla({{3, 8, 1, le32(0x200), 9.0f}, {4, 0, 12, le16(0x1000), 8197.0f}, {5, 0, 1, {0x02}, 9.0f}},
              DOPPIO_PIU_CINQUE);
    controlla({{3, 8, 1, le32(0), 5.0f}, {4, 0, 12, le16(0), 5.0f}, {5, 0, 1, {0}, 5.0f}}, DOPPIO_PIU_CINQUE);
}

TEST(BitField, YieldsToTheReciprocalForm) {
    controlla({{3, 8, 1, le32(4), 5.5f}, {4, 0, 12, le16(4), 5.5f}, {5, 0, 1, {4}, 5.5f}}, RECIPROCA);
}

TEST(BitField, ChecksTheReservedValuesFirst) {
    struct Riservato {
        unsigned tipo;
        Byte campione;
        std::uint32_t stato;
    };
    const Riservato casi[] = {
        {3, le32(0xFFFFCFFF), 4}, {3, le32(0xFFFFCFFE), 2}, {3, le32(0xFFFFCFFD), 8},
        {4, le16(0xCFFF), 4},     {4, le16(0xCFFE), 2},     {4, le16(0xCFFD), 8},
    };
    for (const Riservato& caso : casi) {
        s_kel_converter conv = con_campo(caso.tipo, 0, 1, DOPPIO_PIU_CINQUE);
        const Lettura letto = leggi(conv, caso.campione);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, caso.stato);
    }
}

TEST(BitField, ExistsOnlyForSampleTypesThreeFourAndFive) {
    controlla({
        {0, 8, 1, le32(0x1FF), 511.0f},
        {1, 8, 1, le16(0x1FF), 511.0f},
        {2, 0, 1, {0xFF}, 255.0f},
        {12, 8, 1, le32(0x1FF), 511.0f},
        {24, 8, 1, le32(0x1FF), 511.0f},
        {21, 8, 1, le32(0x1FF), 511.0f},
        {6, 8, 1, le_float(1.5f), 1.5f},
    });
}

TEST(BitField, ChangesTheValueFunctionOfFourSampleTypesAlone) {
    const s_converter_data dati = {"", 0.0f, 1.0f, 0};
    for (unsigned tipo = 0; tipo < 25; ++tipo) {
        s_kel_canale canale = {};
        canale.tipo_campione = tipo;
        s_kel_converter un_bit = {}, intero = {};
        kelConvInit(&un_bit, &canale, 0, &dati, 8, 1, 1);
        kelConvInit(&intero, &canale, 0, &dati, 16, 16, 1);  // a mask of zero
        const bool ha_campo = (tipo >= 3 && tipo <= 5) || tipo == 13;
        EXPECT_EQ(un_bit.valore != intero.valore, ha_campo) << "sample type " << tipo;
    }
}

TEST(BitField, WithAMaskOfZeroIsThePlainValue) {
    controlla({{3, 16, 16, le32(0x12345), 74565.0f}, {4, 32, 1, le16(0x1234), 4660.0f}, {5, 0, 32, {0xAB}, 171.0f}});
}

}  // namespace
