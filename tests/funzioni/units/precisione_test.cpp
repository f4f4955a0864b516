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
using attesi::esa;

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

// Every pair of units of every unit table that a quantity uses: the gain and offset that single precision gives.
struct Coppia {
    std::uint32_t fid;
    const char* da;
    const char* a;
    std::uint32_t bit_gain;
    std::uint32_t bit_offset;
};

// clang-format off
constexpr Coppia coppie[] = {
    {0x0004, "deg",     "rad",     0x3C8EFA39, 0x00000000},
    {0x0004, "rad",     "deg",     0x42652EDB, 0x00000000},
    {0x0005, "deg/s",   "rad/s",   0x3C8EFA39, 0x00000000},
    {0x0005, "deg/s",   "rpm",     0x3E2AAAC1, 0x00000000},
    {0x0005, "deg/s",   "rpm/100", 0x3ADA742A, 0x00000000},
    {0x0005, "deg/s",   "rps",     0x3CE38E45, 0x00000000},
    {0x0005, "rad/s",   "deg/s",   0x42652EDB, 0x00000000},
    {0x0005, "rad/s",   "rpm",     0x4118C9FB, 0x00000000},
    {0x0005, "rad/s",   "rpm/100", 0x3DC391E5, 0x00000000},
    {0x0005, "rad/s",   "rps",     0x3FCBB7EA, 0x00000000},
    {0x0005, "rpm",     "deg/s",   0x40BFFFE7, 0x00000000},
    {0x0005, "rpm",     "rad/s",   0x3DD67739, 0x00000000},
    {0x0005, "rpm",     "rpm/100", 0x3C23D70A, 0x00000000},
    {0x0005, "rpm",     "rps",     0x3E2AAA9D, 0x00000000},
    {0x0005, "rpm/100", "deg/s",   0x4415FFED, 0x00000000},
    {0x0005, "rpm/100", "rad/s",   0x41278D25, 0x00000000},
    {0x0005, "rpm/100", "rpm",     0x42C80000, 0x00000000},
    {0x0005, "rpm/100", "rps",     0x4185554B, 0x00000000},
    {0x0005, "rps",     "deg/s",   0x420FFFF8, 0x00000000},
    {0x0005, "rps",     "rad/s",   0x3F20D978, 0x00000000},
    {0x0005, "rps",     "rpm",     0x40C0000F, 0x00000000},
    {0x0005, "rps",     "rpm/100", 0x3D75C2A2, 0x00000000},
    {0x0107, "m",       "ft",      0x4051F948, 0x00000000},
    {0x0107, "ft",      "m",       0x3E9C0EBF, 0x00000000},
    {0x0008, "m",       "km",      0x3A83126F, 0x00000000},
    {0x0008, "m",       "mi",      0x3A22E380, 0x00000000},
    {0x0008, "m",       "ft",      0x4051F948, 0x00000000},
    {0x0008, "km",      "m",       0x4479FFFF, 0x00000000},
    {0x0008, "km",      "mi",      0x3F1F122B, 0x00000000},
    {0x0008, "km",      "ft",      0x454D0D70, 0x00000000},
    {0x0008, "mi",      "m",       0x44C92B07, 0x00000000},
    {0x0008, "mi",      "km",      0x3FCDFF01, 0x00000000},
    {0x0008, "mi",      "ft",      0x45A50004, 0x00000000},
    {0x0008, "ft",      "m",       0x3E9C0EBF, 0x00000000},
    {0x0008, "ft",      "km",      0x399FCD91, 0x00000000},
    {0x0008, "ft",      "mi",      0x39469808, 0x00000000},
    {0x0009, "Hz",      "kHz",     0x3A83126F, 0x00000000},
    {0x0009, "kHz",     "Hz",      0x4479FFFF, 0x00000000},
    {0x000C, "mm",      "in",      0x3D21428A, 0x00000000},
    {0x000C, "in",      "mm",      0x41CB332D, 0x00000000},
    {0x000D, "kW",      "HP",      0x3FAE0807, 0x00000000},
    {0x000D, "kW",      "CV",      0x3FABA68B, 0x00000000},
    {0x000D, "kW",      "W",       0x447A0000, 0x00000000},
    {0x000D, "HP",      "kW",      0x3F3C49B4, 0x00000000},
    {0x000D, "HP",      "CV",      0x3F7C7F73, 0x00000000},
    {0x000D, "HP",      "W",       0x4437DFFA, 0x00000000},
    {0x000D, "CV",      "kW",      0x3F3EE643, 0x00000000},
    {0x000D, "CV",      "HP",      0x3F81C67E, 0x00000000},
    {0x000D, "CV",      "W",       0x443A6CDE, 0x00000000},
    {0x000D, "W",       "kW",      0x3A83126F, 0x00000000},
    {0x000D, "W",       "HP",      0x3AB23547, 0x00000000},
    {0x000D, "W",       "CV",      0x3AAFC52A, 0x00000000},
    {0x0B8E, "bar",     "psi",     0x41680F91, 0x00000000},
    {0x0B8E, "bar",     "kPa",     0x42C80000, 0x00000000},
    {0x0B8E, "psi",     "bar",     0x3D8D3452, 0x00000000},
    {0x0B8E, "psi",     "kPa",     0x40DCA1C0, 0x00000000},
    {0x0B8E, "kPa",     "bar",     0x3C23D70A, 0x00000000},
    {0x0B8E, "kPa",     "psi",     0x3E1484D8, 0x00000000},
    {0x020E, "bar",     "psi",     0x41680F91, 0x00000000},
    {0x020E, "psi",     "bar",     0x3D8D3452, 0x00000000},
    {0x000E, "bar",     "psi",     0x41680F91, 0x00000000},
    {0x000E, "bar",     "kPa",     0x42C80000, 0x00000000},
    {0x000E, "bar",     "mbar",    0x447A0000, 0x00000000},
    {0x000E, "bar",     "inHg",    0x41EC3DA5, 0x00000000},
    {0x000E, "psi",     "bar",     0x3D8D3452, 0x00000000},
    {0x000E, "psi",     "kPa",     0x40DCA1C0, 0x00000000},
    {0x000E, "psi",     "mbar",    0x4289E518, 0x00000000},
    {0x000E, "psi",     "inHg",    0x40024E3C, 0x00000000},
    {0x000E, "kPa",     "bar",     0x3C23D70A, 0x00000000},
    {0x000E, "kPa",     "psi",     0x3E1484D8, 0x00000000},
    {0x000E, "kPa",     "mbar",    0x41200000, 0x00000000},
    {0x000E, "kPa",     "inHg",    0x3E9731B1, 0x00000000},
    {0x000E, "mbar",    "bar",     0x3A83126F, 0x00000000},
    {0x000E, "mbar",    "psi",     0x3C6DA159, 0x00000000},
    {0x000E, "mbar",    "kPa",     0x3DCCCCCD, 0x00000000},
    {0x000E, "mbar",    "inHg",    0x3CF1E91C, 0x00000000},
    {0x000E, "inHg",    "bar",     0x3D0AB4B8, 0x00000000},
    {0x000E, "inHg",    "psi",     0x3EFB786C, 0x00000000},
    {0x000E, "inHg",    "kPa",     0x4058BA5F, 0x00000000},
    {0x000E, "inHg",    "mbar",    0x4207747C, 0x00000000},
    {0x0010, "km/h",    "mph",     0x3F1F122B, 0x00000000},
    {0x0010, "mph",     "km/h",    0x3FCDFF01, 0x00000000},
    {0x0011, "C",       "F",       0x3FE66666, 0x42000000},
    {0x0011, "F",       "C",       0x3F0E38E4, 0xC18E38E4},
    {0x1B12, "s",       "ms",      0x447A0000, 0x00000000},
    {0x1B12, "s",       "min",     0x3C88889A, 0x00000000},
    {0x1B12, "s",       "h",       0x3991A2BB, 0x00000000},
    {0x1B12, "ms",      "s",       0x3A83126F, 0x00000000},
    {0x1B12, "ms",      "min",     0x378BCF77, 0x00000000},
    {0x1B12, "ms",      "h",       0x34952184, 0x00000000},
    {0x1B12, "min",     "s",       0x426FFFE1, 0x00000000},
    {0x1B12, "min",     "ms",      0x476A5FE2, 0x00000000},
    {0x1B12, "min",     "h",       0x3C88887E, 0x00000000},
    {0x1B12, "h",       "s",       0x4560FFF5, 0x00000000},
    {0x1B12, "h",       "ms",      0x4A5BB9F5, 0x00000000},
    {0x1B12, "h",       "min",     0x42700013, 0x00000000},
    {0x0012, "ms",      "s",       0x3A83126F, 0x00000000},
    {0x0012, "ms",      "min",     0x378BCF77, 0x00000000},
    {0x0012, "ms",      "us",      0x447A0000, 0x00000000},
    {0x0012, "ms",      "h",       0x34952185, 0x00000000},
    {0x0012, "s",       "ms",      0x4479FFFF, 0x00000000},
    {0x0012, "s",       "min",     0x3C88889A, 0x00000000},
    {0x0012, "s",       "us",      0x497423FF, 0x00000000},
    {0x0012, "s",       "h",       0x3991A2BB, 0x00000000},
    {0x0012, "min",     "ms",      0x476A5FE2, 0x00000000},
    {0x0012, "min",     "s",       0x426FFFE2, 0x00000000},
    {0x0012, "min",     "us",      0x4C64E1A2, 0x00000000},
    {0x0012, "min",     "h",       0x3C88887E, 0x00000000},
    {0x0012, "us",      "ms",      0x3A83126F, 0x00000000},
    {0x0012, "us",      "s",       0x358637BD, 0x00000000},
    {0x0012, "us",      "min",     0x328F2A76, 0x00000000},
    {0x0012, "us",      "h",       0x2F98B5C8, 0x00000000},
    {0x0012, "h",       "ms",      0x4A5BB9F4, 0x00000000},
    {0x0012, "h",       "s",       0x4560FFF4, 0x00000000},
    {0x0012, "h",       "min",     0x42700012, 0x00000000},
    {0x0012, "h",       "us",      0x4F569398, 0x00000000},
    {0x0014, "km/h",    "mph",     0x3F1F122B, 0x00000000},
    {0x0014, "km/h",    "m/s",     0x3E8E38EB, 0x00000000},
    {0x0014, "km/h",    "ft/s",    0x3F694DD7, 0x00000000},
    {0x0014, "km/h",    "cm/s",    0x41DE38EF, 0x00000000},
    {0x0014, "km/h",    "m/min",   0x41855567, 0x00000000},
    {0x0014, "km/h",    "min/km",  0x3C88893B, 0x00000000},
    {0x0014, "mph",     "km/h",    0x3FCDFF01, 0x00000000},
    {0x0014, "mph",     "m/s",     0x3EE4E27F, 0x00000000},
    {0x0014, "mph",     "ft/s",    0x3FBBBBBA, 0x00000000},
    {0x0014, "mph",     "cm/s",    0x4232D0F3, 0x00000000},
    {0x0014, "mph",     "m/min",   0x41D69468, 0x00000000},
    {0x0014, "mph",     "min/km",  0x3CDBBBCB, 0x00000000},
    {0x0014, "m/s",     "km/h",    0x4066665A, 0x00000000},
    {0x0014, "m/s",     "mph",     0x400F29EC, 0x00000000},
    {0x0014, "m/s",     "ft/s",    0x4051F937, 0x00000000},
    {0x0014, "m/s",     "cm/s",    0x42C80000, 0x00000000},
    {0x0014, "m/s",     "m/min",   0x42700013, 0x00000000},
    {0x0014, "m/s",     "min/km",  0x3D75C3C4, 0x00000000},
    {0x0014, "ft/s",    "km/h",    0x3F8C73B0, 0x00000000},
    {0x0014, "ft/s",    "mph",     0x3F2E8BA4, 0x00000000},
    {0x0014, "ft/s",    "m/s",     0x3E9C0ECC, 0x00000000},
    {0x0014, "ft/s",    "cm/s",    0x41F3D71E, 0x00000000},
    {0x0014, "ft/s",    "m/min",   0x41924DEB, 0x00000000},
    {0x0014, "ft/s",    "min/km",  0x3C95D180, 0x00000000},
    {0x0014, "cm/s",    "km/h",    0x3D1374B5, 0x00000000},
    {0x0014, "cm/s",    "mph",     0x3CB73FE7, 0x00000000},
    {0x0014, "cm/s",    "m/s",     0x3C23D70A, 0x00000000},
    {0x0014, "cm/s",    "ft/s",    0x3D06620F, 0x00000000},
    {0x0014, "cm/s",    "m/min",   0x3F1999A6, 0x00000000},
    {0x0014, "cm/s",    "min/km",  0x3A1D4A17, 0x00000000},
    {0x0014, "m/min",   "km/h",    0x3D75C26F, 0x00000000},
    {0x0014, "m/min",   "mph",     0x3D18B534, 0x00000000},
    {0x0014, "m/min",   "m/s",     0x3C88887E, 0x00000000},
    {0x0014, "m/min",   "ft/s",    0x3D5FF8B1, 0x00000000},
    {0x0014, "m/min",   "cm/s",    0x3FD55544, 0x00000000},
    {0x0014, "m/min",   "min/km",  0x3A831309, 0x00000000},
    {0x0014, "min/km",  "km/h",    0x426FFEC6, 0x00000000},
    {0x0014, "min/km",  "mph",     0x42152045, 0x00000000},
    {0x0014, "min/km",  "m/s",     0x418554AE, 0x00000000},
    {0x0014, "min/km",  "ft/s",    0x425AB7DC, 0x00000000},
    {0x0014, "min/km",  "cm/s",    0x44D05450, 0x00000000},
    {0x0014, "min/km",  "m/min",   0x4479FEDA, 0x00000000},
    {0x0015, "mV",      "V",       0x3A83126F, 0x00000000},
    {0x0015, "V",       "mV",      0x4479FFFF, 0x00000000},
    {0x0596, "l",       "gal",     0x3E87418D, 0x00000000},
    {0x0596, "gal",     "l",       0x40724434, 0x00000000},
    {0x0018, "l/s",     "gal/s",   0x3E87418D, 0x00000000},
    {0x0018, "l/s",     "l/h",     0x45610000, 0x00000000},
    {0x0018, "l/s",     "gal/h",   0x446DC13B, 0x00000000},
    {0x0018, "gal/s",   "l/s",     0x40724434, 0x00000000},
    {0x0018, "gal/s",   "l/h",     0x4654EDF1, 0x00000000},
    {0x0018, "gal/s",   "gal/h",   0x45610001, 0x00000000},
    {0x0018, "l/h",     "l/s",     0x3991A2B4, 0x00000000},
    {0x0018, "l/h",     "gal/s",   0x3899E42F, 0x00000000},
    {0x0018, "l/h",     "gal/h",   0x3E87418E, 0x00000000},
    {0x0018, "gal/h",   "l/s",     0x3A89D29A, 0x00000000},
    {0x0018, "gal/h",   "gal/s",   0x3991A2B3, 0x00000000},
    {0x0018, "gal/h",   "l/h",     0x40724432, 0x00000000},
};
// clang-format on

TEST(ConversionBetweenUnits, HasTheBitsOfSinglePrecisionForEveryPair) {
    for (const Coppia& coppia : coppie) {
        const s_converter_data dati = kelFunGetConvDatas(coppia.fid, coppia.da, coppia.a);
        SCOPED_TRACE(descrivi(coppia.fid) + " from " + coppia.da + " to " + coppia.a);
        EXPECT_EQ(bit(dati.gain), coppia.bit_gain) << "gain " << esa(bit(dati.gain));
        EXPECT_EQ(bit(dati.offset), coppia.bit_offset) << "offset " << esa(bit(dati.offset));
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
                const modello::RigaUdm& attesa = modello::rigaConversione(fid, udm).dati();
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
