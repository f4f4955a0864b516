// The subfield tables of packets: the two exported ones by name, the others through their search.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <span>

#include "tables/aiuti.h"
#include "tables/attesi_sottocampi.h"

namespace {

using attesi::descrivi;

// Also checks the end row, which stands right behind the rows.
void confronta(const char* nome, const s_sottocampo* tabella, std::span<const attesi::Sottocampo> attese) {
    ASSERT_NE(tabella, nullptr) << nome;
    for (std::size_t i = 0; i < attese.size(); ++i) {
        const s_sottocampo& riga = tabella[i];
        SCOPED_TRACE(attesi::riga(nome, i) + ", " + descrivi(attese[i].fid));
        ASSERT_EQ(riga.fid, attese[i].fid) << descrivi(riga.fid);
        EXPECT_EQ(riga.offset, attese[i].offset);
        EXPECT_EQ(riga.pos_bit, attese[i].pos_bit);
        EXPECT_EQ(riga.num_bit, attese[i].num_bit);
        EXPECT_EQ(riga.maschera, 0u);
        EXPECT_EQ(riga.tipo_campione, attese[i].tipo_campione);
        EXPECT_EQ(riga.valore != nullptr, attese[i].ha_valore) << "decoder of its own";
        EXPECT_EQ(riga.valore_reciproco != nullptr, attese[i].ha_reciproco) << "decoder for reciprocal units";
        EXPECT_TRUE(riga.conv_testo == nullptr) << "the text is the converter's numeric text";
        EXPECT_STREQ(riga.breve, attese[i].breve);
        EXPECT_STREQ(riga.testo, attese[i].testo);
    }
    const s_sottocampo& fine = tabella[attese.size()];
    SCOPED_TRACE(std::string(nome) + " end row");
    EXPECT_EQ(fine.fid, 0x000B9D20u) << descrivi(fine.fid);
    EXPECT_EQ(fine.offset, 0u);
    EXPECT_EQ(fine.pos_bit, 0u);
    EXPECT_EQ(fine.num_bit, 0u);
    EXPECT_EQ(fine.maschera, 0u);
    EXPECT_EQ(fine.tipo_campione, 25u);
    EXPECT_TRUE(fine.valore == nullptr);
    EXPECT_TRUE(fine.valore_reciproco == nullptr);
    EXPECT_TRUE(fine.conv_testo == nullptr);
    EXPECT_TRUE(fine.breve == nullptr || *fine.breve == '\0');
    EXPECT_TRUE(fine.testo == nullptr || *fine.testo == '\0');
}

TEST(GpsSubfields, HoldEveryCell) {
    ASSERT_EQ(std::size(sottocampi_gps_kel), 9u);
    confronta("sottocampi_gps_kel", sottocampi_gps_kel, attesi::gps_kel);
}

TEST(SecondGenerationLapSubfields, HoldEveryCell) {
    ASSERT_EQ(std::size(sottocampi_lap_time_2G), 13u);
    confronta("sottocampi_lap_time_2G", sottocampi_lap_time_2G, attesi::lap_time_2g);
}

TEST(NavSolSubfields, HoldEveryCell) {
    confronta("NAV-SOL", search_sottocampi_struct(3, 1), attesi::gps_ubx);
}

TEST(FirstGenerationLapSubfields, HoldEveryCell) {
    confronta("first generation", search_sottocampi_struct(1, 1), attesi::lap_time_1g);
}

TEST(DateTimeSubfields, AreNone) {
    confronta("date and time", search_sottocampi_struct(2, 0), {});
}

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

// Quantity 32 is the end whatever else the row holds; identifier 0 is a row like any other.
TEST(SubfieldTables, HaveTheEndMarkerOnlyInTheLastRow) {
    for (std::size_t i = 0; i + 1 < std::size(sottocampi_gps_kel); ++i)
        EXPECT_NE(sottocampi_gps_kel[i].fid & 0x7F, 32u) << "row " << i;
    for (std::size_t i = 0; i + 1 < std::size(sottocampi_lap_time_2G); ++i)
        EXPECT_NE(sottocampi_lap_time_2G[i].fid & 0x7F, 32u) << "row " << i;
    EXPECT_EQ(sottocampi_lap_time_2G[7].fid, 0u);
}

// All GPS subfields stand at the GPS position, all lap subfields at none.
TEST(SubfieldTables, HaveThePositionOfTheirPacket) {
    for (std::size_t i = 0; i + 1 < std::size(sottocampi_gps_kel); ++i)
        EXPECT_EQ(sottocampi_gps_kel[i].fid >> 15, 21u) << descrivi(sottocampi_gps_kel[i].fid);
    for (std::size_t i = 0; i + 1 < std::size(sottocampi_lap_time_2G); ++i)
        EXPECT_EQ(sottocampi_lap_time_2G[i].fid >> 15, 0u) << descrivi(sottocampi_lap_time_2G[i].fid);
}

TEST(SubfieldTables, ThatBeginWithTheEndRowHoldNothing) {
    const s_sottocampo* vuota = kelConvGetSottoCampiDataOra(0x0000011A);
    ASSERT_NE(vuota, nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0), nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0x000A940B), nullptr);
    EXPECT_EQ(getDettagliSottocampo(vuota, 0x000B9D20), nullptr);
}

}  // namespace
