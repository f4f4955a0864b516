// From an identifier to its camera row and parameters.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <memory>
#include <set>
#include <string>

#include "model/tabelle.h"
#include "tables/aiuti.h"

namespace {

using attesi::bit;
using attesi::descrivi;

TEST(CameraRow, IsFoundForEveryIdentifierOfTheTables) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (std::size_t i = 0; i < 19; ++i) {
        const kel_funpos fid = modello::tabelle().camera_base[i].fid;
        SCOPED_TRACE(attesi::riga("basic", i) + ", " + descrivi(fid));
        EXPECT_EQ(kelFunGetParamZumikoCam(fid), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaFID(fid), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(catalogo->getParamZumikoCam(fid), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaFID(fid), &funz_ZumikoCam_base[i]);
    }
    for (std::size_t i = 0; i < 22; ++i) {
        const kel_funpos fid = modello::tabelle().camera_estese[i].fid;
        SCOPED_TRACE(attesi::riga("extended", i) + ", " + descrivi(fid));
        EXPECT_EQ(kelFunGetParamZumikoCam(fid), &funz_ZumikoCam_estese[i]);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaFID(fid), &funz_ZumikoCam_estese[i]);
        EXPECT_EQ(catalogo->getParamZumikoCam(fid), &funz_ZumikoCam_estese[i]);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaFID(fid), &funz_ZumikoCam_estese[i]);
    }
}

TEST(CameraRow, OfTheRollingTimeIsFoundThoughNeverShown) {
    EXPECT_EQ(kelFunGetParamZumikoCam(0x00001712), &funz_ZumikoCam_estese[21]);
}

TEST(CameraRow, OfTheLatitudeIsTheFirstExtendedOne) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFunVecchiaZumikoDaFID(0x00068A07), &funz_ZumikoCam_estese[0]);
}

TEST(CameraRow, OfTheEndMarkerIsTheBasicEndRow) {
    EXPECT_EQ(kelFunGetParamZumikoCam(0x000B9D20), &funz_ZumikoCam_base[19]);
    EXPECT_EQ(kelFunGetFunVecchiaZumikoDaFID(0x000B9D20), &funz_ZumikoCam_base[19]);
    EXPECT_EQ(kelFunGetParamZumikoCam(0x00001D20), nullptr) << "the end marker of the quantity table";
}

TEST(CameraRow, ComparesAllThirtyTwoBits) {
    EXPECT_EQ(kelFunGetParamZumikoCam(0x00000010), &funz_ZumikoCam_base[1]);
    for (unsigned b = 0; b < 32; ++b) {
        const kel_funpos fid = 0x00000010u ^ (1u << b);
        EXPECT_NE(kelFunGetParamZumikoCam(fid), &funz_ZumikoCam_base[1]) << descrivi(fid);
    }
    EXPECT_EQ(kelFunGetParamZumikoCam(0x80000010), nullptr);
}

TEST(CameraRow, IsNullForOtherIdentifiers) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (const kel_funpos fid : {0x00000000u, 0x00048611u, 0x00070010u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(descrivi(fid));
        EXPECT_EQ(kelFunGetParamZumikoCam(fid), nullptr);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaFID(fid), nullptr);
        EXPECT_EQ(catalogo->getParamZumikoCam(fid), nullptr);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaFID(fid), nullptr);
    }
}

TEST(EveryQuantityObjectAndPosition, HasACameraRowOnlyWhenATableHasIt) {
    std::set<kel_funpos> tabelle;
    for (const modello::RigaCamera& riga : modello::tabelle().camera_base)
        tabelle.insert(riga.fid);
    for (const modello::RigaCamera& riga : modello::tabelle().camera_estese)
        tabelle.insert(riga.fid);
    EXPECT_EQ(tabelle.size(), 19u + 22u + 1u);
    std::size_t trovate = 0;
    for (kel_funpos fid = 0; fid < 0x00100000; ++fid) {
        const t_SFunzioneZumikoCam* riga = kelFunGetParamZumikoCam(fid);
        ASSERT_EQ(riga != nullptr, tabelle.count(fid) == 1) << descrivi(fid);
        if (riga != nullptr) {
            ASSERT_EQ(riga->fid, fid) << descrivi(fid);
            ++trovate;
        }
    }
    EXPECT_EQ(trovate, tabelle.size());
}

struct Parametri {
    int codice = 4711;
    float scala = -2.5f;
    std::string udm = "old unit";
};

TEST(CameraParameters, OfTheVideoTimeAreStored) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Parametri p;
    EXPECT_TRUE(catalogo->FunGetParamZumikoCam(0x00001012, p.codice, p.scala, p.udm));
    EXPECT_EQ(p.codice, 0xB00F);
    EXPECT_EQ(p.codice, 45071);
    EXPECT_EQ(bit(p.scala), 0x3C23D70Au) << p.scala;
    EXPECT_EQ(p.udm, "cs");
}

TEST(CameraParameters, OfEveryRowAreStored) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const auto prova = [&](const modello::RigaCamera& riga) {
        SCOPED_TRACE(descrivi(riga.fid) + " " + riga.testo);
        Parametri p;
        EXPECT_TRUE(catalogo->FunGetParamZumikoCam(static_cast<int>(riga.fid), p.codice, p.scala, p.udm));
        EXPECT_EQ(p.codice, riga.codice);
        EXPECT_EQ(bit(p.scala), bit(riga.scala));
        EXPECT_EQ(p.udm, riga.udm.empty() ? "old unit" : riga.udm);
    };
    for (const modello::RigaCamera& riga : modello::tabelle().camera_base)
        prova(riga);
    for (const modello::RigaCamera& riga : modello::tabelle().camera_estese)
        prova(riga);
}

TEST(CameraParameters, OfTheRollingTimeHaveNoCode) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Parametri p;
    EXPECT_TRUE(catalogo->FunGetParamZumikoCam(0x00001712, p.codice, p.scala, p.udm));
    EXPECT_EQ(p.codice, -1);
    EXPECT_EQ(p.udm, "#");
}

TEST(CameraParameters, OfTheEndMarkerLeaveTheUnitAlone) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Parametri p;
    EXPECT_TRUE(catalogo->FunGetParamZumikoCam(0x000B9D20, p.codice, p.scala, p.udm));
    EXPECT_EQ(p.codice, -1);
    EXPECT_EQ(bit(p.scala), bit(1.0f));
    EXPECT_EQ(p.udm, "old unit");
}

TEST(CameraParameters, OfAnUnknownIdentifierLeaveEverythingAlone) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (const kel_funpos fid : {0x00000000u, 0x00048611u, 0x80000010u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(descrivi(fid));
        Parametri p;
        EXPECT_FALSE(catalogo->FunGetParamZumikoCam(static_cast<int>(fid), p.codice, p.scala, p.udm));
        EXPECT_EQ(p.codice, 4711);
        EXPECT_EQ(bit(p.scala), bit(-2.5f));
        EXPECT_EQ(p.udm, "old unit");
    }
}

}  // namespace
