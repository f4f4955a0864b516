// Long and short names of functions.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "model/nomi.h"
#include "tables/aiuti.h"

namespace {

using attesi::descrivi;

std::string lungo(kel_funpos fid, bool tutti = false) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    return catalogo->getNomeFunzione(fid, tutti);
}

// The flat short name up to its NUL; the bytes behind must be NUL too.
std::string breve(kel_funpos fid) {
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(nullptr, fid);
    const std::string testo(nome.testo, strnlen(nome.testo, sizeof nome.testo));
    for (std::size_t i = testo.size(); i < sizeof nome.testo; ++i)
        EXPECT_EQ(nome.testo[i], '\0') << descrivi(fid) << ": byte " << i << " behind \"" << testo << '"';
    return testo;
}

struct Nome {
    kel_funpos fid;
    const char* nome;
    const char* perche;
};

void prova_lunghi(std::initializer_list<Nome> nomi, bool tutti = false) {
    for (const Nome& n : nomi)
        EXPECT_EQ(lungo(n.fid, tutti), n.nome) << descrivi(n.fid) << ": " << n.perche;
}

void prova_brevi(std::initializer_list<Nome> nomi) {
    for (const Nome& n : nomi)
        EXPECT_EQ(breve(n.fid), n.nome) << descrivi(n.fid) << ": " << n.perche;
}

TEST(LongName, OfEveryRowOfTheCameraAndLegacyTablesIsItsLongName) {
    const auto prova = [](const auto& tabella) {
        for (std::size_t i = 0; i + 1 < std::size(tabella); ++i)
            for (const bool tutti : {false, true})
                EXPECT_EQ(lungo(tabella[i].fid, tutti), tabella[i].testo) << descrivi(tabella[i].fid);
    };
    prova(funz_ZumikoCam_base);
    prova(funz_ZumikoCam_estese);
    prova(funz_Kel);
}

TEST(LongName, ComesFromTheFirstTableThatKnowsTheFunction) {
    prova_lunghi({
        {0x00000B8E, "Oil Pres", "camera before quantity table"},
        {0x00030B8E, "Oil Pressure", "camera rows are compared whole"},
        {0x0000020E, "Brake Pres", "camera before quantity table"},
        {0x0400020E, "Brake Pres Front", "legacy table before quantity table"},
        {0x00048611, "Gear Box Temp", "legacy table before quantity table"},
        {0x80048611, "Temperature", "legacy rows are compared whole"},
        {0x03070010, "Speed Wheel RL", "legacy table before the wheel speed's variant"},
        {0x00001712, "Rolling Time", "extended camera table"},
    });
}

TEST(LongName, OfASpeedShowsNoSides) {
    prova_lunghi({
        {0x00000010, "Speed", "camera row"},
        {0x02000010, "Speed", "generic row, rear"},
        {0x1FC00010, "Speed", "generic row, number 63"},
        {0x00078010, "Speed", "a position without variant"},
        {0x00070010, "Wheel Spd", "the wheel's variant"},
        {0x18070010, "Wheel Spd", "the wheel's variant, up and down"},
        {0x00068010, "Vehicle Spd", "the vehicle's variant"},
    });
}

// Variants belong to the row's own object.
TEST(LongName, OfASpeedOfAnObjectIsTheGenericLabelEvenAtTheWheel) {
    prova_lunghi({
        {0x00070610, "Speed", "gear speed at the wheel"},
        {0x00069090, "Speed", "water speed at the vehicle"},
        {0x00077F90, "Speed", "object 255"},
    });
}

TEST(LongName, OfAVariantIsItsText) {
    prova_lunghi({
        {0x0001820E, "Brake Press", "brake"},
        {0x0007020E, "Wheel Brk Pr", "wheel"},
        {0x0003020E, "Brake Press", "the row's label at other positions"},
        {0x00058014, "Susp Velocity", "suspension"},
        {0x00000014, "Velocity", "the row's label"},
        {0x00031B12, "Engine Off Time", "engine"},
        {0x00001B12, "Time", "the row's label"},
        {0x00040C9E, "Lambda", "exhaust"},
        {0x00000C9E, "AFR", "the row's label"},
    });
}

TEST(LongName, OfAnyPacketIsTheGenericPackets) {
    for (const bool tutti : {false, true})
        prova_lunghi(
            {
                {0x0000001A, "Pckg", "no details"},
                {0x0000019A, "Pckg", "GPS"},
                {0x0000819A, "Pckg", "NAV-SOL"},
                {0x0001009A, "Pckg", "lap times"},
                {0x1FFFFF9A, "Pckg", "everything set"},
            },
            tutti);
}

TEST(ComposedLongName, OfCustomFunctions) {
    prova_lunghi({
        {0x0000001C, "Custom", "quantity alone"},
        {0x00000B9C, "Custom Oil", "object"},
        {0x04800B9C, "Custom Oil RightFront", "sides stand together"},
        {0x00070B9C, "Custom Oil", "the position is never shown"},
        {0x0010001C, "Custom Out", "out"},
        {0x0020001C, "Custom In", "in"},
        {0x0030001C, "Custom Middle", "middle"},
        {0x0800001C, "Custom Down", "down"},
        {0x1F80001C, "Custom CenterxCenterzCenter", "all sides in the centre"},
        {0x1FB00B9C, "Custom Oil Middle CenterxCenterzCenter", "everything"},
        {0x05000B9C, "Custom Oil LeftFront", "left front"},
        {0x12000B9C, "Custom Oil RearUp", "no left or right"},
        {0xE000001C, "Custom", "unused bits"},
    });
}

TEST(ComposedLongName, WithAllFieldsKeepsTheBlanksOfEmptyOnes) {
    prova_lunghi(
        {
            {0x0000001C, "Custom", "trailing blanks go"},
            {0x04800B9C, "Custom Oil  RightFront", "no in/out"},
            {0x0480001C, "Custom   RightFront", "no object, no in/out"},
            {0x02C0001C, "Custom   5", "no object, no in/out"},
            {0x02D00B9C, "Custom Oil Out 5", "nothing empty"},
            {0x00801D1C, "Custom  Right", "an object out of range brings no blank"},
        },
        true);
}

TEST(ComposedLongName, WritesTheInstanceNumberInPlaceOfTheSides) {
    prova_lunghi({
        {0x02C0001C, "Custom 5", "five"},
        {0x0040001C, "Custom 0", "zero"},
        {0x03C0001C, "Custom 7", "seven"},
        {0x0640001C, "Custom 12", "twelve"},
        {0x1FC0001C, "Custom 63", "sixty-three"},
        {0x02E00B9C, "Custom Oil In 5", "after in/out"},
    });
}

TEST(ComposedLongName, OfAnUndefinedQuantityBeginsWithItsBlank) {
    prova_lunghi({
        {0x00000B80, " Oil", "the quantity's text is empty"},
        {0x00400000, " 0", "number zero"},
        {0x00000000, "  ", "nothing but blanks stays as it is"},
        {0x00001D00, "  ", "object 58 has no text"},
        {0x000F8000, "  ", "positions are not shown"},
    });
    EXPECT_EQ(lungo(0x00000000, true), "    ");
    EXPECT_EQ(lungo(0x00000B80, true), " Oil");
}

TEST(ComposedLongName, OfObjectsOutOfRangeHasNoObject) {
    prova_lunghi({
        {0x00001C9C, "Custom Predict +- RefT", "object 57, the last"},
        {0x00001D1C, "Custom", "object 58"},
        {0x00007F9C, "Custom", "object 255"},
        {0x00801D1C, "Custom Right", "object 58 with a side"},
    });
}

TEST(ComposedLongName, OfQuantitiesAboveTheLastHasNoLeadingBlank) {
    for (unsigned grandezza = 32; grandezza < 128; ++grandezza) {
        EXPECT_EQ(lungo(grandezza | 0x00000B80), "Oil") << "quantity " << grandezza;
        EXPECT_EQ(lungo(grandezza | 0x00000B80, true), "Oil") << "quantity " << grandezza;
        EXPECT_EQ(lungo(grandezza | 0x04800000), "RightFront") << "quantity " << grandezza;
        EXPECT_EQ(lungo(grandezza | 0x02C00000), "5") << "quantity " << grandezza;
        EXPECT_EQ(lungo(grandezza), " ") << "quantity " << grandezza << ": the sides' blank";
        EXPECT_EQ(lungo(grandezza, true), "   ") << "quantity " << grandezza;
    }
}

TEST(LongName, OfTheEndMarkerIsComposed) {
    prova_lunghi({
        {0x000B9D20, " ", "the walks stop before the end rows"},
        {0x00001D20, " ", "the walks stop before the end rows"},
        {0x00801D20, "Right", "a side of it"},
    });
}

TEST(ShortName, OfEveryCameraRowIsItsShortName) {
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_base)
        EXPECT_EQ(breve(riga.fid), riga.breve) << descrivi(riga.fid);
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_estese)
        EXPECT_EQ(breve(riga.fid), riga.breve) << descrivi(riga.fid);
}

TEST(ShortName, OfLegacyFunctionsIsComposed) {
    prova_brevi({
        {0x00048611, "TemperatureGear", "its long name is Gear Box Temp"},
        {0x02848611, "TemperatureGearRightRear", "with sides"},
        {0x0040060B, "NumberGear0", "DSG"},
        {0x0400020E, "PressureBrake FluidFront", "its long name is Brake Pres Front"},
        {0x00318281, "PercentBrake LoadMiddle", "its long name is Brake Balance"},
        {0x03070010, "SpeedLeftRear", "its long name is Speed Wheel RL"},
    });
}

TEST(ShortName, OfOtherFunctionsIsComposedOfDisplayTexts) {
    prova_brevi({
        {0x00000000, "", "nothing is given"},
        {0x0000001C, "Custom", "quantity alone"},
        {0x00070010, "Speed", "neither variants nor positions"},
        {0x04800B9C, "CustomOilRightFront", "no separators"},
        {0x00000B80, "Oil", "no quantity"},
        {0x00001D1C, "Custom", "object 58"},
        {0x1FB00B9C, "CustomOilMiddleCenterxCenterzCe", "cut at 31 characters"},
        {0x12000B9C, "CustomOilRearUp", "rear, up"},
        {0xE0000B9C, "CustomOil", "unused bits"},
        {0x80000010, "Speed", "camera rows are compared whole"},
    });
}

TEST(ShortName, OfPacketsShowsDetailsAndPosition) {
    prova_brevi({
        {0x0000001A, "Packet", "no details"},
        {0x0000019A, "PacketGPS", "GPS, specialisation 0"},
        {0x0000819A, "PacketGPSAdmission", "the text of position 1"},
        {0x0001009A, "PacketLapKel Device", "the text of position 2"},
        {0x0000011A, "PacketDate Time", "date and time"},
        {0x000B019A, "PacketGPSDifferential", "position 22, the last"},
        {0x000B819A, "PacketGPS", "position 23"},
        {0x0000021A, "Packet", "details 4"},
        {0x00007F9A, "Packet", "details 255"},
        {0x0010019A, "PacketGPSOut", "in/out"},
        {0x0340019A, "PacketGPS6", "number"},
    });
}

TEST(ShortName, WritesTheInstanceNumberInOneOrTwoDigits) {
    prova_brevi({
        {0x0040001C, "Custom0", "zero"},
        {0x03C0001C, "Custom7", "seven"},
        {0x04C0001C, "Custom9", "nine"},
        {0x0540001C, "Custom10", "ten"},
        {0x0640001C, "Custom12", "twelve"},
        {0x1FC0001C, "Custom63", "sixty-three"},
        {0x02E00B9C, "CustomOilIn5", "after in/out"},
    });
}

TEST(ShortName, OfQuantitiesAboveTheLastHasNoQuantity) {
    for (unsigned grandezza = 32; grandezza < 128; ++grandezza) {
        EXPECT_EQ(breve(grandezza | 0x00000B80), "Oil") << "quantity " << grandezza;
        EXPECT_EQ(breve(grandezza), "") << "quantity " << grandezza;
    }
}

TEST(ShortName, IsCutAtThirtyOneCharacters) {
    prova_brevi({
        {0x1FB01B97, "Volume on lapPredict +- BestTMi", "the longest texts together"},
        {0x00001B97, "Volume on lapPredict +- BestT", "29 characters"},
        {0x06401B97, "Volume on lapPredict +- BestT12", "31 characters, a number"},
        {0x00201B97, "Volume on lapPredict +- BestTIn", "31 characters"},
        {0x06601B97, "Volume on lapPredict +- BestTIn", "no room for the number"},
        {0x00101B97, "Volume on lapPredict +- BestTOu", "one too many"},
        {0x10001B97, "Volume on lapPredict +- BestTUp", "31 characters, a side"},
        {0x08001B97, "Volume on lapPredict +- BestTDo", "two too many"},
    });
    EXPECT_EQ(kelFunGetNomeFunzioneShort(nullptr, 0x1FB01B97).testo[31], '\0');
}

TEST(ShortName, DoesNotLookAtTheChannelSet) {
    s_kel_canale canali[2] = {};
    s_set_canali set;
    kelFunInit(&set, canali, 2, 2);
    for (const kel_funpos fid : {0x00000010u, 0x00048611u, 0x1FB01B97u}) {
        const s_nome_breve con = kelFunGetNomeFunzioneShort(&set, fid);
        const s_nome_breve senza = kelFunGetNomeFunzioneShort(nullptr, fid);
        EXPECT_EQ(std::memcmp(con.testo, senza.testo, 32), 0) << descrivi(fid);
    }
}

TEST(ShortNameOfTheCatalogue, EndsWithOneNul) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::string composto = catalogo->getNomeFunzioneShort(0x00048611);
    EXPECT_EQ(composto.size(), 16u);
    EXPECT_EQ(composto, std::string("TemperatureGear\0", 16));
    EXPECT_EQ(catalogo->getNomeFunzioneShort(0x00000010), std::string("Spd\0", 4)) << "camera row";
    EXPECT_EQ(catalogo->getNomeFunzioneShort(0x00000000), std::string("\0", 1)) << "no text at all";
    EXPECT_EQ(catalogo->getNomeFunzioneShort(0x000B9D20), std::string("\0", 1)) << "the camera's end row";
    EXPECT_EQ(catalogo->getNomeFunzioneShort(0x1FB01B97), std::string("Volume on lapPredict +- BestTMi\0", 32));
}

TEST(ShortNameOfTheCatalogue, IsTheSameWithChannels) {
    s_kel_canale canali[1] = {};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, 1));
    EXPECT_EQ(catalogo->getNomeFunzioneShort(0x00048611), std::string("TemperatureGear\0", 16));
}

class EveryName : public ::testing::Test {
protected:
    // Stops at the first difference: what is wrong for one is wrong for thousands.
    bool confronta(kel_funpos fid) {
        for (const bool tutti : {false, true}) {
            const std::string nome = catalogo_->getNomeFunzione(fid, tutti);
            if (nome != modello::nome_lungo(fid, tutti)) {
                ADD_FAILURE() << "long name of " << descrivi(fid) << (tutti ? ", all fields" : "") << " is \"" << nome
                              << "\" instead of \"" << modello::nome_lungo(fid, tutti) << '"';
                return false;
            }
        }
        std::string atteso = modello::nome_breve(fid);
        const s_nome_breve piatto = kelFunGetNomeFunzioneShort(nullptr, fid);
        char byte[32] = {};
        std::memcpy(byte, atteso.data(), atteso.size());
        if (std::memcmp(piatto.testo, byte, 32) != 0) {
            ADD_FAILURE() << "short name of " << descrivi(fid) << " is \"" << std::string(piatto.testo, 31)
                          << "\" instead of \"" << atteso << "\" and NUL to the end";
            return false;
        }
        atteso.push_back('\0');
        const std::string nome = catalogo_->getNomeFunzioneShort(fid);
        if (nome != atteso) {
            ADD_FAILURE() << "short name of " << descrivi(fid) << " from the catalogue has " << nome.size()
                          << " characters instead of " << atteso.size() << ": \"" << nome << '"';
            return false;
        }
        return true;
    }

    std::unique_ptr<IFunzioni> catalogo_{IFunzioni::CreateMe()};
};

TEST_F(EveryName, OfEveryQuantityAndObjectIsTheModels) {
    for (kel_funpos fid = 0; fid < 0x8000; ++fid)
        for (const kel_funpos altro : {0x00000000u, 0x04870000u, 0x12D00000u})
            if (!confronta(fid | altro))
                return;
}

TEST_F(EveryName, OfEveryPositionSideAndNumberIsTheModels) {
    // Oil pressure, speed, gear temperature, custom oil, nothing, packets, end marker, no quantity, the longest texts.
    for (const kel_funpos base : {0x0B8Eu, 0x0010u, 0x0611u, 0x0B9Cu, 0x0000u, 0x019Au, 0x1D20u, 0x0BA0u, 0x1B97u})
        for (kel_funpos alto = 0; alto < 0x4000; ++alto)
            if (!confronta(base | alto << 15))
                return;
}

TEST_F(EveryName, LooksAtNoUnusedBitOnceComposed) {
    for (const kel_funpos base : {0x00000B9Cu, 0x04800B9Cu, 0x0000001Cu, 0x00000000u, 0x00048611u, 0x00000010u})
        for (kel_funpos alto = 1; alto < 8; ++alto)
            if (!confronta(base | alto << 29))
                return;
}

TEST_F(EveryName, EndsWithABlankOnlyWhenItIsAllBlanks) {
    for (kel_funpos fid = 0; fid < 0x8000; ++fid)
        for (const bool tutti : {false, true}) {
            const std::string nome = catalogo_->getNomeFunzione(fid, tutti);
            ASSERT_FALSE(nome.empty()) << descrivi(fid);
            if (nome.back() == ' ') {
                ASSERT_EQ(nome.find_first_not_of(' '), std::string::npos) << descrivi(fid) << " \"" << nome << '"';
            }
        }
}

}  // namespace
