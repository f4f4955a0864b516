// The object face of a converter, made by the catalogue or directly, and the list of a packet's subfields.
#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <string>
#include <type_traits>

#include "CConverter.h"
#include "IFunzioni.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

class ObjectConverter : public ::testing::Test {
protected:
    std::unique_ptr<IFunzioni> catalogo_{IFunzioni::CreateMe()};

    std::unique_ptr<IConverter> crea(const s_kel_canale& canale, kel_funpos fid, const std::string& udm,
                                     unsigned decimali = 0, eFormatoConv formato = FORMATO_DESTRA,
                                     unsigned larghezza = 4, bool testa = true) {
        return std::unique_ptr<IConverter>(
            catalogo_->CreateConverter(&canale, fid, udm, testa, decimali, formato, larghezza));
    }

    static std::string letto(IConverter& conv, const Byte& campione) {
        std::string testo = "left over";
        EXPECT_TRUE(conv.GetString(campione.data(), testo));
        return testo;
    }

    static float valore(IConverter& conv, const Byte& campione) {
        float valore = -1.0f;
        EXPECT_TRUE(conv.GetVal(campione.data(), &valore));
        return valore;
    }
};

const kel_funpos ACQUA = kelFidComponi(FID_PHI_TEMPERATURE, FID_OBJ_WATER, FID_POS_ENGINE);

TEST_F(ObjectConverter, TextEndsWithOneNulThatCounts) {
    auto conv = crea(un_canale(FID, 4), FID, "rpm");
    const std::string testo = letto(*conv, le16(1234));
    EXPECT_EQ(testo.size(), 5u);
    EXPECT_EQ(testo, std::string("1234\0", 5));
    EXPECT_EQ(testo.back(), '\0');
}

TEST_F(ObjectConverter, TextReplacesWhatTheStringHeld) {
    auto conv = crea(un_canale(FID, 4), FID, "rpm", 0, FORMATO_COMPATTO);
    std::string testo(100, 'x');
    EXPECT_TRUE(conv->GetString(le16(7).data(), testo));
    EXPECT_EQ(testo, std::string("7\0", 2));
}

TEST_F(ObjectConverter, EmptyTextIsTheNulAlone) {
    auto conv = crea(un_canale(0xA8A87, 21), 0xA8A87, "deg");
    EXPECT_EQ(letto(*conv, le32(0xFFFFCFFF)), std::string(1, '\0'));
}

TEST_F(ObjectConverter, LongestTextKeepsItsNul) {
    auto conv = crea(un_canale(FID, 4), FID, "rpm", 0, FORMATO_DESTRA, 40);
    EXPECT_EQ(letto(*conv, le16(7)), std::string(30, ' ') + "7" + std::string(1, '\0'));
}

TEST_F(ObjectConverter, UnitComesFromTheFunctionAsked) {
    const s_kel_canale canale = un_canale(ACQUA, 1);
    auto celsius = crea(canale, ACQUA, "C", 1);
    auto fahrenheit = crea(canale, ACQUA, "F", 1);
    EXPECT_EQ(valore(*celsius, le16(100)), 100.0f);
    EXPECT_EQ(valore(*fahrenheit, le16(100)), 212.0f);
    EXPECT_EQ(letto(*fahrenheit, le16(100)), std::string("212.0\0", 6));
    auto speed = crea(un_canale(PACCHETTO_GPS, 8), 0xA8010, "mph", 1);
    Byte gps(56, 0);
    gps[14] = 3;
    gps[51] = 4;
    metti(gps, 32, le32(3000));
    metti(gps, 36, le32(4000));
    EXPECT_EQ(letto(*speed, gps), std::string("111.8\0", 6));
}

TEST_F(ObjectConverter, UnknownUnitIsTheBaseUnit) {
    auto conv = crea(un_canale(ACQUA, 1), ACQUA, "furlong");
    EXPECT_EQ(valore(*conv, le16(100)), 100.0f);
    auto battery = crea(un_canale(kelFidComponi(21, 3, 0), 4), kelFidComponi(21, 3, 0), "mV", 1);
    EXPECT_EQ(valore(*battery, le16(12500)), 12500.0f * 0.001f) << "the battery's only unit is V";
}

TEST_F(ObjectConverter, FunctionWithoutUnitsIsNotScaled) {
    const kel_funpos propria = kelFidComponi(FID_PHI_CUSTOM, 0, 0);
    auto conv = crea(un_canale(propria, 1), propria, "anything");
    EXPECT_EQ(valore(*conv, le16(100)), 100.0f);
}

TEST_F(ObjectConverter, PaceUsesTheReciprocal) {
    const kel_funpos velocita = kelFidComponi(FID_PHI_VELOCITY, 0, 0);
    auto conv = crea(un_canale(velocita, 4), velocita, "min/km");
    EXPECT_EQ(valore(*conv, le16(0)), 0.0f);
    EXPECT_EQ(valore(*conv, le16(50)), 1.0f / 50.0f * 0.016667f);
}

TEST_F(ObjectConverter, ReadsFromARecordOfSamples) {
    auto conv = crea(un_canale(FID, 4, 3), FID, "rpm", 0, FORMATO_DESTRA, 4, false);
    EXPECT_EQ(valore(*conv, Byte{9, 9, 9, 0xD2, 0x04}), 1234.0f);
    EXPECT_EQ(letto(*conv, Byte{9, 9, 9, 0xD2, 0x04}), std::string("1234\0", 5));
}

TEST_F(ObjectConverter, WithoutADecoderReadsNoValueButShowsTwoDashes) {
    for (unsigned tipo : {14u, 19u, 23u, 99u}) {
        auto conv = crea(un_canale(FID, tipo), FID, "rpm");
        float valore = 77.0f;
        EXPECT_FALSE(conv->GetVal(Byte(64, 1).data(), &valore));
        EXPECT_EQ(valore, 0.0f);
        EXPECT_EQ(letto(*conv, Byte(64, 1)), std::string("- -\0", 4));
    }
    auto sottocampo = crea(un_canale(PACCHETTO_GPS, 8), 0x98B, "#");
    float valore = 77.0f;
    EXPECT_FALSE(sottocampo->GetVal(Byte(56, 1).data(), &valore));
    EXPECT_EQ(valore, 0.0f);
    EXPECT_EQ(letto(*sottocampo, Byte(56, 1)), std::string("- -\0", 4));
}

TEST_F(ObjectConverter, ShowsStatusTexts) {
    auto conv = crea(un_canale(FID, 1), FID, "rpm");
    EXPECT_EQ(valore(*conv, le16(0xCFFF)), 0.0f);
    EXPECT_EQ(letto(*conv, le16(0xCFFF)), std::string("---\0", 4));
    EXPECT_EQ(letto(*conv, le16(0xCFFE)), std::string("   \0", 4));
}

TEST_F(ObjectConverter, NeverChoosesDecimalsByItself) {
    auto conv = crea(un_canale(FID, 4), FID, "rpm", 0);
    EXPECT_EQ(letto(*conv, le16(5)), std::string("   5\0", 5));
    EXPECT_EQ(letto(*conv, le16(1000)), std::string("1000\0", 5));
    EXPECT_EQ(letto(*conv, le16(5)), std::string("   5\0", 5));
}

TEST_F(ObjectConverter, SetNumDecTakesEffectAtTheNextText) {
    auto conv = crea(un_canale(FID, 6), FID, "rpm", 0, FORMATO_DESTRA, 5);
    const Byte campione = le_float(1.25f);
    EXPECT_EQ(letto(*conv, campione), std::string("    1\0", 6));
    conv->SetNumDec(1);
    EXPECT_EQ(letto(*conv, campione), std::string("   1.3\0", 7));
    conv->SetNumDec(2);
    EXPECT_EQ(letto(*conv, campione), std::string("  1.25\0", 7));
    conv->SetNumDec(3);
    EXPECT_EQ(letto(*conv, campione), std::string(" 1.250\0", 7));
    conv->SetNumDec(9);
    EXPECT_EQ(letto(*conv, campione), std::string(" 1.250\0", 7));
    conv->SetNumDec(-1);
    EXPECT_EQ(letto(*conv, campione), std::string(" 1.250\0", 7));
    conv->SetNumDec(0);
    EXPECT_EQ(letto(*conv, campione), std::string("    1\0", 6));
}

TEST_F(ObjectConverter, SetNumDecTurnsLapTimesToTenths) {
    auto conv = crea(un_canale(0x992, 12), 0x992, "time", 2, FORMATO_DESTRA, 8);
    EXPECT_EQ(letto(*conv, le32(83456)), std::string(" 1:23.45\0", 9));
    conv->SetNumDec(1);
    EXPECT_EQ(letto(*conv, le32(83456)), std::string(" 1:23.4\0", 8));
}

TEST_F(ObjectConverter, LivesOnWithoutItsCatalogueAndChannel) {
    std::unique_ptr<IConverter> conv;
    {
        const s_kel_canale canale = un_canale(ACQUA, 1);
        conv = crea(canale, ACQUA, "F", 1);
    }
    catalogo_.reset();
    EXPECT_EQ(letto(*conv, le16(100)), std::string("212.0\0", 6));
}

TEST_F(ObjectConverter, CanBeMadeDirectly) {
    const s_kel_canale canale = un_canale(FID, 4, 2);
    CConverter testa(&canale, FID, &DOPPIO_PIU_CINQUE, true, 1, FORMATO_SINISTRA, 5);
    EXPECT_EQ(letto(testa, le16(4)), std::string("13.0  \0", 7));
    CConverter record(&canale, FID, &DOPPIO_PIU_CINQUE, false, 0, FORMATO_COMPATTO, 5);
    EXPECT_EQ(letto(record, Byte{9, 9, 4, 0}), std::string("13\0", 3));
}

TEST_F(ObjectConverter, MadeWithoutUnitDataShowsTheSampleItself) {
    const s_kel_canale canale = un_canale(FID, KEL_TIPO_INT16);
    CConverter conv(&canale, FID, nullptr, true, 1, FORMATO_DESTRA, 5);
    EXPECT_EQ(valore(conv, le16(1234)), 1234.0f);
    EXPECT_EQ(letto(conv, le16(1234)), std::string("1234.0\0", 7));
}

TEST_F(ObjectConverter, UsesNoBitFieldOfItsOwn) {
    const s_kel_canale canale = un_canale(FID, 3);
    CConverter conv(&canale, FID, &IDENTITA, true, 0, FORMATO_DESTRA, 8);
    EXPECT_EQ(valore(conv, le32(0x1FF)), 511.0f);
}

TEST(ConverterInterface, IsAbstractAndDestroyedThroughItsBase) {
    static_assert(std::is_abstract_v<IConverter>);
    static_assert(std::has_virtual_destructor_v<IConverter>);
    static_assert(std::is_base_of_v<IConverter, CConverter>);
    static_assert(!std::is_abstract_v<CConverter>);
}

// --- the subfields of a packet --------------------------------------------------------------------------------------

using Elenco = std::list<kel_funpos>;

Elenco interni(kel_funpos fid) {
    Elenco interni = {1, 2, 3};
    CConverter::getAllInnerFunpos(fid, interni);
    std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Elenco stessi = {9};
    catalogo->getAllInnerFunpos(fid, stessi);
    EXPECT_EQ(stessi, interni) << "the catalogue asks the converter";
    return interni;
}

TEST(InnerFunctions, OfAGpsPacketAreItsRowsInOrder) {
    EXPECT_EQ(interni(PACCHETTO_GPS), (Elenco{0xA9512, 0xA9986, 0xA998C, 0xA9994, 0xA940B, 0xA8010, 0xA8A07, 0xA8A87}));
    EXPECT_EQ(interni(PACCHETTO_UBX), (Elenco{0xA9986, 0xA998C, 0xA9994, 0xA940B, 0xA8010}));
}

TEST(InnerFunctions, OfALapPacketIncludeTheReservedRow) {
    const Elenco seconda = {0x190B, 0x178B, 0x98B, 0x992, 0x1792, 0x1312, 0x1712, 0x0, 0x986, 0x1786, 0x1306, 0x1806};
    EXPECT_EQ(interni(PACCHETTO_GIRO2_G), seconda);
    EXPECT_EQ(interni(PACCHETTO_GIRO2_GV2), seconda);
    EXPECT_EQ(interni(PACCHETTO_GIRO1_G), (Elenco{0x992, 0x1792, 0x178B, 0x98B, 0x190B, 0x986, 0x1786}));
}

TEST(InnerFunctions, OfADateAndTimePacketAreNone) {
    EXPECT_TRUE(interni(PACCHETTO_DATA_ORA).empty());
}

TEST(InnerFunctions, OfAnythingElseAreNone) {
    EXPECT_TRUE(interni(0).empty());
    EXPECT_TRUE(interni(FID).empty());
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_SPEED, FID_DETTAGLI_GPS, 0)).empty()) << "no packet";
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_PACKAGE, 0, 0)).empty());
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_PACKAGE, 4, 0)).empty());
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_PACKAGE, 0xFF, 0)).empty());
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, 2)).empty());
    EXPECT_TRUE(interni(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, 3)).empty());
}

TEST(InnerFunctions, LookAtQuantityDetailsAndSpecialisationAlone) {
    EXPECT_EQ(interni(PACCHETTO_UBX | 0xFFF00000u).size(), 5u);
}

}  // namespace
