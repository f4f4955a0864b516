// The look-ups of subfield tables and rows, and every subfield read through a converter of its packet.
#include <gtest/gtest.h>

#include <span>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

// The two packets hold their velocities at different places and in different units.
TEST(SubfieldTable, SpeedFunctionsDifferBetweenTheTwoGpsPackets) {
    const s_sottocampo* kel = getDettagliSottocampo(sottocampi_gps_kel, 0xA8010);
    const s_sottocampo* ubx = getDettagliSottocampo(search_sottocampi_struct(3, 1), 0xA8010);
    ASSERT_TRUE(kel && ubx);
    EXPECT_NE(kel->valore, ubx->valore);
    EXPECT_NE(kel->valore_reciproco, ubx->valore_reciproco);
    EXPECT_NE(kel->valore, kel->valore_reciproco);
    EXPECT_NE(ubx->valore, ubx->valore_reciproco);
}

TEST(SubfieldTable, LatitudeAndLongitudeHaveAFunctionEach) {
    EXPECT_NE(getDettagliSottocampo(sottocampi_gps_kel, 0xA8A07)->valore,
              getDettagliSottocampo(sottocampi_gps_kel, 0xA8A87)->valore);
}

TEST(SubfieldSearch, FindsTheTableOfDetailsAndSpecialisation) {
    EXPECT_EQ(search_sottocampi_struct(3, 0), sottocampi_gps_kel);
    EXPECT_NE(search_sottocampi_struct(3, 1), nullptr);
    EXPECT_NE(search_sottocampi_struct(3, 1), sottocampi_gps_kel);
    EXPECT_EQ(search_sottocampi_struct(1, 0), sottocampi_lap_time_2G);
    EXPECT_EQ(search_sottocampi_struct(1, 2), sottocampi_lap_time_2G);
    EXPECT_NE(search_sottocampi_struct(1, 1), nullptr);
    EXPECT_NE(search_sottocampi_struct(1, 1), sottocampi_lap_time_2G);
    EXPECT_NE(search_sottocampi_struct(1, 1), search_sottocampi_struct(3, 1));
    const s_sottocampo* data_ora = search_sottocampi_struct(2, 0);
    for (unsigned spec : {0u, 1u, 2u, 31u, 32u, 0xFFFFFFFFu}) {
        EXPECT_EQ(search_sottocampi_struct(2, spec), data_ora) << "any specialisation of date and time";
    }
}

TEST(SubfieldSearch, FindsNothingForOtherPairs) {
    for (unsigned dettagli : {0u, 4u, 5u, 255u, 256u, 257u, 0xFFFFFFFFu}) {
        for (unsigned spec : {0u, 1u, 2u, 31u}) {
            EXPECT_EQ(search_sottocampi_struct(dettagli, spec), nullptr) << dettagli << ", " << spec;
        }
    }
    for (unsigned spec : {2u, 3u, 31u, 32u, 0xFFFFFFFFu}) {
        EXPECT_EQ(search_sottocampi_struct(3, spec), nullptr) << "GPS, " << spec;
    }
    for (unsigned spec : {3u, 4u, 31u, 32u, 0xFFFFFFFFu}) {
        EXPECT_EQ(search_sottocampi_struct(1, spec), nullptr) << "lap, " << spec;
    }
}

TEST(SubfieldSearch, ByIdentifierLooksAtTheSpecialisationAlone) {
    EXPECT_EQ(kelConvGetSottoCampiGPS(PACCHETTO_GPS), sottocampi_gps_kel);
    EXPECT_EQ(kelConvGetSottoCampiGPS(PACCHETTO_UBX), search_sottocampi_struct(3, 1));
    EXPECT_EQ(kelConvGetSottoCampiGPS(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, 2)), nullptr);
    EXPECT_EQ(kelConvGetSottoCampiGPS(0), sottocampi_gps_kel);
    EXPECT_EQ(kelConvGetSottoCampiGPS(kelFidComponi(FID_PHI_SPEED, FID_OBJ_OIL, 1)), search_sottocampi_struct(3, 1));

    EXPECT_EQ(kelConvGetSottoCampiLapTime(PACCHETTO_GIRO2_G), sottocampi_lap_time_2G);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(PACCHETTO_GIRO1_G), search_sottocampi_struct(1, 1));
    EXPECT_EQ(kelConvGetSottoCampiLapTime(PACCHETTO_GIRO2_GV2), sottocampi_lap_time_2G);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, 3)), nullptr);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kelFidComponi(0, 0, 31)), nullptr);

    const s_sottocampo* data_ora = search_sottocampi_struct(2, 0);
    for (kel_funpos fid : {0u, PACCHETTO_DATA_ORA, PACCHETTO_GPS, 0xFFFFFFFFu}) {
        EXPECT_EQ(kelConvGetSottoCampiDataOra(fid), data_ora);
    }
}

TEST(SubfieldRow, IsFoundByItsWholeIdentifier) {
    for (const s_sottocampo& riga : std::span(sottocampi_gps_kel).first<8>()) {
        const s_sottocampo* trovata = getDettagliSottocampo(sottocampi_gps_kel, riga.fid);
        ASSERT_NE(trovata, nullptr) << std::hex << riga.fid;
        EXPECT_EQ(trovata->fid, riga.fid);
        EXPECT_EQ(getDettagliSottocampo(sottocampi_gps_kel, riga.fid | 0x100000), nullptr) << "in/out differs";
        EXPECT_EQ(getDettagliSottocampo(sottocampi_gps_kel, riga.fid & 0x7FFF), nullptr) << "position differs";
    }
    EXPECT_EQ(getDettagliSottocampo(sottocampi_lap_time_2G, 0), sottocampi_lap_time_2G + 7) << "the reserved row";
}

TEST(SubfieldRow, StopsAtTheEndRow) {
    EXPECT_EQ(getDettagliSottocampo(sottocampi_gps_kel, 0xB9D20), nullptr);
    EXPECT_EQ(getDettagliSottocampo(sottocampi_gps_kel, 0x98B), nullptr);
    EXPECT_EQ(getDettagliSottocampo(sottocampi_gps_kel, 0), nullptr);
    for (kel_funpos fid : {0u, 0xA940Bu, 0xB9D20u})
        EXPECT_EQ(getDettagliSottocampo(search_sottocampi_struct(2, 0), fid), nullptr) << "no row but the end row";
}

TEST(SubfieldRow, OfNoTableIsNone) {
    for (kel_funpos fid : {0u, 0x98Bu, 0xA940Bu, 0xB9D20u}) {
        EXPECT_EQ(getDettagliSottocampo(nullptr, fid), nullptr) << std::hex << fid;
    }
    EXPECT_EQ(getDettagliSottocampo(search_sottocampi_struct(4, 0), 0xA940B), nullptr) << "the look-ups chain";
    EXPECT_NE(getDettagliSottocampo(search_sottocampi_struct(3, 0), 0xA940B), nullptr);
}

TEST(SubfieldRow, RecognisesAnEndRowByItsFirstByteWithoutTheTopBit) {
    const kel_funpos fini[] = {0x20, 0xA0, 0x1D20, 0xFFFFFF20, 0xFFFFFFA0};
    for (kel_funpos fine : fini) {
        s_sottocampo tabella[3] = {};
        tabella[0].fid = 7;
        tabella[1].fid = fine;
        tabella[2].fid = 9;
        EXPECT_EQ(getDettagliSottocampo(tabella, 7), tabella);
        EXPECT_EQ(getDettagliSottocampo(tabella, 9), nullptr) << std::hex << fine;
        EXPECT_EQ(getDettagliSottocampo(tabella + 1, 9), nullptr) << "an empty table";
    }
}

TEST(SubfieldMatch, TellsWhetherAPacketHoldsAFunction) {
    EXPECT_EQ(kelConvMatchSottocampo(3, 0, 0xA940B), 1);
    EXPECT_EQ(kelConvMatchSottocampo(3, 1, 0xA940B), 1);
    EXPECT_EQ(kelConvMatchSottocampo(3, 0, 0xA8A07), 1);
    EXPECT_EQ(kelConvMatchSottocampo(3, 1, 0xA8A07), 0) << "no latitude in the NAV-SOL table";
    EXPECT_EQ(kelConvMatchSottocampo(3, 1, 0xA9512), 0) << "no time in the NAV-SOL table";
    EXPECT_EQ(kelConvMatchSottocampo(3, 2, 0xA940B), 0);
    EXPECT_EQ(kelConvMatchSottocampo(4, 0, 0xA940B), 0);
    EXPECT_EQ(kelConvMatchSottocampo(0, 0, 0xA940B), 0);
    EXPECT_EQ(kelConvMatchSottocampo(1, 0, 0x98B), 1);
    EXPECT_EQ(kelConvMatchSottocampo(1, 1, 0x98B), 1);
    EXPECT_EQ(kelConvMatchSottocampo(1, 2, 0x98B), 1);
    EXPECT_EQ(kelConvMatchSottocampo(1, 3, 0x98B), 0);
    EXPECT_EQ(kelConvMatchSottocampo(1, 1, 0x1712), 0) << "no running lap in the first generation";
    EXPECT_EQ(kelConvMatchSottocampo(1, 0, 0), 1) << "the reserved row is a row";
    EXPECT_EQ(kelConvMatchSottocampo(1, 1, 0), 0);
    EXPECT_EQ(kelConvMatchSottocampo(3, 0, 0xB9D20), 0) << "the end row is none";
}

TEST(SubfieldMatch, FindsNothingInDateAndTime) {
    for (const s_sottocampo& riga : std::span(sottocampi_gps_kel).first<8>()) {
        EXPECT_EQ(kelConvMatchSottocampo(2, 0, riga.fid), 0);
    }
    for (kel_funpos fid : {0u, 0xB9D20u, 0x98Bu, 0xFFFFFFFFu}) {
        EXPECT_EQ(kelConvMatchSottocampo(2, 0, fid), 0);
    }
}

// A packet in which every byte differs, so that a subfield read from a wrong place shows.
Byte numerato(std::size_t byte) {
    Byte pacchetto(byte);
    for (std::size_t i = 0; i < byte; ++i) {
        pacchetto[i] = static_cast<unsigned char>(i + 1);
    }
    return pacchetto;
}

struct Letto {
    kel_funpos fid;
    float valore;
};

void controlla_valori(kel_funpos fid_pacchetto, unsigned tipo, const Byte& pacchetto,
                      const std::vector<Letto>& attesi) {
    for (const Letto& atteso : attesi) {
        SCOPED_TRACE(::testing::Message() << "subfield 0x" << std::hex << atteso.fid);
        s_kel_converter conv = sottocampo(fid_pacchetto, tipo, atteso.fid);
        const Lettura letto = leggi(conv, pacchetto);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, atteso.valore);
        EXPECT_EQ(letto.stato, 0u);
        s_kel_converter doppio = sottocampo(fid_pacchetto, tipo, atteso.fid, &DOPPIO_PIU_CINQUE);
        EXPECT_EQ(leggi(doppio, pacchetto).valore, atteso.valore * 2.0f + 5.0f);
    }
}

TEST(SubfieldRead, OfTheLoggersGpsPacket) {
    controlla_valori(PACCHETTO_GPS, 8, numerato(56),
                     {{0xA9512, 67305985.0f}, {0xA9986, 15.0f}, {0xA998C, 29.0f}, {0xA9994, 45.0f}, {0xA940B, 52.0f}});
}

TEST(SubfieldRead, OfTheNavSolPayload) {
    controlla_valori(PACCHETTO_UBX, 9, numerato(52),
                     {{0xA9986, 11.0f}, {0xA998C, 25.0f}, {0xA9994, 41.0f}, {0xA940B, 48.0f}});
}

TEST(SubfieldRead, OfTheSecondGenerationLapPacket) {
    Byte pacchetto(28, 0);
    pacchetto[0] = 3;                        // run
    pacchetto[1] = 2;                        // split
    metti(pacchetto, 2, le16(517));          // lap
    metti(pacchetto, 4, le32(83456));        // lap time
    metti(pacchetto, 8, le32(21000));        // split time
    metti(pacchetto, 12, le32(82000));       // best lap
    metti(pacchetto, 16, le_i32(-1000));     // running lap
    metti(pacchetto, 20, le32(4321));        // reserved
    metti(pacchetto, 24, le32(0x00000200));  // flags
    for (kel_funpos fid_pacchetto : {PACCHETTO_GIRO2_G, PACCHETTO_GIRO2_GV2}) {
        controlla_valori(fid_pacchetto, 7, pacchetto,
                         {{0x190B, 3.0f},
                          {0x178B, 2.0f},
                          {0x98B, 517.0f},
                          {0x992, 83456.0f},
                          {0x1792, 21000.0f},
                          {0x1312, 82000.0f},
                          {0x1712, -1000.0f},
                          {0x0, 4321.0f},
                          {0x986, 0.0f},
                          {0x1786, 0.0f},
                          {0x1306, 2.0f},
                          {0x1806, 0.0f}});
    }
    metti(pacchetto, 24, le32(0x00000500));  // bits 10 and 8
    controlla_valori(PACCHETTO_GIRO2_G, 7, pacchetto,
                     {{0x986, 256.0f}, {0x1786, 256.0f}, {0x1306, 0.0f}, {0x1806, 2.0f}});
}

TEST(SubfieldRead, LapTimesOfALapPacketShowAsLapTimes) {
    Byte pacchetto(28, 0);
    metti(pacchetto, 4, le32(83456));
    s_kel_converter conv = sottocampo(PACCHETTO_GIRO2_G, 7, 0x992);
    EXPECT_EQ(leggi(conv, pacchetto).testo, " 1:23.45");
    conv.larghezza = 5;
    EXPECT_EQ(leggi(conv, pacchetto).testo, "1:23.45");
    s_kel_converter numero = sottocampo(PACCHETTO_GIRO2_G, 7, 0x98B);
    EXPECT_EQ(leggi(numero, pacchetto).testo, "       0");
}

TEST(SubfieldRead, OfTheFirstGenerationLapPacket) {
    Byte pacchetto(8, 0);
    metti(pacchetto, 0, le32(83456));
    metti(pacchetto, 4, le16(0x3005));
    pacchetto[6] = 9;
    pacchetto[7] = 0xFF;
    controlla_valori(PACCHETTO_GIRO1_G, 17, pacchetto,
                     {{0x992, 83456.0f},
                      {0x1792, 83456.0f},
                      {0x178B, 4096.0f},  // mask 0x1000: the bit above the split number
                      {0x98B, 0.0f},      // mask 0x10000: no bit in a 16-bit word
                      {0x190B, 9.0f},
                      {0x986, 0.0f},  // mask 0x100: no bit in a byte
                      {0x1786, 0.0f}});
    metti(pacchetto, 4, le16(0x2FFF));
    controlla_valori(PACCHETTO_GIRO1_G, 17, pacchetto, {{0x178B, 0.0f}, {0x98B, 0.0f}});
}

TEST(SubfieldRead, ReservedValuesKeepTheirStatusTextInsideAPacket) {
    Byte pacchetto(28, 0);
    metti(pacchetto, 2, le16(0xCFFF));
    s_kel_converter conv = sottocampo(PACCHETTO_GIRO2_G, 7, 0x98B);
    EXPECT_EQ(leggi(conv, pacchetto).testo, "---");
    metti(pacchetto, 2, le16(0xCFFE));
    EXPECT_EQ(leggi(conv, pacchetto).testo, "   ");
}

TEST(SubfieldRead, TakesTheReciprocalFormOfTheSampleType) {
    Byte pacchetto(56, 0);
    pacchetto[51] = 4;
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, 0xA940B, &RECIPROCA);
    EXPECT_EQ(leggi(conv, pacchetto).valore, 5.5f);
}

}  // namespace
