// The tables of functions that the on-board camera can show.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <set>
#include <span>
#include <string>

#include "tables/aiuti.h"
#include "tables/attesi_camera.h"

namespace {

using attesi::bit;
using attesi::descrivi;

void confronta(const char* nome, std::span<const t_SFunzioneZumikoCam> tabella,
               std::span<const attesi::Zumiko> attese) {
    ASSERT_EQ(tabella.size(), attese.size());
    for (std::size_t i = 0; i < tabella.size(); ++i) {
        SCOPED_TRACE(attesi::riga(nome, i) + ", " + descrivi(attese[i].fid) + " " + attese[i].testo);
        EXPECT_EQ(tabella[i].fid, attese[i].fid) << descrivi(tabella[i].fid);
        EXPECT_STREQ(tabella[i].udm, attese[i].udm);
        EXPECT_EQ(bit(tabella[i].scala), attese[i].bit_scala) << tabella[i].scala << " instead of " << attese[i].scala;
        EXPECT_EQ(bit(tabella[i].scala), bit(attese[i].scala));
        EXPECT_EQ(tabella[i].codice, attese[i].codice) << attesi::esa(static_cast<std::uint32_t>(tabella[i].codice));
        EXPECT_EQ(bit(tabella[i].fattore), attese[i].bit_fattore)
            << tabella[i].fattore << " instead of " << attese[i].fattore;
        EXPECT_EQ(bit(tabella[i].fattore), bit(attese[i].fattore));
        EXPECT_STREQ(tabella[i].breve, attese[i].breve);
        EXPECT_STREQ(tabella[i].testo, attese[i].testo);
        EXPECT_STREQ(tabella[i].id, attese[i].id);
        EXPECT_EQ(tabella[i].tipo_campione, attese[i].tipo_campione);
    }
}

TEST(BasicCameraTable, HoldsEveryCell) {
    ASSERT_EQ(std::size(funz_ZumikoCam_base), 20u);
    confronta("funz_ZumikoCam_base", funz_ZumikoCam_base, attesi::zumiko_base);
}

TEST(ExtendedCameraTable, HoldsEveryCell) {
    ASSERT_EQ(std::size(funz_ZumikoCam_estese), 23u);
    confronta("funz_ZumikoCam_estese", funz_ZumikoCam_estese, attesi::zumiko_estese);
}

TEST(CameraTables, ReportTheirSizesWithTheEndRows) {
    EXPECT_EQ(getFunzVisSize(), 20u);
    EXPECT_EQ(getFunzVisEstSize(), 23u);
    EXPECT_EQ(getFunzVisSize(), 20u) << "second call";
    EXPECT_EQ(getFunzVisEstSize(), 23u) << "second call";
}

// Quantity 32, object 58, position 23: one past the last value of each field.
TEST(CameraTables, EndWithTheEndMarkerAndHaveItNowhereElse) {
    for (const std::span<const t_SFunzioneZumikoCam> tabella :
         {std::span<const t_SFunzioneZumikoCam>(funz_ZumikoCam_base),
          std::span<const t_SFunzioneZumikoCam>(funz_ZumikoCam_estese)}) {
        for (const t_SFunzioneZumikoCam& riga : tabella.first(tabella.size() - 1))
            EXPECT_NE(riga.fid & 0x7F, 0x20u) << descrivi(riga.fid);
        const kel_funpos fine = tabella.back().fid;
        EXPECT_EQ(fine & 0x7F, 0x20u);
        EXPECT_EQ(fine >> 7 & 0xFF, 0x3Au);
        EXPECT_EQ(fine >> 15 & 0x1F, 23u);
        EXPECT_EQ(fine >> 20, 0u);
    }
}

TEST(CameraTables, ShareNoIdentifierCodeOrName) {
    std::set<kel_funpos> fid;
    std::set<int> codici;
    std::set<std::string> id;
    for (const std::span<const t_SFunzioneZumikoCam> tabella :
         {std::span<const t_SFunzioneZumikoCam>(funz_ZumikoCam_base).first(19),
          std::span<const t_SFunzioneZumikoCam>(funz_ZumikoCam_estese).first(22)})
        for (const t_SFunzioneZumikoCam& riga : tabella) {
            EXPECT_TRUE(fid.insert(riga.fid).second) << descrivi(riga.fid) << " stands twice";
            EXPECT_TRUE(id.insert(riga.id).second) << riga.id << " stands twice";
            if (riga.codice != -1) {
                EXPECT_TRUE(codici.insert(riga.codice).second) << "parameter code " << riga.codice << " stands twice";
            }
            EXPECT_LE(std::strlen(riga.breve), 4u) << riga.breve;
        }
}

TEST(CameraTables, FloatsAreTheNearestSingles) {
    EXPECT_EQ(bit(funz_ZumikoCam_estese[20].scala), 0x3C23D70Au) << "0.01";
    EXPECT_EQ(bit(funz_ZumikoCam_estese[3].fattore), 0x40666666u) << "3.6";
}

// The order is the one that the camera shows.
TEST(ExtendedCameraTable, IsNotInOrderOfCode) {
    EXPECT_EQ(funz_ZumikoCam_estese[11].codice, 0xE012);
    EXPECT_EQ(funz_ZumikoCam_estese[12].codice, 0xE013);
    EXPECT_EQ(funz_ZumikoCam_estese[13].codice, 0xE00F);
    EXPECT_EQ(funz_ZumikoCam_estese[21].codice, -1);
}

}  // namespace
