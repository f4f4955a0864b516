// Which subfield table a packet has, and which decoders its computed values have.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

namespace {

TEST(SubfieldSearch, GivesTheExportedTablesThemselves) {
    EXPECT_EQ(search_sottocampi_struct(3, 0), sottocampi_gps_kel);
    EXPECT_EQ(search_sottocampi_struct(1, 0), sottocampi_lap_time_2G);
    EXPECT_EQ(search_sottocampi_struct(1, 2), sottocampi_lap_time_2G);
}

TEST(SubfieldSearch, KeepsTheHiddenTablesApart) {
    EXPECT_NE(search_sottocampi_struct(3, 1), sottocampi_gps_kel);
    EXPECT_NE(search_sottocampi_struct(1, 1), sottocampi_lap_time_2G);
    EXPECT_NE(search_sottocampi_struct(1, 1), search_sottocampi_struct(3, 1));
}

// The two packets hold their velocities at different places and in different units.
TEST(GpsSpeed, HasADecoderForEachPacket) {
    const s_sottocampo* kel = getDettagliSottocampo(search_sottocampi_struct(3, 0), 0x000A8010);
    const s_sottocampo* ubx = getDettagliSottocampo(search_sottocampi_struct(3, 1), 0x000A8010);
    ASSERT_NE(kel, nullptr);
    ASSERT_NE(ubx, nullptr);
    EXPECT_NE(kel->valore, ubx->valore);
    EXPECT_NE(kel->valore_reciproco, ubx->valore_reciproco);
    EXPECT_NE(kel->valore, kel->valore_reciproco);
    EXPECT_NE(ubx->valore, ubx->valore_reciproco);
}

TEST(GpsCoordinates, HaveADecoderEach) {
    const s_sottocampo* lat = getDettagliSottocampo(sottocampi_gps_kel, 0x000A8A07);
    const s_sottocampo* lon = getDettagliSottocampo(sottocampi_gps_kel, 0x000A8A87);
    ASSERT_NE(lat, nullptr);
    ASSERT_NE(lon, nullptr);
    EXPECT_NE(lat->valore, lon->valore);
}

TEST(SubfieldTables, ThatBeginWithTheEndRowHoldNothing) {
    const s_sottocampo* vuota = kelConvGetSottoCampiDataOra(0x0000011A);
    ASSERT_NE(vuota, nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0), nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0x000A940B), nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0x000B9D20), nullptr);
}

}  // namespace
