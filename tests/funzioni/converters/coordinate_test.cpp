// Coordinates in units of 1e-7 degree: sample type 21.
#include <gtest/gtest.h>

#include <climits>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter coordinata(const s_converter_data* dati = &IDENTITA) {
    Impostazione come;
    come.fid_canale = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);
    come.fid = come.fid_canale;
    come.dati = dati;
    return convertitore(21, come);
}

TEST(CoordinateSample, ShowsQuotientAndRemainderEachWithItsOwnSign) {
    struct Caso {
        std::int32_t grezzo;
        const char* testo;
    };
    // clang-format off
    const Caso casi[] = {
        {0,           "0.0000000"},
        {1,           "0.0000001"},
        {10,          "0.0000010"},
        {9999999,     "0.9999999"},
        {10000000,    "1.0000000"},
        {453456789,   "45.3456789"},
        {1800000000,  "180.0000000"},
        {INT_MAX,     "214.7483647"},
        {-1,          "0.-000001"},
        {-5000000,    "0.-5000000"},
        {-10000000,   "-1.0000000"},
        {-123456789,  "-12.-3456789"},
        {-1800000000, "-180.0000000"},
        {INT_MIN,     "-214.-7483648"},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        s_kel_converter conv = coordinata();
        const Lettura letto = leggi(conv, le_i32(caso.grezzo));
        EXPECT_EQ(letto.testo, caso.testo) << "raw " << caso.grezzo;
        EXPECT_EQ(letto.ha_testo, 1);
        EXPECT_TRUE(letto.pulito);
    }
}

TEST(CoordinateSample, ReservedValuesShowNothing) {
    const std::pair<std::uint32_t, std::uint32_t> casi[] = {{0xFFFFCFFF, 4}, {0xFFFFCFFE, 2}, {0xFFFFCFFD, 8}};
    for (const auto& [grezzo, stato] : casi) {
        s_kel_converter conv = coordinata();
        const Lettura letto = leggi(conv, le32(grezzo));
        EXPECT_EQ(letto.ha_testo, 1);
        EXPECT_EQ(letto.testo, "");
        EXPECT_TRUE(letto.pulito);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, stato);
    }
    s_kel_converter conv = coordinata();
    EXPECT_EQ(leggi(conv, le32(0xFFFFCFFC)).testo, "0.-012292");
    EXPECT_EQ(leggi(conv, le32(0xFFFFD000)).testo, "0.-012288");
}

TEST(CoordinateSample, ValueIsScaledButTheTextIsNot) {
    s_kel_converter lineare = coordinata(&DOPPIO_PIU_CINQUE);
    EXPECT_EQ(leggi(lineare, le_i32(100)).valore, 205.0f);
    EXPECT_EQ(leggi(lineare, le_i32(100)).testo, "0.0000100");
    s_kel_converter reciproca = coordinata(&RECIPROCA);
    EXPECT_EQ(leggi(reciproca, le_i32(4)).valore, 5.5f);
    EXPECT_EQ(leggi(reciproca, le_i32(0)).valore, 0.0f);
    EXPECT_EQ(leggi(reciproca, le_i32(4)).testo, "0.0000004");
}

TEST(CoordinateSample, HasAStatusTextOfItsOwn) {
    EXPECT_NE(coordinata().testo_stato, nullptr);
}

TEST(CoordinateSample, IgnoresWidthDecimalsAndFormat) {
    s_kel_converter conv = coordinata();
    conv.larghezza = 5;
    conv.decimali = 1;
    conv.formato = FORMATO_SINISTRA;
    EXPECT_EQ(leggi(conv, le_i32(453456789)).testo, "45.3456789");
}

}  // namespace
