// The functions that a configuration program offers, and the choices of each.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/tabelle.h"
#include "tables/aiuti.h"

namespace {

using attesi::descrivi;
using attesi::esa;

using Funzioni = std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>;
using Scelte = std::map<unsigned, std::string>;
using Voci = std::vector<std::pair<kel_funpos, std::string>>;

Funzioni funzioni(std::vector<unsigned> filtro) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::vector<unsigned> copia = filtro;
    Funzioni risultato;
    risultato[FID_PHI_CUSTOM].push_back({0x1C, "must go"});
    catalogo->getFunzioni(risultato, filtro);
    EXPECT_EQ(filtro, copia) << "the filter is only read";
    return risultato;
}

// All entries, quantity after quantity.
Voci voci(const Funzioni& funzioni) {
    Voci tutte;
    for (const auto& [grandezza, lista] : funzioni)
        for (const SFunzionePerGF& funzione : lista) {
            EXPECT_EQ(funzione.funpos & 0x7F, static_cast<unsigned>(grandezza)) << descrivi(funzione.funpos);
            tutte.emplace_back(funzione.funpos, funzione.nome);
        }
    return tutte;
}

struct Offerta {
    unsigned grandezza;
    kel_funpos fid;
    const char* nome;
};

// What is offered without a filter, in table order.
// clang-format off
constexpr Offerta offerte[] = {
    {1,  0x00000281, "Pct Brake Load"},
    {1,  0x00000401, "Pct Engine Load"},
    {1,  0x00000E81, "Pct Throttle Load"},
    {1,  0x00000001, "Percent"},
    {2,  0x00000282, "Rate Brake Load"},
    {2,  0x00000402, "Rate Engine Load"},
    {2,  0x00000E82, "Rate Thrtle Load"},
    {2,  0x00000002, "Rate"},
    {3,  0x00001103, "Inline Accel"},
    {3,  0x00001183, "Lateral Accel"},
    {3,  0x00001203, "Vertical Accel"},
    {3,  0x00001283, "GSum"},
    {3,  0x00000003, "Acceleration"},
    {4,  0x00000004, "Angle"},
    {5,  0x00001105, "Roll Rate"},
    {5,  0x00001185, "Pitch Rate"},
    {5,  0x00001205, "Yaw Rate"},
    {5,  0x00000005, "Ang Velocity"},
    {6,  0x00000606, "Gear"},
    {6,  0x00000506, "Error Code"},
    {6,  0x00000006, "Code"},
    {11, 0x0000090B, "Lambda Diagn"},
    {7,  0x00000A07, "Latitude"},
    {7,  0x00000A87, "Longitude"},
    {7,  0x00000107, "Altitude"},
    {7,  0x00000007, "Coordinate"},
    {8,  0x00000008, "Distance"},
    {9,  0x00000009, "Frequency"},
    {10, 0x0000008A, "Air Mass Flow"},
    {10, 0x0000000A, "Mass Flow"},
    {11, 0x0000000B, "Number"},
    {12, 0x0000000C, "Position"},
    {13, 0x0000000D, "Power"},
    {14, 0x00000B8E, "Oil Pressure"},
    {14, 0x0001820E, "Brake Press"},
    {14, 0x0007020E, "Wheel Brk Pr"},
    {14, 0x0000000E, "Pressure"},
    {15, 0x0000000F, "RPM"},
    {16, 0x00068010, "Vehicle Spd"},
    {16, 0x00070010, "Wheel Spd"},
    {17, 0x00000011, "Temperature"},
    {18, 0x00000992, "Lap Time"},
    {18, 0x00031B12, "Engine Off Time"},
    {18, 0x00001712, "Time"},
    {18, 0x00001392, "Time"},
    {18, 0x00001B92, "Time"},
    {18, 0x00001C12, "Time"},
    {18, 0x00001C92, "Time"},
    {18, 0x00000012, "Time"},
    {19, 0x00000013, "Torque"},
    {20, 0x00058014, "Susp Velocity"},
    {21, 0x00000195, "Battery Voltage"},
    {21, 0x00000015, "Voltage"},
    {22, 0x00000596, "Fuel Level"},
    {22, 0x00000016, "Volume"},
    {23, 0x00000017, "Volume in lap"},
    {24, 0x00000018, "Volume Flow"},
    {25, 0x00000019, "Date"},
    {26, 0x0000001A, "Pckg"},
    {27, 0x0000001B, "Current"},
    {29, 0x0000001D, "RPM on sec"},
    {30, 0x0000049E, "Lambda"},
    {30, 0x0000091E, "Lambda"},
    {30, 0x00040C9E, "Lambda"},
    {30, 0x0000001E, "Lambda"},
    {31, 0x0000061F, "Gear"},
    {31, 0x0000001F, "Generic Gear"},
};
// clang-format on

TEST(FunctionList, WithoutFilterOffersEveryFunctionInTableOrder) {
    std::map<unsigned, Voci> attese;
    for (const Offerta& offerta : offerte)
        attese[offerta.grandezza].emplace_back(offerta.fid, offerta.nome);
    const Funzioni trovate = funzioni({});
    EXPECT_EQ(trovate.size(), attese.size());
    for (const auto& [grandezza, lista] : attese) {
        SCOPED_TRACE(descrivi(grandezza));
        const auto trovata = trovate.find(static_cast<GRANDEZZA_FISICA_FUNZKEL>(grandezza));
        ASSERT_NE(trovata, trovate.end());
        ASSERT_EQ(trovata->second.size(), lista.size());
        std::size_t i = 0;
        for (const SFunzionePerGF& funzione : trovata->second) {
            EXPECT_EQ(funzione.funpos, lista[i].first)
                << "entry " << i << ": " << descrivi(funzione.funpos) << " instead of " << descrivi(lista[i].first);
            EXPECT_EQ(funzione.nome, lista[i].second) << "entry " << i;
            ++i;
        }
    }
}

TEST(FunctionList, HasNoUndefinedAndNoCustomQuantity) {
    const Funzioni trovate = funzioni({});
    EXPECT_EQ(trovate.count(FID_PHI_UNDEFINED), 0u);
    EXPECT_EQ(trovate.count(FID_PHI_CUSTOM), 0u) << "the list is emptied first";
    EXPECT_EQ(trovate.size(), 30u);
}

TEST(FunctionList, OfSpeedOffersItsVariantsInPlaceOfItself) {
    EXPECT_EQ(voci(funzioni({0x10})), (Voci{{0x00068010, "Vehicle Spd"}, {0x00070010, "Wheel Spd"}}));
}

TEST(FunctionFilter, OfAQuantityKeepsAllItsRows) {
    EXPECT_EQ(voci(funzioni({0x11})), (Voci{{0x00000011, "Temperature"}}));
    EXPECT_EQ(voci(funzioni({0x0E})), (Voci{{0x00000B8E, "Oil Pressure"},
                                            {0x0001820E, "Brake Press"},
                                            {0x0007020E, "Wheel Brk Pr"},
                                            {0x0000000E, "Pressure"}}));
}

TEST(FunctionFilter, OfAnObjectKeepsItsRowOnly) {
    EXPECT_EQ(voci(funzioni({0x0B8E})), (Voci{{0x00000B8E, "Oil Pressure"}}));
    EXPECT_EQ(voci(funzioni({0x020E})), (Voci{{0x0001820E, "Brake Press"}, {0x0007020E, "Wheel Brk Pr"}}));
    EXPECT_EQ(voci(funzioni({0x1B12})), (Voci{{0x00031B12, "Engine Off Time"}}));
}

// Water has no row among the temperatures, and the generic row is not its own.
TEST(FunctionFilter, OfAnObjectWithoutRowKeepsNothing) {
    EXPECT_TRUE(funzioni({0x1091}).empty());
    EXPECT_TRUE(funzioni({0x1090}).empty());
}

TEST(FunctionFilter, LooksAtQuantityAndObjectOnly) {
    EXPECT_EQ(voci(funzioni({0xFFFF8000 | 0x0B8E})), (Voci{{0x00000B8E, "Oil Pressure"}}));
    EXPECT_EQ(voci(funzioni({0xFFFF8000 | 0x11})), (Voci{{0x00000011, "Temperature"}}));
}

TEST(FunctionFilter, OfSeveralElementsKeepsEachRowOnce) {
    EXPECT_EQ(voci(funzioni({0x11, 0x0B8E, 0x11, 0x0B8E})),
              (Voci{{0x00000B8E, "Oil Pressure"}, {0x00000011, "Temperature"}}));
    EXPECT_EQ(voci(funzioni({0x1183, 0x1103})), (Voci{{0x00001103, "Inline Accel"}, {0x00001183, "Lateral Accel"}}))
        << "in table order, not in the filter's";
}

TEST(FunctionFilter, OfQuantitiesWithoutRowsKeepsNothing) {
    for (const unsigned f : {0x00u, 0x1Cu, 0x20u, 0x1D20u, 0x7Fu, 0x0B80u})
        EXPECT_TRUE(funzioni({f}).empty()) << esa(f);
}

TEST(QuantityTexts, AreAllInTheMap) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> mappa;
    catalogo->RiempiMapGrandezzaFisica(mappa);
    ASSERT_EQ(mappa.size(), 32u);
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("grandezza_fisica_FunzKel"))
        EXPECT_EQ(mappa[static_cast<GRANDEZZA_FISICA_FUNZKEL>(riga.valore)], riga.testo) << riga.xml;
    EXPECT_EQ(mappa[FID_PHI_UNDEFINED], "");
    EXPECT_EQ(mappa[FID_PHI_SPEED], "Speed");
}

TEST(QuantityTexts, KeepWhatTheMapHolds) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> mappa{{FID_PHI_SPEED, "mine"},
                                                          {static_cast<GRANDEZZA_FISICA_FUNZKEL>(99), "other"}};
    catalogo->RiempiMapGrandezzaFisica(mappa);
    EXPECT_EQ(mappa.size(), 33u);
    EXPECT_EQ(mappa[FID_PHI_SPEED], "mine");
    EXPECT_EQ(mappa[static_cast<GRANDEZZA_FISICA_FUNZKEL>(99)], "other");
    EXPECT_EQ(mappa[FID_PHI_GEAR], "gear");
}

// The answer of getFunzDettagli, into containers and numbers that hold something beforehand.
struct Dettagli {
    explicit Dettagli(kel_funpos fid) {
        const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
        catalogo->getFunzDettagli(fid, lati, inout, primo, ultimo);
    }
    Scelte lati{{77, "old"}};
    Scelte inout{{78, "old"}};
    int primo = 4711;
    int ultimo = 4712;
};

TEST(FunctionChoices, OfAWheelSpeedAreTheSixSides) {
    const Dettagli d(0x00070010);
    EXPECT_EQ(d.lati, (Scelte{{0x02000000, "Rear"},
                              {0x02800000, "Rear Right"},
                              {0x03000000, "Rear Left"},
                              {0x04000000, "Front"},
                              {0x04800000, "Front Right"},
                              {0x05000000, "Front Left"}}));
    EXPECT_EQ(d.inout, Scelte{});
    EXPECT_EQ(d.primo, -1);
    EXPECT_EQ(d.ultimo, -1);
}

// Unlike the names, the choices of the generic row hold for every object.
TEST(FunctionChoices, OfAWheelSpeedOfAnyObjectAreTheSixSides) {
    EXPECT_EQ(Dettagli(0x00071090).lati.size(), 6u);
    EXPECT_EQ(Dettagli(0x00077F90).lati.size(), 6u);
    EXPECT_EQ(Dettagli(0xFFF70010).lati.size(), 6u) << "sides and numbers do not matter";
}

TEST(FunctionChoices, OfAVehicleSpeedAreNone) {
    const Dettagli d(0x00068010);
    EXPECT_EQ(d.lati, Scelte{});
    EXPECT_EQ(d.inout, Scelte{});
    EXPECT_EQ(d.primo, -1) << "the variant is there";
    EXPECT_EQ(d.ultimo, -1);
}

TEST(FunctionChoices, OfAnExhaustLambdaAreInOutAndTwelveNumbers) {
    const Dettagli d(0x00040C9E);
    EXPECT_EQ(d.lati, Scelte{});
    EXPECT_EQ(d.inout, (Scelte{{1, "Out"}, {2, "In"}}));
    EXPECT_EQ(d.primo, 1);
    EXPECT_EQ(d.ultimo, 12);
}

TEST(FunctionChoices, OfTheOtherVariantsAreNone) {
    for (const kel_funpos fid : {0x0001820Eu, 0x0007020Eu, 0x00058014u, 0x00031B12u}) {
        SCOPED_TRACE(descrivi(fid));
        const Dettagli d(fid);
        EXPECT_EQ(d.lati, Scelte{});
        EXPECT_EQ(d.inout, Scelte{});
        EXPECT_EQ(d.primo, -1);
        EXPECT_EQ(d.ultimo, -1);
    }
}

TEST(FunctionChoices, WithoutVariantLeaveTheNumbersAlone) {
    // No row; a row without variants; a row without a variant at this position.
    for (const kel_funpos fid : {0x0000001Cu, 0x00000000u, 0x00070011u, 0x00000010u, 0x00078010u, 0x00000C9Eu,
                                 0x00040C1Eu, 0x0007000Eu, 0x000B9D20u}) {
        SCOPED_TRACE(descrivi(fid));
        const Dettagli d(fid);
        EXPECT_EQ(d.lati, Scelte{}) << "emptied first";
        EXPECT_EQ(d.inout, Scelte{}) << "emptied first";
        EXPECT_EQ(d.primo, 4711);
        EXPECT_EQ(d.ultimo, 4712);
    }
}

TEST(EquivalentFunction, IsTheClassOfTheFunction) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFidEquivalente(0x00048611), 0x11u);
    EXPECT_EQ(catalogo->getFidEquivalente(0x00000B8E), 0x0B8Eu);
    EXPECT_EQ(catalogo->getFidEquivalente(0x0400020E), 0x020Eu);
    EXPECT_EQ(catalogo->getFidEquivalente(0x0000108E), 0x0Eu);
    EXPECT_EQ(catalogo->getFidEquivalente(0x03070010), 0x10u);
    EXPECT_EQ(catalogo->getFidEquivalente(0x0000098B), 0x0Bu);
    EXPECT_EQ(catalogo->getFidEquivalente(0x0000090B), 0x090Bu);
}

TEST(EquivalentFunction, IsZeroWithoutARow) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (const kel_funpos fid :
         {0x0000001Cu, 0x00001A1Cu, 0x00000000u, 0x00000B80u, 0x00000020u, 0x00001D20u, 0x000B9D20u, 0xFFFFFFFFu})
        EXPECT_EQ(catalogo->getFidEquivalente(fid), 0u) << descrivi(fid);
}

}  // namespace
