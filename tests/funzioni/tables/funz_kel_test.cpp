// The legacy identifiers that are not rows of the camera tables.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <set>
#include <string>

#include "tables/aiuti.h"
#include "tables/attesi_camera.h"

namespace {

using attesi::descrivi;

TEST(LegacyTable, HoldsEveryCell) {
    ASSERT_EQ(std::size(funz_Kel), 20u);
    ASSERT_EQ(std::size(attesi::vecchie), 20u);
    for (std::size_t i = 0; i < std::size(funz_Kel); ++i) {
        const attesi::Vecchia& attesa = attesi::vecchie[i];
        SCOPED_TRACE(attesi::riga("funz_Kel", i) + " \"" + attesa.id + "\"");
        EXPECT_STREQ(funz_Kel[i].breve, attesa.breve);
        EXPECT_STREQ(funz_Kel[i].testo, attesa.testo);
        EXPECT_STREQ(funz_Kel[i].id, attesa.id);
        EXPECT_EQ(funz_Kel[i].fid, attesa.fid) << descrivi(funz_Kel[i].fid);
    }
}

TEST(LegacyTable, EndsWithTheEndMarkerAndHasItNowhereElse) {
    EXPECT_EQ(funz_Kel[19].fid, 0x000B9D20u);
    for (std::size_t i = 0; i < 19; ++i)
        EXPECT_FALSE((funz_Kel[i].fid & 0x7F) == 0x20 && (funz_Kel[i].fid >> 7 & 0xFF) == 0x3A) << "row " << i;
}

TEST(LegacyTable, NamesEachFunctionOnce) {
    std::set<std::string> id;
    std::set<kel_funpos> fid;
    for (const t_SFunzioneVecchia& riga : funz_Kel) {
        EXPECT_TRUE(id.insert(riga.id).second) << riga.id << " stands twice";
        EXPECT_TRUE(fid.insert(riga.fid).second) << descrivi(riga.fid) << " stands twice";
        EXPECT_LE(std::strlen(riga.breve), 4u) << riga.breve;
    }
}

// The rolling time is in both vocabularies, as the same function.
TEST(LegacyTable, RepeatsOnlyTheRollingTimeOfTheCamera) {
    for (const t_SFunzioneVecchia& vecchia : funz_Kel)
        for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_estese)
            if (*vecchia.id != '\0' && std::strcmp(vecchia.id, riga.id) == 0) {
                EXPECT_STREQ(vecchia.id, "FG_RUNNING_LAP_TIME");
                EXPECT_EQ(vecchia.fid, riga.fid);
                EXPECT_EQ(vecchia.fid, 0x00001712u);
            }
    EXPECT_STREQ(funz_Kel[17].id, funz_ZumikoCam_estese[21].id);
}

// No field of a table identifier is out of its range, and bits 29 to 31 are never used.
TEST(TableIdentifiers, DecodeToKnownFields) {
    std::set<kel_funpos> tutti;
    for (std::size_t i = 0; i < 19; ++i) {
        tutti.insert(funz_Kel[i].fid);
        tutti.insert(funz_ZumikoCam_base[i].fid);
    }
    for (std::size_t i = 0; i < 22; ++i)
        tutti.insert(funz_ZumikoCam_estese[i].fid);
    for (std::size_t i = 0; i < 65; ++i)
        tutti.insert(uib_grandezza_fisica_uiv[i].chiave);
    for (const kel_funpos fid : tutti) {
        EXPECT_LT(fid & 0x7F, 32u) << descrivi(fid);
        EXPECT_LT(fid >> 7 & 0xFF, 58u) << descrivi(fid);
        EXPECT_LT(fid >> 15 & 0x1F, 23u) << descrivi(fid);
        EXPECT_EQ(fid & 0xE0000000u, 0u) << descrivi(fid);
    }
}

}  // namespace
