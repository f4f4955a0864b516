// Packets as a whole: the texts of sample types 7 to 10, 17, 18 and 22, which have no value.
#include <gtest/gtest.h>

#include "comune/tipi_campione.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

s_kel_converter del_pacchetto(unsigned tipo, kel_funpos fid) {
    Impostazione come;
    come.fid_canale = fid;
    come.fid = fid;
    return convertitore(tipo, come);
}

struct Caso {
    unsigned fix, satelliti;
    const char* testo;
};

// clang-format off
const Caso STATI_GPS[] = {
    {0,   0,   "GPS fix missing"},
    {1,   12,  "GPS fix missing"},
    {2,   3,   "GPS low fix"},
    {2,   255, "GPS low fix"},
    {3,   4,   "GPS Fix=3 SVs=4"},
    {3,   0,   "GPS Fix=3 SVs=0"},
    {4,   17,  "GPS Fix=4 SVs=17"},
    {3,   255, "GPS Fix=3 SVs=255"},
    {250, 249, "GPS Fix=250 SVs=249"},
    {249, 250, "GPS Fix=249 SVs=250"},
    {250, 250, "No GPS"},
    {255, 255, "No GPS"},
    {0,   255, "GPS fix missing"},
    {255, 0,   "GPS Fix=255 SVs=0"},
};
// clang-format on

void controlla_stato_gps(unsigned tipo, kel_funpos fid, std::size_t byte, std::size_t posto_fix,
                         std::size_t posto_sat) {
    for (const Caso& caso : STATI_GPS) {
        Byte pacchetto(byte, 0x5A);
        pacchetto[posto_fix] = static_cast<unsigned char>(caso.fix);
        pacchetto[posto_sat] = static_cast<unsigned char>(caso.satelliti);
        s_kel_converter conv = del_pacchetto(tipo, fid);
        const Lettura letto = leggi(conv, pacchetto);
        EXPECT_EQ(letto.testo, caso.testo) << "fix " << caso.fix << ", satellites " << caso.satelliti;
        EXPECT_EQ(letto.ha_testo, 1);
        EXPECT_TRUE(letto.pulito);
        EXPECT_EQ(letto.ha_valore, 1);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.stato, 0u);
    }
}

TEST(GpsPacket, OfTheLoggerTellsFixAndSatellites) {
    controlla_stato_gps(8, PACCHETTO_GPS, 56, 14, 51);
}

TEST(GpsPacket, OfNavSolTellsFixAndSatellites) {
    controlla_stato_gps(9, PACCHETTO_UBX, 52, 10, 47);
}

TEST(FixedTextPacket, ShowsItsKind) {
    const std::tuple<unsigned, kel_funpos, std::size_t, const char*> casi[] = {
        {10, PACCHETTO_DATA_ORA, 44, "Date and Time Packet"},
        {17, PACCHETTO_GIRO1_G, 8, "LAP Packet 1G"},
        {18, PACCHETTO_GPS, 64, "GPS SV Info Packet"},
    };
    for (const auto& [tipo, fid, byte, testo] : casi) {
        for (unsigned char riempimento : {static_cast<unsigned char>(0), static_cast<unsigned char>(0xFF)}) {
            s_kel_converter conv = del_pacchetto(tipo, fid);
            const Lettura letto = leggi(conv, Byte(byte, riempimento));
            EXPECT_EQ(letto.testo, testo);
            EXPECT_EQ(letto.ha_testo, 1);
            EXPECT_TRUE(letto.pulito);
            EXPECT_EQ(letto.ha_valore, 1);
            EXPECT_EQ(letto.valore, 0.0f);
            EXPECT_EQ(letto.stato, 0u);
        }
    }
}

TEST(AnyPacket, HasNoStatusText) {
    for (unsigned tipo : {7u, 8u, 9u, 10u, 17u, 18u, 22u}) {
        EXPECT_EQ(del_pacchetto(tipo, PACCHETTO_GPS).testo_stato, nullptr) << "sample type " << tipo;
    }
}

TEST(AnyPacket, IsNotScaled) {
    for (unsigned tipo : {7u, 8u, 9u, 10u, 17u, 18u, 22u}) {
        for (const s_converter_data* dati : {&DOPPIO_PIU_CINQUE, &RECIPROCA}) {
            Impostazione come;
            come.dati = dati;
            s_kel_converter conv = convertitore(tipo, come);
            EXPECT_EQ(leggi(conv, Byte(64, 1)).valore, 0.0f) << "sample type " << tipo;
        }
    }
}

TEST(SampleWithoutDecoder, ShowsTwoDashesAndHasNoValue) {
    for (unsigned tipo :
         {14u, 19u, 23u, kel_test::TIPI_CAMPIONE, kel_test::TIPI_CAMPIONE + 1, 255u, 256u, 0x80000000u, 0xFFFFFFFFu}) {
        s_kel_converter conv = convertitore(tipo, {});
        EXPECT_EQ(conv.valore, nullptr);
        EXPECT_EQ(conv.testo_stato, nullptr);
        const Lettura letto = leggi(conv, Byte(64, 1));
        EXPECT_EQ(letto.ha_valore, 0) << "sample type " << tipo;
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.testo, "- -");
        EXPECT_TRUE(letto.pulito);
    }
}

}  // namespace
