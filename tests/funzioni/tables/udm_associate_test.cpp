// The unit tables.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <map>
#include <set>
#include <string>

#include "tables/aiuti.h"
#include "tables/attesi_udm.h"

namespace {

using attesi::bit;
using attesi::riga;

const attesi::TabellaUdm* tabella_di_nome(const char* nome) {
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
        if (std::strcmp(tabella.nome, nome) == 0)
            return &tabella;
    return nullptr;
}

TEST(UnitTables, AreFortyThree) {
    EXPECT_EQ(std::size(attesi::tabelle_udm), 43u);
}

TEST(UnitTables, HoldEveryCell) {
    for (const attesi::Udm& attesa : attesi::righe_udm) {
        SCOPED_TRACE(riga(attesa.tabella, static_cast<std::size_t>(attesa.riga)) + " \"" + attesa.udm + "\"");
        const attesi::TabellaUdm* tabella = tabella_di_nome(attesa.tabella);
        ASSERT_NE(tabella, nullptr);
        ASSERT_LT(static_cast<std::size_t>(attesa.riga), tabella->righe);
        const s_udm_associata& udm = tabella->tabella[attesa.riga];
        EXPECT_STREQ(udm.dati.udm, attesa.udm);
        EXPECT_EQ(bit(udm.dati.offset), bit(attesa.offset)) << udm.dati.offset << " instead of " << attesa.offset;
        EXPECT_EQ(bit(udm.dati.gain), attesa.bit_gain) << udm.dati.gain << " instead of " << attesa.gain;
        EXPECT_EQ(bit(udm.dati.gain), bit(attesa.gain)) << udm.dati.gain << " instead of " << attesa.gain;
        EXPECT_EQ(udm.dati.reciproco, attesa.reciproco);
        EXPECT_EQ(udm.decimali_default, attesa.decimali_default);
        EXPECT_EQ(udm.decimali_max, attesa.decimali_max);
        EXPECT_EQ(udm.decimali_min, attesa.decimali_min);
    }
}

TEST(UnitTables, HaveNoOtherRows) {
    std::map<std::string, std::size_t> attese;
    for (const attesi::Udm& attesa : attesi::righe_udm)
        ++attese[attesa.tabella];
    ASSERT_EQ(attese.size(), 43u);
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
        EXPECT_EQ(tabella.righe, attese[tabella.nome]) << tabella.nome;
}

// The batteries' millivolts and the positions' metres have no row of their own.
TEST(UnitTables, BeginWithTheBaseUnitButForBatteryAndPosition) {
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm) {
        SCOPED_TRACE(tabella.nome);
        EXPECT_EQ(bit(tabella.tabella[0].dati.offset), bit(0.0f));
        if (tabella.tabella == battery_udm_associate)
            EXPECT_EQ(bit(tabella.tabella[0].dati.gain), bit(0.001f));
        else if (tabella.tabella == pos_udm_associate)
            EXPECT_EQ(bit(tabella.tabella[0].dati.gain), bit(1000.0f));
        else
            EXPECT_EQ(bit(tabella.tabella[0].dati.gain), bit(1.0f));
    }
}

TEST(UnitTables, NameEachUnitOnce) {
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm) {
        std::set<std::string> unita;
        for (std::size_t i = 0; i < tabella.righe; ++i) {
            ASSERT_NE(tabella.tabella[i].dati.udm, nullptr) << riga(tabella.nome, i);
            EXPECT_TRUE(unita.insert(tabella.tabella[i].dati.udm).second)
                << riga(tabella.nome, i) << " repeats " << tabella.tabella[i].dati.udm;
        }
    }
}

TEST(UnitTables, KeepDecimalsInOrder) {
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
        for (std::size_t i = 0; i < tabella.righe; ++i) {
            SCOPED_TRACE(riga(tabella.nome, i));
            EXPECT_GE(tabella.tabella[i].decimali_min, 0);
            EXPECT_LE(tabella.tabella[i].decimali_min, tabella.tabella[i].decimali_default);
            EXPECT_LE(tabella.tabella[i].decimali_default, tabella.tabella[i].decimali_max);
        }
}

TEST(UnitTables, MarkOnlyThePaceAsReciprocal) {
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
        for (std::size_t i = 0; i < tabella.righe; ++i) {
            const bool passo = std::strcmp(tabella.tabella[i].dati.udm, "min/km") == 0;
            EXPECT_EQ(tabella.tabella[i].dati.reciproco, passo ? 1 : 0) << riga(tabella.nome, i);
        }
    EXPECT_STREQ(kmh_vel_udm_associate[6].dati.udm, "min/km");
}

TEST(UnitTables, DoNotShareMemory) {
    std::set<const s_udm_associata*> indirizzi;
    for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
        EXPECT_TRUE(indirizzi.insert(tabella.tabella).second) << tabella.nome;
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
    EXPECT_EQ(NULL_udm_associate[0].dati.reciproco, 0);
    EXPECT_EQ(NULL_udm_associate[0].decimali_default, 0);
    EXPECT_EQ(NULL_udm_associate[0].decimali_max, 0);
    EXPECT_EQ(NULL_udm_associate[0].decimali_min, 0);
}

}  // namespace
