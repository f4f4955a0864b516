// The quantity table.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <set>

#include "tables/aiuti.h"
#include "tables/attesi_grandezze.h"
#include "tables/attesi_udm.h"
#include "tables/attesi_varianti.h"

namespace {

using attesi::esa;

constexpr std::size_t kFine = 65;

TEST(QuantityTable, HasSixtySixRowsWithTheEndRow) {
    EXPECT_EQ(std::size(uib_grandezza_fisica_uiv), 66u);
    EXPECT_EQ(std::size(attesi::grandezze_uiv), kFine);
}

TEST(QuantityTable, HoldsEveryCell) {
    for (std::size_t i = 0; i < kFine; ++i) {
        const attesi::Grandezza& attesa = attesi::grandezze_uiv[i];
        const s_grandezza_fisica_uiv& riga = uib_grandezza_fisica_uiv[i];
        SCOPED_TRACE(attesi::riga("uib_grandezza_fisica_uiv", i) + ", key " + esa(attesa.chiave) + " " + attesa.testo);
        EXPECT_EQ(riga.chiave, attesa.chiave) << "key " << esa(riga.chiave);
        EXPECT_EQ(riga.chiave & 0x7F, attesa.grandezza);
        EXPECT_EQ(riga.chiave >> 7, attesa.oggetto);
        EXPECT_STREQ(riga.breve, attesa.breve);
        EXPECT_STREQ(riga.testo, attesa.testo);
        EXPECT_EQ(riga.num_udm, attesa.num_udm);
        EXPECT_EQ(riga.udm, attesa.udm) << "units must be " << attesa.nome_udm;
        EXPECT_EQ(riga.num_varianti, attesa.num_varianti);
        EXPECT_EQ(riga.varianti, attesa.varianti) << "variants must be \"" << attesa.nome_varianti << '"';
    }
}

TEST(QuantityTable, EndsWithTheEndRow) {
    const s_grandezza_fisica_uiv& fine = uib_grandezza_fisica_uiv[kFine];
    EXPECT_EQ(fine.chiave, 0x1D20u) << esa(fine.chiave);
    EXPECT_STREQ(fine.breve, "");
    EXPECT_STREQ(fine.testo, "");
    EXPECT_EQ(fine.num_udm, 0);
    EXPECT_EQ(fine.udm, nullptr);
    EXPECT_EQ(fine.num_varianti, 0);
    EXPECT_EQ(fine.varianti, nullptr);
}

TEST(QuantityTable, HasTheEndMarkerNowhereElse) {
    for (std::size_t i = 0; i < kFine; ++i) {
        const kel_funpos chiave = uib_grandezza_fisica_uiv[i].chiave;
        EXPECT_FALSE((chiave & 0x7F) == 32 && (chiave >> 7 & 0xFF) == 58) << "row " << i << ", key " << esa(chiave);
        EXPECT_LT(chiave & 0x7F, 32u) << "row " << i << ", key " << esa(chiave);
    }
}

TEST(QuantityTable, KeysAreQuantityAndObjectAndUnique) {
    std::set<kel_funpos> chiavi;
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        EXPECT_EQ(riga.chiave & ~0x7FFFu, 0u) << esa(riga.chiave);
        EXPECT_TRUE(chiavi.insert(riga.chiave).second) << esa(riga.chiave) << " stands twice";
    }
}

TEST(QuantityTable, PutsParticularObjectsBeforeTheGenericRow) {
    std::set<unsigned> generiche;
    for (std::size_t i = 0; i < kFine; ++i) {
        const kel_funpos chiave = uib_grandezza_fisica_uiv[i].chiave;
        EXPECT_EQ(generiche.count(chiave & 0x7F), 0u)
            << "row " << i << ", key " << esa(chiave) << " comes after its quantity's generic row";
        if ((chiave & 0x7F80) == 0)
            generiche.insert(chiave & 0x7F);
    }
    // Undefined (0) and custom (28) quantities have no units.
    for (unsigned grandezza = 0; grandezza < 32; ++grandezza)
        EXPECT_EQ(generiche.count(grandezza), grandezza == 0 || grandezza == 28 ? 0u : 1u) << "quantity " << grandezza;
}

TEST(QuantityTable, CountsTheUnitsOfItsTables) {
    for (std::size_t i = 0; i < kFine; ++i) {
        const s_grandezza_fisica_uiv& riga = uib_grandezza_fisica_uiv[i];
        bool trovata = false;
        for (const attesi::TabellaUdm& tabella : attesi::tabelle_udm)
            if (tabella.tabella == riga.udm) {
                trovata = true;
                EXPECT_EQ(static_cast<std::size_t>(riga.num_udm), tabella.righe) << esa(riga.chiave);
            }
        EXPECT_TRUE(trovata) << "row " << i << ", key " << esa(riga.chiave) << " points at no unit table";
    }
}

TEST(QuantityTable, CountsTheRecordsOfItsVariants) {
    for (std::size_t i = 0; i < kFine; ++i) {
        const s_grandezza_fisica_uiv& riga = uib_grandezza_fisica_uiv[i];
        int record = 0;
        for (const attesi::Variante& variante : attesi::varianti)
            if (variante.record == riga.varianti)
                ++record;
        EXPECT_EQ(riga.num_varianti, record) << esa(riga.chiave);
    }
}

TEST(QuantityTable, LeavesLongDistanceAndFallbackUnitsUnused) {
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        EXPECT_NE(riga.udm, km_udm_associate) << esa(riga.chiave);
        EXPECT_NE(riga.udm, NULL_udm_associate) << esa(riga.chiave);
    }
}

}  // namespace
