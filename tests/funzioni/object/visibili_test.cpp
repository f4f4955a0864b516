// The walks over the functions that the camera shows.
#include <CFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "model/tabelle.h"
#include "tables/aiuti.h"

namespace {

using attesi::esa;

using Riga = const t_SFunzioneZumikoCam*;

// Extended rows that the camera shows.
constexpr std::size_t RIGHE_VISIBILI[] = {0, 1, 2, 3, 4, 10, 13, 14, 20};

TEST(BasicWalk, GivesEveryRowThenNullForEver) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]);
    for (std::size_t i = 1; i < 19; ++i)
        EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[i]) << "row " << i;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), nullptr) << "call " << i << " after the end";
}

TEST(BasicWalk, WithoutAStartBeginsAtTheSecondRow) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[1]);
}

TEST(BasicWalk, WithChannelsBeginsAtTheSecondRowToo) {
    s_kel_canale canali[2] = {};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, 2));
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[1]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[1]);
}

TEST(BasicWalk, CanBeRestartedAnywhere) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    catalogo->getFirstFunzVisZumikoCam();
    catalogo->getNextFunzVisZumikoCam();
    catalogo->getNextFunzVisZumikoCam();
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[1]);
    while (catalogo->getNextFunzVisZumikoCam() != nullptr) {
    }
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]) << "after the end";
}

// Programs look for the exported names, which tell a const operation from one that is not.
TEST(CameraWalkParts, AreNotConst) {
    using Cursore = const t_SFunzioneZumikoCam* (CFunzioni::*)();
    EXPECT_TRUE((std::is_same_v<decltype(&CFunzioni::get_funz_vis_zumiko_cam), Cursore>));
    EXPECT_TRUE((std::is_same_v<decltype(&CFunzioni::get_funz_vis_zumiko_cam_estese), Cursore>));
    EXPECT_TRUE((std::is_same_v<decltype(&CFunzioni::is_est_valid), bool (CFunzioni::*)(int)>));
}

TEST(BasicCursor, StaysOnTheEndRow) {
    CFunzioni catalogo;
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam(), &funz_ZumikoCam_base[0]) << "at creation";
    catalogo.getFirstFunzVisZumikoCam();
    for (std::size_t i = 1; i < 19; ++i)
        catalogo.getNextFunzVisZumikoCam();
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam(), &funz_ZumikoCam_base[18]);
    EXPECT_EQ(catalogo.getNextFunzVisZumikoCam(), nullptr);
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam(), nullptr) << "the cursor must stand on row 19";
    EXPECT_EQ(catalogo.getNextFunzVisZumikoCam(), nullptr);
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam(), nullptr) << "the cursor must stay on row 19";
}

TEST(ExtendedWalk, GivesTheVisibleRowsThenNullForEver) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Riga riga = catalogo->getFirstFunzVisZumikoCamEstese();
    for (const std::size_t i : RIGHE_VISIBILI) {
        EXPECT_EQ(riga, &funz_ZumikoCam_estese[i]) << "row " << i;
        riga = catalogo->getNextFunzVisZumikoCamEstese();
    }
    EXPECT_EQ(riga, nullptr) << "after the video recording time";
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), nullptr) << "call " << i << " after the end";
}

TEST(ExtendedWalk, SkipsFromHeadingToLoggingOdometer) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<std::string> testi;
    for (Riga riga = catalogo->getFirstFunzVisZumikoCamEstese(); riga != nullptr;
         riga = catalogo->getNextFunzVisZumikoCamEstese())
        testi.push_back(riga->testo);
    EXPECT_EQ(testi, (std::vector<std::string>{"Latitude", "Longitude", "Altitude", "Vert Velocity", "Heading",
                                               "Logging Odometer", "Sat Number", "LML Distance", "Video Rec Time"}));
}

TEST(ExtendedWalk, WithoutAStartBeginsAtTheSecondRow) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[1]);
}

TEST(ExtendedWalk, CanBeRestartedAfterItsEnd) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    while (catalogo->getNextFunzVisZumikoCamEstese() != nullptr) {
    }
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[0]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[1]);
}

TEST(ExtendedCursor, StandsOnTheRowGivenAndRestsOnTheEndRow) {
    CFunzioni catalogo;
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam_estese(), &funz_ZumikoCam_estese[0]) << "at creation";
    catalogo.getFirstFunzVisZumikoCamEstese();
    for (std::size_t i = 1; i < std::size(RIGHE_VISIBILI); ++i) {
        catalogo.getNextFunzVisZumikoCamEstese();
        EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam_estese(), &funz_ZumikoCam_estese[RIGHE_VISIBILI[i]]);
    }
    EXPECT_EQ(catalogo.getNextFunzVisZumikoCamEstese(), nullptr);
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam_estese(), nullptr);
    EXPECT_EQ(catalogo.getNextFunzVisZumikoCamEstese(), nullptr);
    EXPECT_EQ(catalogo.get_funz_vis_zumiko_cam_estese(), nullptr);
}

TEST(Walks, DoNotMoveEachOther) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]);
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[0]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[1]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[2]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[1]);
    EXPECT_EQ(catalogo->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[2]);
}

TEST(TwoCatalogues, WalkOnTheirOwn) {
    const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe());
    const std::unique_ptr<IFunzioni> due(IFunzioni::CreateMe());
    uno->getFirstFunzVisZumikoCam();
    uno->getFirstFunzVisZumikoCamEstese();
    for (std::size_t i = 1; i < 10; ++i)
        EXPECT_EQ(uno->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[i]);
    EXPECT_EQ(due->getFirstFunzVisZumikoCam(), &funz_ZumikoCam_base[0]);
    EXPECT_EQ(due->getFirstFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[0]);
    for (std::size_t i = 1; i < 9; ++i) {
        EXPECT_EQ(uno->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[9 + i]);
        EXPECT_EQ(due->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[i]);
        EXPECT_EQ(uno->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[RIGHE_VISIBILI[i]]);
    }
    EXPECT_EQ(due->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[1]);
}

TEST(ExtendedVisibility, OfEveryRowIsAsTabled) {
    CFunzioni catalogo;
    std::size_t visibili = 0;
    for (const modello::RigaCamera& riga : modello::tabelle().camera_estese) {
        if (riga.visibile == "-")
            continue;  // the end row
        const bool atteso = riga.visibile == "si";
        EXPECT_EQ(catalogo.is_est_valid(riga.codice), atteso)
            << riga.testo << ", code " << esa(static_cast<std::uint32_t>(riga.codice));
        visibili += atteso;
    }
    EXPECT_EQ(visibili, std::size(RIGHE_VISIBILI));
}

TEST(ExtendedVisibility, HidesTheCodesOfClockOdometerAndPrediction) {
    CFunzioni catalogo;
    for (const int gruppo : {0xE000, 0xB000})
        for (int n = 0; n < 256; ++n) {
            const bool nascosto = n == 7 || n == 8 || n == 9 || n == 10 || n == 11 || n == 17 || n == 18 || n == 19;
            EXPECT_EQ(catalogo.is_est_valid(gruppo + n), !nascosto)
                << "code " << esa(static_cast<std::uint32_t>(gruppo + n));
        }
}

TEST(ExtendedVisibility, IsForTwoGroupsOfCodesOnly) {
    CFunzioni catalogo;
    for (int codice = 0; codice < 0x10000; ++codice) {
        const int gruppo = codice / 256;
        if (gruppo != 0xE0 && gruppo != 0xB0) {
            ASSERT_FALSE(catalogo.is_est_valid(codice)) << "code " << esa(static_cast<std::uint32_t>(codice));
        }
    }
    EXPECT_FALSE(catalogo.is_est_valid(-1)) << "a row without a code";
}

// Only the low 16 bits of a code say where it belongs.
TEST(ExtendedVisibility, LooksAtTheLowSixteenBits) {
    CFunzioni catalogo;
    EXPECT_TRUE(catalogo.is_est_valid(0x7FFFE001));
    EXPECT_FALSE(catalogo.is_est_valid(0x7FFFE007));
    EXPECT_TRUE(catalogo.is_est_valid(-0x2000 + 1)) << "0xFFFFE001";
    EXPECT_FALSE(catalogo.is_est_valid(-0x2000 + 7)) << "0xFFFFE007";
}

TEST(BasicSelection, AppendsTheNineteenRows) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<Riga> righe;
    catalogo->getAllFunzZumikoCamBasePerSw(righe);
    ASSERT_EQ(righe.size(), 19u);
    for (std::size_t i = 0; i < righe.size(); ++i)
        EXPECT_EQ(righe[i], &funz_ZumikoCam_base[i]) << "row " << i;
}

TEST(ExtendedSelection, AppendsTheTwentyTwoRowsHiddenOnesToo) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<Riga> righe;
    catalogo->getAllFunzZumikoCamEstesePerSw(righe);
    ASSERT_EQ(righe.size(), 22u);
    for (std::size_t i = 0; i < righe.size(); ++i)
        EXPECT_EQ(righe[i], &funz_ZumikoCam_estese[i]) << "row " << i;
}

TEST(Selections, KeepWhatTheVectorHolds) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const t_SFunzioneZumikoCam mia = {};
    std::vector<Riga> righe{&mia, nullptr, &mia};
    catalogo->getAllFunzZumikoCamEstesePerSw(righe);
    ASSERT_EQ(righe.size(), 25u);
    EXPECT_EQ(righe[0], &mia);
    EXPECT_EQ(righe[1], nullptr);
    EXPECT_EQ(righe[2], &mia);
    EXPECT_EQ(righe[3], &funz_ZumikoCam_estese[0]);
    EXPECT_EQ(righe[24], &funz_ZumikoCam_estese[21]);
    catalogo->getAllFunzZumikoCamBasePerSw(righe);
    ASSERT_EQ(righe.size(), 44u);
    EXPECT_EQ(righe[25], &funz_ZumikoCam_base[0]);
}

TEST(Selections, NeitherUseNorMoveTheWalks) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    catalogo->getNextFunzVisZumikoCam();
    catalogo->getNextFunzVisZumikoCamEstese();
    std::vector<Riga> righe;
    catalogo->getAllFunzZumikoCamBasePerSw(righe);
    catalogo->getAllFunzZumikoCamEstesePerSw(righe);
    EXPECT_EQ(righe.size(), 41u);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCam(), &funz_ZumikoCam_base[2]);
    EXPECT_EQ(catalogo->getNextFunzVisZumikoCamEstese(), &funz_ZumikoCam_estese[2]);
}

}  // namespace
