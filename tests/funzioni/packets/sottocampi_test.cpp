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
    EXPECT_EQ(kelConvGetSottoCampiGPS(kPacchettoGps), sottocampi_gps_kel);
    EXPECT_EQ(kelConvGetSottoCampiGPS(kPacchettoUbx), search_sottocampi_struct(3, 1));
    EXPECT_EQ(kelConvGetSottoCampiGPS(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, 2)), nullptr);
    EXPECT_EQ(kelConvGetSottoCampiGPS(0), sottocampi_gps_kel);
    EXPECT_EQ(kelConvGetSottoCampiGPS(kelFidComponi(FID_PHI_SPEED, FID_OBJ_OIL, 1)), search_sottocampi_struct(3, 1));

    EXPECT_EQ(kelConvGetSottoCampiLapTime(kPacchettoGiro2G), sottocampi_lap_time_2G);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kPacchettoGiro1G), search_sottocampi_struct(1, 1));
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kPacchettoGiro2Gv2), sottocampi_lap_time_2G);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, 3)), nullptr);
    EXPECT_EQ(kelConvGetSottoCampiLapTime(kelFidComponi(0, 0, 31)), nullptr);

    const s_sottocampo* data_ora = search_sottocampi_struct(2, 0);
    for (kel_funpos fid : {0u, kPacchettoDataOra, kPacchettoGps, 0xFFFFFFFFu}) {
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
Byte Numerato(std::size_t byte) {
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

void ControllaValori(kel_funpos fid_pacchetto, unsigned tipo, const Byte& pacchetto, const std::vector<Letto>& attesi) {
    for (const Letto& atteso : attesi) {
        SCOPED_TRACE(::testing::Message() << "subfield 0x" << std::hex << atteso.fid);
        s_kel_converter conv = Sottocampo(fid_pacchetto, tipo, atteso.fid);
        const Lettura letto = Leggi(conv, pacchetto);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, atteso.valore);
        EXPECT_EQ(letto.stato, 0u);
        s_kel_converter doppio = Sottocampo(fid_pacchetto, tipo, atteso.fid, &kDoppioPiuCinque);
        EXPECT_EQ(Leggi(doppio, pacchetto).valore, atteso.valore * 2.0f + 5.0f);
    }
}

TEST(SubfieldRead, OfTheLoggersGpsPacket) {
    ControllaValori(kPacchettoGps, 8, Numerato(56),
                    {{0xA9512, 67305985.0f}, {0xA9986, 15.0f}, {0xA998C, 29.0f}, {0xA9994, 45.0f}, {0xA940B, 52.0f}});
}

TEST(SubfieldRead, OfTheNavSolPayload) {
    ControllaValori(kPacchettoUbx, 9, Numerato(52),
                    {{0xA9986, 11.0f}, {0xA998C, 25.0f}, {0xA9994, 41.0f}, {0xA940B, 48.0f}});
}

TEST(SubfieldRead, OfTheSecondGenerationLapPacket) {
    Byte pacchetto(28, 0);
    pacchetto[0] = 3;                        // run
    pacchetto[1] = 2;                        // split
    Metti(pacchetto, 2, Le16(517));          // lap
    Metti(pacchetto, 4, Le32(83456));        // lap time
    Metti(pacchetto, 8, Le32(21000));        // split time
    Metti(pacchetto, 12, Le32(82000));       // best lap
    Metti(pacchetto, 16, LeI32(-1000));      // running lap
    Metti(pacchetto, 20, Le32(4321));        // reserved
    Metti(pacchetto, 24, Le32(0x00000200));  // flags
    for (kel_funpos fid_pacchetto : {kPacchettoGiro2G, kPacchettoGiro2Gv2}) {
        ControllaValori(fid_pacchetto, 7, pacchetto,
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
    Metti(pacchetto, 24, Le32(0x00000500));  // bits 10 and 8
    ControllaValori(kPacchettoGiro2G, 7, pacchetto,
                    {{0x986, 256.0f}, {0x1786, 256.0f}, {0x1306, 0.0f}, {0x1806, 2.0f}});
}

TEST(SubfieldRead, LapTimesOfALapPacketShowAsLapTimes) {
    Byte pacchetto(28, 0);
    Metti(pacchetto, 4, Le32(83456));
    s_kel_converter conv = Sottocampo(kPacchettoGiro2G, 7, 0x992);
    EXPECT_EQ(Leggi(conv, pacchetto).testo, " 1:23.45");
    conv.larghezza = 5;
    EXPECT_EQ(Leggi(conv, pacchetto).testo, "1:23.45");
    s_kel_converter numero = Sottocampo(kPacchettoGiro2G, 7, 0x98B);
    EXPECT_EQ(Leggi(numero, pacchetto).testo, "       0");
}

TEST(SubfieldRead, OfTheFirstGenerationLapPacket) {
    Byte pacchetto(8, 0);
    Metti(pacchetto, 0, Le32(83456));
    Metti(pacchetto, 4, Le16(0x3005));
    pacchetto[6] = 9;
    pacchetto[7] = 0xFF;
    ControllaValori(kPacchettoGiro1G, 17, pacchetto,
                    {{0x992, 83456.0f},
                     {0x1792, 83456.0f},
                     {0x178B, 4096.0f},  // mask 0x1000: the bit above the split number
                     {0x98B, 0.0f},      // mask 0x10000: no bit in a 16-bit word
                     {0x190B, 9.0f},
                     {0x986, 0.0f},  // mask 0x100: no bit in a byte
                     {0x1786, 0.0f}});
    Metti(pacchetto, 4, Le16(0x2FFF));
    ControllaValori(kPacchettoGiro1G, 17, pacchetto, {{0x178B, 0.0f}, {0x98B, 0.0f}});
}

TEST(SubfieldRead, ReservedValuesKeepTheirStatusTextInsideAPacket) {
    Byte pacchetto(28, 0);
    Metti(pacchetto, 2, Le16(0xCFFF));
    s_kel_converter conv = Sottocampo(kPacchettoGiro2G, 7, 0x98B);
    EXPECT_EQ(Leggi(conv, pacchetto).testo, "---");
    Metti(pacchetto, 2, Le16(0xCFFE));
    EXPECT_EQ(Leggi(conv, pacchetto).testo, "   ");
}

TEST(SubfieldRead, TakesTheReciprocalFormOfTheSampleType) {
    Byte pacchetto(56, 0);
    pacchetto[51] = 4;
    s_kel_converter conv = Sottocampo(kPacchettoGps, 8, 0xA940B, &kReciproca);
    EXPECT_EQ(Leggi(conv, pacchetto).valore, 5.5f);
}

}  // namespace
