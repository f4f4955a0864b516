// Position variants and the choices that they offer.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include "tables/aiuti.h"
#include "tables/attesi_varianti.h"

namespace {

using attesi::esa;
using attesi::riga;

TEST(PositionVariants, HoldEveryCell) {
    for (const attesi::Variante& attesa : attesi::varianti) {
        SCOPED_TRACE(riga(attesa.tabella, static_cast<std::size_t>(attesa.riga)) + " \"" + attesa.testo + "\"");
        const s_variante_posizione& variante = attesa.record[attesa.riga];
        EXPECT_EQ(variante.posizione, attesa.posizione);
        EXPECT_STREQ(variante.breve, attesa.breve);
        EXPECT_STREQ(variante.testo, attesa.testo);
        EXPECT_EQ(variante.num_inout, attesa.num_inout);
        EXPECT_EQ(variante.inout, attesa.inout);
        EXPECT_EQ(variante.primo, attesa.primo);
        EXPECT_EQ(variante.ultimo, attesa.ultimo);
        EXPECT_EQ(variante.num_lati, attesa.num_lati);
        EXPECT_EQ(variante.lati, attesa.lati);
    }
}

TEST(PositionVariants, AreSeven) {
    EXPECT_EQ(std::size(attesi::varianti), 7u);
    EXPECT_EQ(std::size(z4_pres_brk), 2u);
    EXPECT_EQ(std::size(z4_velocity), 1u);
    EXPECT_EQ(std::size(z4_time_off), 1u);
    EXPECT_EQ(std::size(z4_num_lambda), 1u);
    EXPECT_EQ(std::size(z4_speed), 2u);
}

TEST(ChoiceLists, HoldEveryCell) {
    for (const attesi::Scelta& attesa : attesi::scelte) {
        SCOPED_TRACE(riga(attesa.tabella, static_cast<std::size_t>(attesa.riga)) + " \"" + attesa.testo + "\"");
        ASSERT_LT(static_cast<std::size_t>(attesa.riga), attesa.righe);
        const s_scelta_fid& scelta = attesa.record[attesa.riga];
        EXPECT_EQ(scelta.chiave, attesa.chiave) << esa(scelta.chiave);
        EXPECT_STREQ(scelta.breve, attesa.breve);
        EXPECT_STREQ(scelta.testo, attesa.testo);
    }
}

TEST(ChoiceLists, HaveTheirLengths) {
    EXPECT_EQ(std::size(ios_completo), 3u);
    EXPECT_EQ(std::size(ios_solo_inout), 2u);
    EXPECT_EQ(std::size(udfrlrs_solo_fr), 2u);
    EXPECT_EQ(std::size(udfrlrs_solo_frlr), 6u);
}

// Programs that store the choice depend on both numberings.
TEST(ChoiceLists, NumberInAndOutBothWays) {
    EXPECT_EQ(ios_completo[0].chiave, 1u);
    EXPECT_STREQ(ios_completo[0].testo, "In");
    EXPECT_EQ(ios_solo_inout[0].chiave, 1u);
    EXPECT_STREQ(ios_solo_inout[0].testo, "Out");
    EXPECT_STREQ(inout_FunzKel[1].testo, "Out");
}

}  // namespace
