// Legacy textual identifiers.
#include <CFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <memory>
#include <string>

#include "model/tabelle.h"
#include "tables/aiuti.h"

namespace {

using attesi::esa;

TEST(LegacyIdentifier, OfEveryCameraRowGivesTheRowAndItsFunction) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (std::size_t i = 0; i < 19; ++i) {
        const modello::RigaCamera& attesa = modello::tabelle().camera_base[i];
        SCOPED_TRACE(attesa.id);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaID(attesa.id.c_str()), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID(attesa.id), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(catalogo->getFidDaID(attesa.id), attesa.fid) << esa(attesa.fid);
        EXPECT_EQ(kelFunGetFidDaID(attesa.id.c_str()), 0u) << "the camera tables are not searched here";
    }
    for (std::size_t i = 0; i < 22; ++i) {
        const modello::RigaCamera& attesa = modello::tabelle().camera_estese[i];
        SCOPED_TRACE(attesa.id);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaID(attesa.id.c_str()), &funz_ZumikoCam_estese[i]);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID(attesa.id), &funz_ZumikoCam_estese[i]);
        EXPECT_EQ(catalogo->getFidDaID(attesa.id), attesa.fid) << esa(attesa.fid);
    }
}

TEST(LegacyIdentifier, OfEveryLegacyRowGivesItsFunction) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (std::size_t i = 0; i < 19; ++i) {
        const modello::RigaVecchia& attesa = modello::tabelle().funz_kel[i];
        SCOPED_TRACE(attesa.id);
        EXPECT_EQ(kelFunGetFidDaID(attesa.id.c_str()), attesa.fid) << esa(attesa.fid);
        EXPECT_EQ(catalogo->getFidDaID(attesa.id), attesa.fid) << esa(attesa.fid);
        // The rolling time is a camera row too.
        const t_SFunzioneZumikoCam* riga = i == 17 ? &funz_ZumikoCam_estese[21] : nullptr;
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaID(attesa.id.c_str()), riga);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID(attesa.id), riga);
    }
}

TEST(LegacyIdentifier, IsSearchedInTheCameraTablesFirst) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFidDaID("WATER_TEMP"), 0x00001091u) << "basic camera function";
    EXPECT_EQ(catalogo->getFidDaID("FG_RUNNING_LAP_TIME"), 0x00001712u) << "extended camera function";
    EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID("FG_RUNNING_LAP_TIME"), &funz_ZumikoCam_estese[21]);
    EXPECT_EQ(catalogo->getFidDaID("FG_GEAR_BOX_TEMP"), 0x00048611u) << "legacy table";
}

TEST(LegacyIdentifier, ThatIsEmptyFindsTheBasicEndRow) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(kelFunGetFunVecchiaZumikoDaID(""), &funz_ZumikoCam_base[19]);
    EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID(""), &funz_ZumikoCam_base[19]);
    EXPECT_EQ(catalogo->getFidDaID(""), 0x000B9D20u);
    EXPECT_EQ(kelFunGetFidDaID(""), 0u) << "the legacy table's end row takes no part";
}

TEST(LegacyIdentifier, ThatIsNullIsUnknown) {
    EXPECT_EQ(kelFunGetFidDaID(nullptr), 0u);
}

TEST(LegacyIdentifier, IsComparedWholeAndCaseSensitive) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    for (const char* id : {"water_temp", "REF_SPEED_R", "WATER_TEMP ", " WATER_TEMP", "WATER_TEM", "fg_gear_box_temp",
                           "FG_GEAR_BOX_TEMPS", "NO_SUCH_FUNCTION"}) {
        SCOPED_TRACE(id);
        EXPECT_EQ(catalogo->getFidDaID(id), 0u);
        EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID(id), nullptr);
        EXPECT_EQ(kelFunGetFunVecchiaZumikoDaID(id), nullptr);
        EXPECT_EQ(kelFunGetFidDaID(id), 0u);
    }
    EXPECT_EQ(catalogo->getFunVecchiaZumikoDaID("REF_SPEED"), &funz_ZumikoCam_base[1]);
    EXPECT_EQ(catalogo->getFidDaID("REF_SPEED_RL"), 0x03070010u);
}

// The catalogue hands the text to the flat searches, which read it up to its NUL.
TEST(LegacyIdentifier, IsReadUpToItsNul) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFidDaID(std::string("WATER_TEMP\0X", 12)), 0x00001091u);
    EXPECT_EQ(catalogo->getFidDaID(std::string("FG_GEAR_BOX_TEMP\0X", 18)), 0x00048611u);
}

TEST(LegacyRow, OfAFunctionIsNullForTheLegacyTable) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFunVecchiaZumikoDaFID(0x00048611), nullptr);
}

// A catalogue that knows more camera functions than the tables.
class ConRigaPropria : public CFunzioni {
public:
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaID(const std::string& id) override {
        ultimo = id;
        return id == "FG_GEAR_BOX_TEMP" || id == "MY_FUNCTION" ? &riga : CFunzioni::getFunVecchiaZumikoDaID(id);
    }
    t_SFunzioneZumikoCam riga = {0x0ABCDE10, "u", 1.0f, 1, 1.0f, "s", "l", "i", 0};
    std::string ultimo;
};

TEST(DerivedCatalogue, ChangesTheSearchOfItsFunctions) {
    ConRigaPropria catalogo;
    IFunzioni& faccia = catalogo;
    EXPECT_EQ(faccia.getFidDaID("MY_FUNCTION"), 0x0ABCDE10u);
    EXPECT_EQ(catalogo.ultimo, "MY_FUNCTION");
    EXPECT_EQ(faccia.getFidDaID("FG_GEAR_BOX_TEMP"), 0x0ABCDE10u) << "before the legacy table";
    EXPECT_EQ(faccia.getFidDaID("WATER_TEMP"), 0x00001091u);
    EXPECT_EQ(faccia.getFidDaID("DSG"), 0x0040060Bu) << "still the legacy table";
    EXPECT_EQ(faccia.getFidDaID("NO_SUCH_FUNCTION"), 0u);
}

// Hides every camera row.
class SenzaCamera : public CFunzioni {
public:
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaID(const std::string&) override { return nullptr; }
};

TEST(DerivedCatalogue, WithoutCameraRowsFindsLegacyRowsOnly) {
    SenzaCamera catalogo;
    EXPECT_EQ(catalogo.getFidDaID("WATER_TEMP"), 0u);
    EXPECT_EQ(catalogo.getFidDaID(""), 0u);
    EXPECT_EQ(catalogo.getFidDaID("FG_RUNNING_LAP_TIME"), 0x00001712u) << "from the legacy table";
}

}  // namespace
