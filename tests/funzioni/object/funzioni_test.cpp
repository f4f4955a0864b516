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

#include "model/elenchi.h"
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

TEST(FunctionList, WithoutFilterOffersEveryFunctionInTableOrder) {
    Voci attese;
    for (const auto& [grandezza, lista] : modello::funzioni({}))
        attese.insert(attese.end(), lista.begin(), lista.end());
    EXPECT_EQ(attese.size(), 67u);
    EXPECT_EQ(voci(funzioni({})), attese);
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

// Whatever bits the quantity's own number has: 3 is odd.
TEST(FunctionFilter, OfAnOddQuantityKeepsTheRowsOfItsObjects) {
    EXPECT_EQ(voci(funzioni({FID_PHI_ACCELERATION})), (Voci{{0x00001103, "Inline Accel"},
                                                            {0x00001183, "Lateral Accel"},
                                                            {0x00001203, "Vertical Accel"},
                                                            {0x00001283, "GSum"},
                                                            {0x00000003, "Acceleration"}}));
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
