// The layout of the function identifier and the helpers that take it apart and compose it.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include "tables/aiuti.h"

namespace {

using attesi::esa;

TEST(Identifier, IsThirtyTwoBitsUnsigned) {
    EXPECT_EQ(sizeof(kel_funpos), 4u);
    EXPECT_GT(static_cast<kel_funpos>(-1), 0u);
}

TEST(Identifier, OfTheGearboxTemperatureDecodes) {
    EXPECT_EQ(kelFidGrandezza(0x00048611), 17u);
    EXPECT_EQ(kelFidOggetto(0x00048611), 12u);
    EXPECT_EQ(kelFidPosizione(0x00048611), 9u);
    EXPECT_EQ(kelFidInOut(0x00048611), 0u);
    EXPECT_EQ(kelFidNumerato(0x00048611), 0u);
    EXPECT_EQ(kelFidLeftRight(0x00048611), 0u);
    EXPECT_EQ(kelFidFrontRear(0x00048611), 0u);
    EXPECT_EQ(kelFidUpDown(0x00048611), 0u);
}

TEST(Identifier, OfTheVerticalAccelerationDecodes) {
    EXPECT_EQ(kelFidGrandezza(0x00001203), 3u);
    EXPECT_EQ(kelFidOggetto(0x00001203), 36u);
    EXPECT_EQ(kelFidPosizione(0x00001203), 0u);
}

TEST(Identifier, OfAGpsPacketHoldsDetailsAndSpecialisation) {
    EXPECT_EQ(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL), 0x0000019Au);
    EXPECT_EQ(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL), 0x0000819Au);
    EXPECT_EQ(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2Gv2), 0x0001009Au);
    EXPECT_EQ(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0), 0x0000011Au);
}

TEST(Identifier, ReadsTheSideBitsAsNumberOrSides) {
    EXPECT_EQ(kelFidNumerato(0x00C00000), 1u);
    EXPECT_EQ(kelFidNumero(0x00C00000), 1u);
    EXPECT_EQ(kelFidNumerato(0x00800000), 0u);
    EXPECT_EQ(kelFidLeftRight(0x00800000), 1u);
    EXPECT_EQ(kelFidFrontRear(0x04000000), 2u);
    EXPECT_EQ(kelFidUpDown(0x18000000), 3u);
    EXPECT_EQ(kelFidNumero(0x1F800000), 63u);
}

struct Campo {
    const char* nome;
    unsigned (*leggi)(kel_funpos);
    kel_funpos maschera;
    unsigned massimo;
};

// clang-format off
constexpr Campo CAMPI[] = {
    {"quantity",        kelFidGrandezza, 0x0000007F, 127},
    {"object",          kelFidOggetto,   0x00007F80, 255},
    {"position",        kelFidPosizione, 0x000F8000, 31},
    {"in/out",          kelFidInOut,     0x00300000, 3},
    {"numbered flag",   kelFidNumerato,  0x00400000, 1},
    {"instance number", kelFidNumero,    0x1F800000, 63},
    {"left/right",      kelFidLeftRight, 0x01800000, 3},
    {"front/rear",      kelFidFrontRear, 0x06000000, 3},
    {"up/down",         kelFidUpDown,    0x18000000, 3},
};
// clang-format on

TEST(IdentifierField, IsReadFromItsMaskAndNothingElse) {
    for (const Campo& campo : CAMPI) {
        EXPECT_EQ(campo.leggi(campo.maschera), campo.massimo) << campo.nome;
        EXPECT_EQ(campo.leggi(~campo.maschera), 0u) << campo.nome;
        EXPECT_EQ(campo.leggi(0xFFFFFFFF), campo.massimo) << campo.nome;
        for (unsigned valore = 0; valore <= campo.massimo; ++valore) {
            const kel_funpos fid = campo.maschera / campo.massimo * valore;
            EXPECT_EQ(campo.leggi(fid), valore) << campo.nome << " of " << esa(fid);
            EXPECT_EQ(campo.leggi(fid | ~campo.maschera), valore) << campo.nome << " of " << esa(fid);
        }
    }
}

TEST(Identifier, IsComposedFromItsFields) {
    EXPECT_EQ(kelFidComponi(17, 12, 9), 0x00048611u);
    EXPECT_EQ(kelFidComponi(16, 0, 14) | kelFidLati(2, 1, 0), 0x03070010u);
    EXPECT_EQ(kelFidComponi(11, 12, 0) | kelFidIstanza(0), 0x0040060Bu);
    EXPECT_EQ(kelFidComponi(1, 5, 3) | kelFidBitInOut(3), 0x00318281u);
    EXPECT_EQ(kelFidIstanza(63), 0x1FC00000u);
    EXPECT_EQ(kelFidLati(3, 3, 3), 0x1F800000u);
    EXPECT_EQ(kelFidComponi(32, 58, 23), 0x000B9D20u);
}

TEST(IdentifierFields, AreCutToTheirWidth) {
    EXPECT_EQ(kelFidComponi(0xFFFFFFFF, 0, 0), 0x0000007Fu);
    EXPECT_EQ(kelFidComponi(0, 0xFFFFFFFF, 0), 0x00007F80u);
    EXPECT_EQ(kelFidComponi(0, 0, 0xFFFFFFFF), 0x000F8000u);
    EXPECT_EQ(kelFidBitInOut(0xFFFFFFFF), 0x00300000u);
    EXPECT_EQ(kelFidLati(0xFFFFFFFF, 0, 0), 0x01800000u);
    EXPECT_EQ(kelFidIstanza(0xFFFFFFFF), 0x1FC00000u);
}

TEST(EndMarker, IsQuantityThirtyTwoAndObjectFiftyEight) {
    EXPECT_TRUE(kelFidFineTabella(0x000B9D20));
    EXPECT_TRUE(kelFidFineTabella(0x00001D20)) << "in the quantity table";
    EXPECT_TRUE(kelFidFineTabella(0xFFFF9D20)) << "the other bits do not matter";
    EXPECT_FALSE(kelFidFineTabella(0x00000020)) << "object 0";
    EXPECT_FALSE(kelFidFineTabella(0x00001D21)) << "quantity 33";
    EXPECT_FALSE(kelFidFineTabella(0x00001D00)) << "quantity 0";
    EXPECT_FALSE(kelFidFineTabella(0x00005D20)) << "object 186: the object field is eight bits wide";
    EXPECT_FALSE(kelFidFineTabella(0));
}

// A table that begins with its end row is a table without rows.
TEST(EndMarker, InTheFirstRowEndsAWalkAtOnce) {
    s_sottocampo tabella[2] = {};
    tabella[0].fid = 0x000B9D20;
    tabella[1].fid = 0x00000992;
    EXPECT_EQ(getDettagliSottocampo(tabella, 0x00000992), nullptr);
    EXPECT_EQ(getDettagliSottocampo(tabella, 0x000B9D20), nullptr);
    tabella[0].fid = 0x0000098B;
    EXPECT_EQ(getDettagliSottocampo(tabella, 0x00000992), &tabella[1]);
}

}  // namespace
