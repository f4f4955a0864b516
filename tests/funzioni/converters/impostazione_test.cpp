// Setting a converter record up, and the flat reads of it.
#include <gtest/gtest.h>

#include "comune/tipi_campione.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

TEST(ConverterSetUp, SampleAtStartHasNoOffset) {
    const s_kel_canale canale = un_canale(FID, 4, 6);
    s_kel_converter conv{};
    conv.larghezza = 4;
    kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, 1);
    EXPECT_EQ(kelConvGetOffset(&conv), 0u);
    EXPECT_EQ(leggi(conv, le16(1234)).valore, 1234.0f);
}

TEST(ConverterSetUp, SampleInARecordLiesAtTheChannelsOffset) {
    const s_kel_canale canale = un_canale(FID, 4, 6);
    s_kel_converter conv{};
    conv.larghezza = 4;
    kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, 0);
    EXPECT_EQ(kelConvGetOffset(&conv), 6u);
    const Byte record = {9, 9, 9, 9, 9, 9, 0xD2, 0x04, 9};
    EXPECT_EQ(leggi(conv, record).valore, 1234.0f);
    EXPECT_EQ(leggi(conv, record).testo, "1234");
}

TEST(ConverterSetUp, AnyNonZeroFlagPutsTheSampleAtTheStart) {
    const s_kel_canale canale = un_canale(FID, 4, 6);
    for (int testa : {1, 2, -1, 256, 0x10000}) {
        s_kel_converter conv{};
        kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, testa);
        EXPECT_EQ(kelConvGetOffset(&conv), 0u) << testa;
    }
}

TEST(ConverterSetUp, SubfieldAddsItsPlaceInThePacket) {
    const s_kel_canale canale = un_canale(PACCHETTO_GPS, 8, 100);
    s_kel_converter conv{};
    kelConvInit(&conv, &canale, 0xA940B, &IDENTITA, 0, 0, 1);
    EXPECT_EQ(kelConvGetOffset(&conv), 51u);
    kelConvInit(&conv, &canale, 0xA940B, &IDENTITA, 0, 0, 0);
    EXPECT_EQ(kelConvGetOffset(&conv), 151u);
    kelConvInit(&conv, &canale, 0xA8010, &IDENTITA, 0, 0, 0);
    EXPECT_EQ(kelConvGetOffset(&conv), 100u) << "a computed subfield reads the whole packet";
    Byte record(200, 0);
    record[151] = 7;
    kelConvInit(&conv, &canale, 0xA940B, &IDENTITA, 0, 0, 0);
    EXPECT_EQ(leggi(conv, record).valore, 7.0f);
}

TEST(ConverterSetUp, LeavesTheCallersFieldsAlone) {
    s_kel_converter conv{};
    conv.larghezza = 11;
    conv.decimali = 22;
    conv.auto_decimali = 33;
    conv.formato = FORMATO_COMPATTO;
    const s_kel_canale canale = un_canale(FID, 4);
    kelConvInit(&conv, &canale, FID, &IDENTITA, 1, 2, 1);
    EXPECT_EQ(conv.larghezza, 11u);
    EXPECT_EQ(conv.decimali, 22u);
    EXPECT_EQ(conv.auto_decimali, 33u);
    EXPECT_EQ(conv.formato, FORMATO_COMPATTO);
}

TEST(ConverterSetUp, StoresBitPositionAndCount) {
    s_kel_converter conv{};
    const s_kel_canale canale = un_canale(FID, 3);
    kelConvInit(&conv, &canale, FID, &IDENTITA, 5, 6, 1);
    EXPECT_EQ(conv.pos_bit, 5u);
    EXPECT_EQ(conv.num_bit, 6u);
    EXPECT_EQ(conv.maschera, 0x800u);
}

TEST(ConverterSetUp, SubfieldReplacesTheBitField) {
    s_kel_converter conv{};
    const s_kel_canale canale = un_canale(PACCHETTO_GIRO2_G, 7);
    kelConvInit(&conv, &canale, 0x1306, &IDENTITA, 5, 6, 1);
    EXPECT_EQ(conv.pos_bit, 8u);
    EXPECT_EQ(conv.num_bit, 1u);
    EXPECT_EQ(conv.maschera, 0x200u);
    kelConvInit(&conv, &canale, 0x98B, &IDENTITA, 5, 6, 1);
    EXPECT_EQ(conv.pos_bit, 0u);
    EXPECT_EQ(conv.num_bit, 0u);
    EXPECT_EQ(conv.maschera, 0u);
    const s_kel_canale gps = un_canale(PACCHETTO_GPS, 8);
    kelConvInit(&conv, &gps, 0xA8010, &IDENTITA, 5, 6, 1);
    EXPECT_EQ(conv.pos_bit, 0u);
    EXPECT_EQ(conv.num_bit, 0u);
    EXPECT_EQ(conv.maschera, 0u);
}

TEST(ConverterSetUp, KeepsTheUnitDataItIsGiven) {
    s_kel_converter conv{};
    const s_kel_canale canale = un_canale(FID, 4);
    kelConvInit(&conv, &canale, FID, &DOPPIO_PIU_CINQUE, 0, 0, 1);
    EXPECT_EQ(kelConvGetConvData(&conv), &DOPPIO_PIU_CINQUE);
    EXPECT_EQ(conv.dati, &DOPPIO_PIU_CINQUE);
}

TEST(ConverterSetUp, NullUnitDataLeaveTheRecordsOwn) {
    s_kel_converter conv{};
    conv.dati = &DOPPIO_PIU_CINQUE;
    const s_kel_canale canale = un_canale(FID, 4);
    kelConvInit(&conv, &canale, FID, nullptr, 0, 0, 1);
    EXPECT_EQ(kelConvGetConvData(&conv), &DOPPIO_PIU_CINQUE);
    EXPECT_EQ(leggi(conv, le16(100)).valore, 205.0f);
    conv.dati = &RECIPROCA;
    kelConvInit(&conv, &canale, FID, nullptr, 0, 0, 1);
    EXPECT_EQ(leggi(conv, le16(4)).valore, 5.5f) << "the record's own reciprocal flag counts";
}

TEST(ConverterSetUp, WithoutAnyUnitDataNumericFormatsHaveNoValue) {
    for (unsigned tipo : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 13u, 20u}) {
        Impostazione come;
        come.dati = nullptr;
        s_kel_converter conv = convertitore(tipo, come);
        EXPECT_EQ(kelConvGetConvData(&conv), nullptr);
        const Lettura letto = leggi(conv, Byte(4, 1));
        EXPECT_EQ(letto.ha_valore, 0) << "sample type " << tipo;
        EXPECT_EQ(letto.valore, 0.0f) << "sample type " << tipo;
        EXPECT_EQ(letto.testo, "- -") << "sample type " << tipo;
    }
}

TEST(ConverterSetUp, WithoutAnyUnitDataTextsThatDoNotUseThemStay) {
    struct Caso {
        unsigned tipo;
        Byte campione;
        int ha_valore;
        const char* testo;
    };
    Byte numero_testo(32, 0);
    metti(numero_testo, 0, le16(9));
    metti(numero_testo, 2, {'a', 'b'});
    Byte gps(56, 0);
    gps[14] = 3;
    gps[51] = 9;
    Byte ubx(52, 0);
    ubx[10] = 2;
    Byte giro(32, 0);
    metti(giro, 4, le32(83456));
    const Caso casi[] = {
        {12, le32(83456), 0, " 1:23.45"},
        {24, le_i32(-1230), 0, " - 1.23"},
        {21, le32(453456789), 0, "45.3456789"},
        {11, le16(4), 1, "4"},
        {15, numero_testo, 1, "ab"},
        {16, numero_testo, 1, "ab"},
        {7, giro, 1, " 1:23.450"},
        {8, gps, 1, "GPS Fix=3 SVs=9"},
        {9, ubx, 1, "GPS low fix"},
        {10, Byte(44, 0), 1, "Date and Time Packet"},
        {17, Byte(8, 0), 1, "LAP Packet 1G"},
        {18, Byte(64, 0), 1, "GPS SV Info Packet"},
        {22, giro, 1, " 1:23.450"},
    };
    for (const Caso& caso : casi) {
        Impostazione come;
        come.dati = nullptr;
        s_kel_converter conv = convertitore(caso.tipo, come);
        const Lettura letto = leggi(conv, caso.campione);
        EXPECT_EQ(letto.ha_valore, caso.ha_valore) << "sample type " << caso.tipo;
        EXPECT_EQ(letto.testo, caso.testo) << "sample type " << caso.tipo;
    }
}

TEST(ConverterSetUp, WithoutAnyUnitDataComputedSpeedHasNoValue) {
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, 0xA8010, nullptr);
    EXPECT_EQ(leggi(conv, Byte(56, 9)).ha_valore, 0);
    EXPECT_EQ(leggi(conv, Byte(56, 9)).testo, "- -");
    s_kel_converter ubx = sottocampo(PACCHETTO_UBX, 9, 0xA8010, nullptr);
    EXPECT_EQ(leggi(ubx, Byte(52, 9)).ha_valore, 0);
    EXPECT_EQ(leggi(ubx, Byte(52, 9)).testo, "- -");
}

TEST(ConverterSetUp, StartsOverOnAUsedRecord) {
    s_kel_converter conv = convertitore(4, {});
    ASSERT_NE(conv.valore, nullptr);
    ASSERT_NE(conv.testo_stato, nullptr);
    const s_kel_canale senza = un_canale(FID, 14);
    kelConvInit(&conv, &senza, FID, &IDENTITA, 0, 0, 1);
    EXPECT_EQ(conv.valore, nullptr);
    EXPECT_EQ(conv.testo_stato, nullptr);
    EXPECT_EQ(leggi(conv, le16(5)).testo, "- -");
}

TEST(ConverterSetUp, UnknownSubfieldReadsNoValueAndShowsTwoDashes) {
    struct Caso {
        kel_funpos pacchetto;
        unsigned tipo;
        kel_funpos fid;
    };
    const Caso casi[] = {
        {PACCHETTO_GPS, 8, 0x98B},                                            // a lap number
        {PACCHETTO_UBX, 9, 0xA8A07},                                          // NAV-SOL has no latitude
        {PACCHETTO_UBX, 9, 0xA8A87},                                          // nor a longitude
        {PACCHETTO_GIRO1_G, 17, 0x1712},                                      // nor the first generation a running lap
        {PACCHETTO_DATA_ORA, 10, 0xA9512},                                    // date and time has no subfields
        {PACCHETTO_GPS, 8, 0xB9D20},                                          // the end row
        {PACCHETTO_GPS, 8, 0xA940B | 0x100000},                               // in/out differs
        {kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, 2), 8, 0xA940B},    // no such specialisation
        {kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, 3), 7, 0x98B},  // no such specialisation
        {kelFidComponi(FID_PHI_PACKAGE, 4, 0), 8, 0xA940B},                   // no such details
        {kelFidComponi(FID_PHI_PACKAGE, 0, 0), 8, 0xA940B},
        {PACCHETTO_GPS, 8, PACCHETTO_UBX},  // another packet
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(::testing::Message() << std::hex << caso.pacchetto << " asked for " << caso.fid);
        s_kel_converter conv = convertitore(4, {});
        const s_kel_canale canale = un_canale(caso.pacchetto, caso.tipo, 12);
        kelConvInit(&conv, &canale, caso.fid, &IDENTITA, 3, 4, 0);
        EXPECT_EQ(conv.valore, nullptr);
        EXPECT_EQ(conv.testo_stato, nullptr);
        EXPECT_EQ(kelConvGetOffset(&conv), 12u);
        const Lettura letto = leggi(conv, Byte(128, 1));
        EXPECT_EQ(letto.ha_valore, 0);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.testo, "- -");
        EXPECT_TRUE(letto.pulito);
    }
}

TEST(ConverterSetUp, PacketAskedForItselfIsThePacket) {
    Byte gps(56, 0);
    gps[14] = 3;
    gps[51] = 9;
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, PACCHETTO_GPS);
    EXPECT_EQ(leggi(conv, gps).testo, "GPS Fix=3 SVs=9");
}

TEST(ConverterSetUp, OtherChannelAskedForAnotherFunctionKeepsItsSampleType) {
    Impostazione come;
    come.fid_canale = kelFidComponi(FID_PHI_TEMPERATURE, FID_OBJ_WATER, 0);
    come.fid = 0xA8010;
    s_kel_converter conv = convertitore(4, come);
    EXPECT_EQ(leggi(conv, le16(90)).valore, 90.0f);
}

TEST(ConverterSetUp, SampleTypeOfAPacketDoesNotMatterToItsSubfields) {
    Impostazione come;
    come.fid_canale = PACCHETTO_GPS;
    come.fid = 0xA940B;
    s_kel_converter conv = convertitore(23, come);
    Byte gps(56, 0);
    gps[51] = 11;
    EXPECT_EQ(leggi(conv, gps).valore, 11.0f);
}

TEST(ConverterSetUp, ChannelRecordIsReadOnlyDuringTheCall) {
    s_kel_converter conv{};
    conv.larghezza = 4;
    {
        s_kel_canale canale = un_canale(FID, 4, 2);
        kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, 0);
        std::memset(&canale, 0xFF, sizeof canale);
    }
    EXPECT_EQ(leggi(conv, Byte{9, 9, 0x2A, 0}).valore, 42.0f);
}

TEST(ConverterRead, WithoutATextFunctionWritesTwoDashesAndSaysSo) {
    s_kel_converter conv = convertitore(4, {});
    conv.testo = nullptr;
    const Lettura letto = leggi(conv, le16(5));
    EXPECT_EQ(letto.ha_testo, 0);
    EXPECT_EQ(letto.testo, "- -");
    EXPECT_TRUE(letto.pulito);
    EXPECT_EQ(letto.ha_valore, 1);
}

TEST(ConverterRead, WithTheInitialTextFunctionIsATextRead) {
    s_kel_converter conv = convertitore(14, {});
    EXPECT_EQ(leggi(conv, Byte(8, 1)).ha_testo, 1);
}

TEST(ConverterRead, WithoutAValueFunctionStoresZero) {
    s_kel_converter conv = convertitore(14, {});
    float valore = 77.0f;
    EXPECT_EQ(kelConvGetValFloat(&conv, le16(5).data(), &valore), 0);
    EXPECT_EQ(valore, 0.0f);
}

TEST(ConverterRead, BadSampleIsAValueOfZeroThatWasRead) {
    s_kel_converter conv = convertitore(1, {});
    float valore = 77.0f;
    EXPECT_EQ(kelConvGetValFloat(&conv, le16(0xCFFF).data(), &valore), 1);
    EXPECT_EQ(valore, 0.0f);
}

TEST(ConverterRead, DoesNotChangeTheRecord) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
        s_kel_converter conv = convertitore(tipo, {});
        const s_kel_converter prima = conv;
        leggi(conv, Byte(64, 3));
        EXPECT_EQ(conv.offset_campione, prima.offset_campione);
        EXPECT_EQ(conv.pos_bit, prima.pos_bit);
        EXPECT_EQ(conv.num_bit, prima.num_bit);
        EXPECT_EQ(conv.maschera, prima.maschera);
        EXPECT_EQ(conv.dati, prima.dati);
        EXPECT_EQ(conv.larghezza, prima.larghezza);
        EXPECT_EQ(conv.decimali, prima.decimali);
        EXPECT_EQ(conv.auto_decimali, prima.auto_decimali);
        EXPECT_EQ(conv.formato, prima.formato);
        EXPECT_EQ(conv.valore, prima.valore);
        EXPECT_EQ(conv.testo, prima.testo);
        EXPECT_EQ(conv.testo_stato, prima.testo_stato);
    }
}

// Which family of decoder each sample type gets: the same function where the same rule is named.
TEST(HandlerSelection, GivesTheSameFunctionsToTheSameForms) {
    const auto valore = [](unsigned tipo, const s_converter_data& dati, unsigned short num_bit = 0) {
        Impostazione come;
        come.dati = &dati;
        come.num_bit = num_bit;
        return convertitore(tipo, come).valore;
    };
    const auto testo = [](unsigned tipo) { return convertitore(tipo, {}).testo; };
    for (unsigned tipo : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 20u, 21u}) {
        EXPECT_NE(valore(tipo, IDENTITA), valore(tipo, RECIPROCA)) << "sample type " << tipo;
    }
    for (unsigned tipo : {7u, 8u, 9u, 10u, 11u, 12u, 13u, 15u, 16u, 17u, 18u, 22u, 24u}) {
        EXPECT_EQ(valore(tipo, IDENTITA), valore(tipo, RECIPROCA)) << "sample type " << tipo;
    }
    for (unsigned tipo : {3u, 4u, 5u, 13u}) {
        EXPECT_NE(valore(tipo, IDENTITA), valore(tipo, IDENTITA, 2)) << "sample type " << tipo;
    }
    for (unsigned tipo : {1u, 2u, 3u, 4u, 5u, 6u, 13u, 20u}) {
        EXPECT_EQ(testo(tipo), testo(0)) << "numeric text of sample type " << tipo;
    }
    EXPECT_NE(testo(21), testo(0));
    EXPECT_EQ(testo(14), testo(19));
    EXPECT_EQ(testo(14), testo(23));
}

}  // namespace
