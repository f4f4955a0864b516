// The largest number that a width shows, and the smallest that it does not: rounding decides.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

std::string mostra(float valore, unsigned larghezza, unsigned decimali) {
    const s_kel_canale canale = Canale(kFid, KEL_TIPO_FLOAT);
    s_kel_converter conv{};
    conv.larghezza = larghezza;
    conv.decimali = decimali;
    kelConvInit(&conv, &canale, kFid, &kIdentita, 0, 0, 1);
    return Leggi(conv, LeFloat(valore)).testo;
}

TEST(NumericText, OfAWidthEndsWhereRoundingAddsAFigure) {
    float limite = 9.5f;  // rounds to 10
    for (unsigned larghezza = 1; larghezza <= 6; ++larghezza) {
        const std::string nove(larghezza, '9');
        const std::string trattini(larghezza, '-');
        EXPECT_EQ(mostra(std::nextafterf(limite, 0.0f), larghezza, 0), nove) << larghezza;
        EXPECT_EQ(mostra(limite, larghezza, 0), trattini) << larghezza << " places, " << limite;
        EXPECT_EQ(mostra(-limite, larghezza + 1, 0), trattini + "-") << larghezza << " places behind a minus";
        limite = limite * 10.0f + 4.5f;
    }
    // From 2^23 on a float has no halves: a number shows as itself.
    EXPECT_EQ(mostra(9999998.0f, 7, 0), "9999998");
    EXPECT_EQ(mostra(9999999.0f, 7, 0), "9999999");
    EXPECT_EQ(mostra(10000000.0f, 7, 0), "-------");
    EXPECT_EQ(mostra(99999992.0f, 8, 0), "99999992");
    EXPECT_EQ(mostra(100000000.0f, 8, 0), "--------");
}

TEST(NumericText, OfNoWidthHasOnlyThePlaceOfThePoint) {
    EXPECT_EQ(mostra(7.0f, 0, 0), "");
    EXPECT_EQ(mostra(7.0f, 0, 1), "0") << "no dash, no digit, and the place filled up";
}

}  // namespace
