// How the numbers of a solution are shown.
#include "captures/vista_gps.h"

#include <gtest/gtest.h>

namespace {

using namespace kel::strumento;

// At the equator where the first meridian meets it, on the ground.
Soluzione equatore(const VelocitaLocale& velocita) {
    Soluzione s;
    s.fix = 3;
    s.luogo = Geodetica{0, 0, 0};
    s.velocita = velocita;
    return s;
}

TEST(VistaGps, ShownNumbersHaveNoMinusZeroAndNoHeadingOf360) {
    const Soluzione s = equatore({-1e-6, 10, -0.0001});
    EXPECT_EQ(cella_gps(s, CampoGps::rotta, 1, 3).per_persone(), "0.00");
    EXPECT_EQ(cella_gps(s, CampoGps::salita, 1, 3).per_persone(), "0.000");
    EXPECT_EQ(cella_gps(s, CampoGps::velocita, 3.6, 1).per_persone(), "36.0");
    EXPECT_EQ(cella_gps(s, CampoGps::latitudine, 1, 3).per_persone(), "0.00000000");
}

TEST(VistaGps, StandingStillShowsNoHeading) {
    EXPECT_EQ(cella_gps(equatore({0, 0, -1}), CampoGps::rotta, 1, 3).per_persone(), "-");
}

}  // namespace
