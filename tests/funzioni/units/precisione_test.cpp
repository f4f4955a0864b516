// Decimals and conversion parameters of a function in a unit.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "model/unita.h"
#include "tables/aiuti.h"

namespace {

using attesi::bit;
using attesi::descrivi;

struct Decimali {
    int predefiniti;
    int massimi;
    int minimi;
    bool operator==(const Decimali&) const = default;
};

void PrintTo(const Decimali& d, std::ostream* out) {
    *out << "default " << d.predefiniti << ", max " << d.massimi << ", min " << d.minimi;
}

Decimali decimali(kel_funpos fid, const char* udm) {
    return {kelFunGetNumDecimaliDefault(fid, udm), kelFunGetNumDecimaliMax(fid, udm),
            kelFunGetNumDecimaliMin(fid, udm)};
}

TEST(Decimals, OfASpeedInKilometresPerHourAreOne) {
    EXPECT_EQ(kelFunGetNumDecimaliDefault(0x00000010, "km/h"), 1);
}

TEST(Decimals, OfAPressureFollowItsUnit) {
    EXPECT_EQ(kelFunGetNumDecimaliDefault(0x0000000E, "bar"), 2);
    EXPECT_EQ(kelFunGetNumDecimaliDefault(0x0000000E, "psi"), 1);
    EXPECT_EQ(kelFunGetNumDecimaliDefault(0x0000000E, "kPa"), 0);
}

TEST(Decimals, OfATimeInSecondsDependOnTheFunction) {
    EXPECT_EQ(decimali(0x00000012, "s"), (Decimali{3, 3, 0})) << "time";
    EXPECT_EQ(decimali(0x00001B12, "s"), (Decimali{0, 3, 0})) << "time spent switched off";
}

TEST(Decimals, OfABatteryAreAtLeastOne) {
    EXPECT_EQ(kelFunGetNumDecimaliMin(0x00000195, "V"), 1);
    EXPECT_EQ(kelFunGetNumDecimaliMin(0x00000195, "mV"), 1) << "not a unit of its table";
    EXPECT_EQ(kelFunGetNumDecimaliMin(0x00000195, ""), 1) << "not a unit of its table";
}

TEST(Decimals, OfAnUnknownUnitAreTheBaseUnits) {
    EXPECT_EQ(decimali(0x0000000E, "furlong"), (Decimali{2, 2, 0}));
    EXPECT_EQ(decimali(0x0000000E, "PSI"), (Decimali{2, 2, 0})) << "case counts";
    EXPECT_EQ(decimali(0x0000000E, "psi "), (Decimali{2, 2, 0})) << "blanks count";
    EXPECT_EQ(decimali(0x00000B8E, "mbar"), (Decimali{2, 2, 0})) << "not in the oil pressure's table";
    EXPECT_EQ(decimali(0x0000001E, "lambda"), (Decimali{2, 2, 1}));
}

TEST(Decimals, OfAnIdentifierWithoutUnitsAreNone) {
    for (const kel_funpos fid : {0x00000000u, 0x0000001Cu, 0x00001D20u, 0x0000007Fu}) {
        EXPECT_EQ(decimali(fid, "bar"), (Decimali{0, 0, 0})) << descrivi(fid);
        EXPECT_EQ(decimali(fid, ""), (Decimali{0, 0, 0})) << descrivi(fid);
    }
}

TEST(Decimals, OfTheCatalogueAreTheSame) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getNumDecimaliDefault(0x00001B12, "s"), 0);
    EXPECT_EQ(catalogo->getNumDecimaliMax(0x00001B12, "s"), 3);
    EXPECT_EQ(catalogo->getNumDecimaliMin(0x00001B12, "s"), 0);
    EXPECT_EQ(catalogo->getNumDecimaliDefault(0x00000195, "V"), 1);
    EXPECT_EQ(catalogo->getNumDecimaliMax(0x00000195, "V"), 1);
    EXPECT_EQ(catalogo->getNumDecimaliMin(0x00000195, "V"), 1);
    EXPECT_EQ(catalogo->getNumDecimaliMin(0x0000001C, "V"), 0);
}

// The conversion into a unit, which is never null.
const s_converter_data& dati_di(kel_funpos fid, const char* udm) {
    const s_converter_data* dati = kelFunGetConvData(fid, udm);
    EXPECT_NE(dati, nullptr) << descrivi(fid) << " in " << udm;
    return dati != nullptr ? *dati : NULL_udm_associate[0].dati;
}

TEST(ConversionIntoAUnit, PointsAtTheUnitsRow) {
    EXPECT_EQ(kelFunGetConvData(0x0000000E, "psi"), &bar_udm_associate[1].dati);
    EXPECT_EQ(bit(dati_di(0x0000000E, "psi").gain), bit(14.5038f));
    EXPECT_EQ(kelFunGetConvData(0x00000011, "F"), &C_udm_associate[1].dati);
    EXPECT_EQ(kelFunGetConvData(0x00000014, "min/km"), &kmh_vel_udm_associate[6].dati);
    EXPECT_EQ(dati_di(0x00000014, "min/km").reciproco, 1);
}

TEST(ConversionIntoAnUnknownUnit, PointsAtTheBaseUnit) {
    EXPECT_EQ(kelFunGetConvData(0x0000000E, "furlong"), &bar_udm_associate[0].dati);
    EXPECT_EQ(kelFunGetConvData(0x0000000E, ""), &bar_udm_associate[0].dati);
    EXPECT_EQ(kelFunGetConvData(0x0000000E, "Psi"), &bar_udm_associate[0].dati);
}

TEST(ConversionIntoAUnit, OfAnIdentifierWithoutUnitsIsTheFallback) {
    EXPECT_EQ(kelFunGetConvData(0x0000001C, "bar"), &NULL_udm_associate[0].dati);
    EXPECT_EQ(kelFunGetConvData(0x00000000, ""), &NULL_udm_associate[0].dati);
    EXPECT_EQ(kelFunGetConvData(0x000B9D20, "bar"), &NULL_udm_associate[0].dati);
}

TEST(ConversionIntoANullUnit, IsTheFallbackForEveryIdentifier) {
    EXPECT_EQ(kelFunGetConvData(0x0000000E, nullptr), &NULL_udm_associate[0].dati);
    EXPECT_EQ(kelFunGetConvData(0x0000001C, nullptr), &NULL_udm_associate[0].dati);
}

TEST(ConversionIntoAUnit, OfTheCatalogueIsTheSameRow) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getParamConv(0x0000000E, "psi"), &bar_udm_associate[1].dati);
    EXPECT_EQ(catalogo->getParamConv(0x0000000E, "furlong"), &bar_udm_associate[0].dati);
    EXPECT_EQ(catalogo->getParamConv(0x0000001C, "psi"), &NULL_udm_associate[0].dati);
}

// The catalogue's texts go to the flat functions as they are, and those read them up to their NUL.
TEST(CatalogueUnits, AreReadUpToTheirNul) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::string psi("psi\0bar", 7);
    const std::string kpa("kPa\0", 4);
    EXPECT_EQ(catalogo->getNumDecimaliDefault(0x0000000E, psi), 1);
    EXPECT_EQ(catalogo->getParamConv(0x0000000E, psi), &bar_udm_associate[1].dati);
    EXPECT_EQ(bit(catalogo->getParamConv(0x0000000E, "bar", kpa).gain), bit(100.0f));
}

void e_identita(const s_converter_data& dati) {
    EXPECT_STREQ(dati.udm, "");
    EXPECT_EQ(bit(dati.offset), 0x00000000u) << dati.offset;
    EXPECT_EQ(bit(dati.gain), 0x3F800000u) << dati.gain;
    EXPECT_EQ(dati.reciproco, 0);
}

TEST(ConversionBetweenUnits, OfTemperaturesHasGainAndOffset) {
    const s_converter_data c_f = kelFunGetConvDatas(0x00000011, "C", "F");
    EXPECT_EQ(bit(c_f.gain), 0x3FE66666u) << c_f.gain;
    EXPECT_EQ(bit(c_f.gain), bit(1.8f));
    EXPECT_EQ(bit(c_f.offset), 0x42000000u) << c_f.offset;
    EXPECT_EQ(bit(c_f.offset), bit(32.0f));
    const s_converter_data f_c = kelFunGetConvDatas(0x00000011, "F", "C");
    EXPECT_EQ(bit(f_c.gain), 0x3F0E38E4u) << f_c.gain;
    EXPECT_EQ(bit(f_c.gain), bit(0.5555556f));
    EXPECT_EQ(bit(f_c.offset), 0xC18E38E4u) << f_c.offset;
    EXPECT_NEAR(f_c.offset, -17.77778, 5e-6) << "to seven digits";
}

TEST(ConversionBetweenUnits, OfPressuresIsTheRatioOfTheirGains) {
    const s_converter_data dati = kelFunGetConvDatas(0x0000000E, "bar", "kPa");
    EXPECT_EQ(bit(dati.gain), bit(100.0f)) << dati.gain;
    EXPECT_EQ(bit(dati.offset), 0x00000000u) << dati.offset;
}

TEST(ConversionBetweenUnits, IsTheIdentityForEqualTexts) {
    e_identita(kelFunGetConvDatas(0x0000000E, "kPa", "kPa"));
    e_identita(kelFunGetConvDatas(0x0000000E, "furlong", "furlong"));
    e_identita(kelFunGetConvDatas(0x00000195, "V", "V"));
    e_identita(kelFunGetConvDatas(0x0000000E, "", ""));
    const char copia[] = "psi";
    e_identita(kelFunGetConvDatas(0x0000000E, copia, "psi"));
}

TEST(ConversionBetweenUnits, IsTheIdentityWhenOneIsMissing) {
    e_identita(kelFunGetConvDatas(0x00000B8E, "bar", "mbar"));
    e_identita(kelFunGetConvDatas(0x00000B8E, "mbar", "bar"));
    e_identita(kelFunGetConvDatas(0x0000000E, "bar", ""));
    e_identita(kelFunGetConvDatas(0x0000000E, "BAR", "psi"));
}

TEST(ConversionBetweenUnits, IsTheIdentityWithoutUnits) {
    e_identita(kelFunGetConvDatas(0x0000001C, "bar", "kPa"));
    e_identita(kelFunGetConvDatas(0x00000000, "C", "F"));
    e_identita(kelFunGetConvDatas(0x000B9D20, "C", "F"));
}

TEST(ConversionBetweenUnits, CarriesNoReciprocalFlag) {
    const s_converter_data in_passo = kelFunGetConvDatas(0x00000014, "km/h", "min/km");
    EXPECT_STREQ(in_passo.udm, "");
    EXPECT_EQ(in_passo.reciproco, 0);
    EXPECT_EQ(bit(in_passo.gain), bit(0.016667f));
    const s_converter_data da_passo = kelFunGetConvDatas(0x00000014, "min/km", "km/h");
    EXPECT_STREQ(da_passo.udm, "");
    EXPECT_EQ(da_passo.reciproco, 0);
}

TEST(ConversionBetweenUnits, OfTheCatalogueIsTheSameRecord) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const s_converter_data f_c = catalogo->getParamConv(0x00000011, "F", "C");
    EXPECT_STREQ(f_c.udm, "");
    EXPECT_EQ(bit(f_c.gain), 0x3F0E38E4u);
    EXPECT_EQ(bit(f_c.offset), 0xC18E38E4u);
    EXPECT_EQ(f_c.reciproco, 0);
    e_identita(catalogo->getParamConv(0x00000B8E, "bar", "mbar"));
    e_identita(catalogo->getParamConv(0x0000001C, "C", "F"));
}

// Not always the float that is nearest to the exact ratio: a kilometre is 0x4479FFFF, a little less than 1000 metres.
TEST(ConversionBetweenUnits, HasTheBitsOfSinglePrecision) {
    const auto gain = [](kel_funpos fid, const char* da, const char* a) {
        return bit(kelFunGetConvDatas(fid, da, a).gain);
    };
    EXPECT_EQ(gain(0x0005, "rpm", "deg/s"), 0x40BFFFE7u);
    EXPECT_EQ(gain(0x0008, "km", "m"), 0x4479FFFFu);
    EXPECT_EQ(gain(0x000D, "HP", "CV"), 0x3F7C7F73u);
    EXPECT_EQ(gain(0x000E, "inHg", "psi"), 0x3EFB786Cu);
    EXPECT_EQ(gain(0x1B12, "h", "ms"), 0x4A5BB9F5u);
    EXPECT_EQ(gain(0x0014, "min/km", "m/min"), 0x4479FEDAu);
    EXPECT_EQ(gain(0x0018, "gal/h", "l/s"), 0x3A89D29Au);
}

TEST(ConversionBetweenUnits, OfEveryPairIsTheModels) {
    for (const modello::RigaGrandezza& riga : modello::tabelle().grandezze)
        for (const std::string& da : modello::unita(riga.chiave))
            for (const std::string& a : modello::unita(riga.chiave)) {
                SCOPED_TRACE(descrivi(riga.chiave) + " from " + da + " to " + a);
                const s_converter_data dati = kelFunGetConvDatas(riga.chiave, da.c_str(), a.c_str());
                const modello::Conversione attesa = modello::conversione_tra(riga.chiave, da, a);
                EXPECT_EQ(bit(dati.gain), bit(attesa.gain));
                EXPECT_EQ(bit(dati.offset), bit(attesa.offset));
                EXPECT_STREQ(dati.udm, "");
                EXPECT_EQ(dati.reciproco, 0);
            }
}

TEST(EveryQuantityAndObject, HasTheDecimalsAndConversionsOfTheModel) {
    for (unsigned grandezza = 0; grandezza < 128; ++grandezza)
        for (unsigned oggetto = 0; oggetto < 256; ++oggetto) {
            const kel_funpos fid = grandezza | oggetto << 7 | (oggetto % 3 == 0 ? 0xFFFF8000u : 0u);
            std::vector<std::string> unita = modello::unita(fid);
            unita.push_back("no such unit");
            for (const std::string& udm : unita) {
                SCOPED_TRACE(descrivi(fid) + " in " + udm);
                const modello::RigaUdm& attesa = modello::riga_conversione(fid, udm).dati();
                ASSERT_EQ(decimali(fid, udm.c_str()),
                          (Decimali{attesa.decimali_default, attesa.decimali_max, attesa.decimali_min}));
                const s_converter_data& dati = dati_di(fid, udm.c_str());
                ASSERT_EQ(dati.udm, attesa.testo);
                ASSERT_EQ(bit(dati.gain), bit(attesa.gain));
                ASSERT_EQ(bit(dati.offset), bit(attesa.offset));
                ASSERT_EQ(dati.reciproco, attesa.reciproco);
            }
        }
}

}  // namespace
