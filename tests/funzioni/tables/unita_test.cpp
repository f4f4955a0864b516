// What the unit tables and the choices must be besides equal to their text files.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <bit>
#include <cstdint>
#include <set>

#include "comune/tabelle.h"

namespace {

std::uint32_t bit(float valore) {
    return std::bit_cast<std::uint32_t>(valore);
}

TEST(UnitTables, HoldTheSinglesNearestToTheirDecimals) {
    EXPECT_EQ(bit(kmh_udm_associate[1].dati.gain), 0x3F1F122Bu) << "0.621371";
    EXPECT_EQ(bit(ms_udm_associate[4].dati.gain), 0x34952185u) << "2.77778e-07";
    EXPECT_EQ(bit(funz_ZumikoCam_estese[20].scala), 0x3C23D70Au) << "0.01";
    EXPECT_EQ(bit(funz_ZumikoCam_estese[3].fattore), 0x40666666u) << "3.6";
}

TEST(UnitTables, DoNotShareMemory) {
    std::set<const s_udm_associata*> indirizzi;
    for (const auto& [nome, tabella] : kel_test::tabelle_unita())
        EXPECT_TRUE(indirizzi.insert(tabella.data()).second) << nome;
}

// A pointer to a row is handed out as a pointer to its conversion parameters.
TEST(UnitRow, BeginsWithItsConversionParameters) {
    EXPECT_EQ(static_cast<const void*>(&C_udm_associate[1]), static_cast<const void*>(&C_udm_associate[1].dati));
    EXPECT_EQ(sizeof(s_udm_associata), sizeof(s_converter_data) + (sizeof(void*) == 4 ? 12u : 16u));
}

TEST(FallbackUnit, HasNoTextAndChangesNothing) {
    EXPECT_STREQ(NULL_udm_associate[0].dati.udm, "");
    EXPECT_EQ(bit(NULL_udm_associate[0].dati.offset), 0x00000000u);
    EXPECT_EQ(bit(NULL_udm_associate[0].dati.gain), 0x3F800000u);
}

// Programs that store the choice depend on both numberings.
TEST(ChoiceLists, NumberInAndOutBothWays) {
    EXPECT_EQ(ios_completo[0].chiave, 1u);
    EXPECT_STREQ(ios_completo[0].testo, "In");
    EXPECT_EQ(ios_solo_inout[0].chiave, 1u);
    EXPECT_STREQ(ios_solo_inout[0].testo, "Out");
    EXPECT_STREQ(inout_FunzKel[1].testo, "Out");
}

TEST(CameraTables, ReportTheirSizesWithTheEndRows) {
    EXPECT_EQ(getFunzVisSize(), 20u);
    EXPECT_EQ(getFunzVisEstSize(), 23u);
}

}  // namespace
