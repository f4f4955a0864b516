// Gear samples: sample type 11.
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

const kel_funpos MARCIA = kelFidComponi(FID_PHI_GEAR, FID_OBJ_GEAR, FID_POS_GEARBOX);

s_kel_converter marcia(const s_converter_data* dati = &IDENTITA) {
    Impostazione come;
    come.fid_canale = MARCIA;
    come.fid = MARCIA;
    come.dati = dati;
    return convertitore(11, come);
}

struct Caso {
    int grezzo;
    float valore;
    const char* testo;
};

// clang-format off
const Caso CASI[] = {
    {1, 1.0f, "1"}, {2, 2.0f, "2"}, {3, 3.0f, "3"}, {4, 4.0f, "4"}, {5, 5.0f, "5"},
    {6, 6.0f, "6"}, {7, 7.0f, "7"}, {8, 8.0f, "8"}, {9, 9.0f, "9"},
    {0,  0.0f,  "N"},
    {-1, -1.0f, "R"},
    {-2, -2.0f, "D"},
    {-3, -3.0f, "P"},
    {-4, -4.0f, "S"},
    {-5, -5.0f, "W"},
    {-6, -6.0f, "d"},
    {-7, -7.0f, "B"},
    {-8, -8.0f, "-"},
    {-9, -8.0f, "-"},      // raised to -8
    {-20, -8.0f, "-"},
    {-32768, -8.0f, "-"},
    {10, 10.0f, "-"},
    {255, 255.0f, "-"},
    {32767, 32767.0f, "-"},
};
// clang-format on

TEST(GearSample, ShowsOneCharacterAndItsNumber) {
    for (const Caso& caso : CASI) {
        s_kel_converter conv = marcia();
        const Lettura letto = leggi(conv, le16(static_cast<unsigned>(caso.grezzo)));
        SCOPED_TRACE("gear " + std::to_string(caso.grezzo));
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, caso.valore);
        EXPECT_EQ(letto.stato, 0u);
        EXPECT_EQ(letto.ha_testo, 1);
        EXPECT_EQ(letto.testo, caso.testo);
        EXPECT_TRUE(letto.pulito);
    }
}

TEST(GearSample, ReservedValuesReadAsMinusEightWithTheirStatus) {
    const std::pair<unsigned, std::uint32_t> casi[] = {{0xCFFF, 4}, {0xCFFE, 2}, {0xCFFD, 8}};
    for (const auto& [grezzo, stato] : casi) {
        s_kel_converter conv = marcia();
        const Lettura letto = leggi(conv, le16(grezzo));
        EXPECT_EQ(letto.valore, -8.0f);
        EXPECT_EQ(letto.stato, stato);
        EXPECT_EQ(letto.testo, "-") << "the gear text never shows a status";
    }
    s_kel_converter conv = marcia();
    EXPECT_EQ(leggi(conv, le16(0xCFFC)).stato, 0u);
    EXPECT_EQ(leggi(conv, le16(0xCFFC)).valore, -8.0f);
}

TEST(GearSample, IgnoresGainOffsetAndReciprocal) {
    for (const s_converter_data* dati : {&DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        s_kel_converter conv = marcia(dati);
        EXPECT_EQ(leggi(conv, le16(4)).valore, 4.0f);
        EXPECT_EQ(leggi(conv, le16(0)).valore, 0.0f);
    }
}

TEST(GearSample, IgnoresWidthDecimalsAndFormat) {
    for (std::uint32_t larghezza : {0u, 1u, 5u, 40u}) {
        s_kel_converter conv = marcia();
        conv.larghezza = larghezza;
        conv.decimali = 2;
        conv.formato = FORMATO_SINISTRA;
        EXPECT_EQ(leggi(conv, le16(3)).testo, "3");
    }
}

TEST(GearSample, HasNoStatusText) {
    EXPECT_EQ(marcia().testo_stato, nullptr);
}

}  // namespace
