// Places and velocities against published numbers and sums that can be done by hand.
#include "gps/wgs84.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace kel_registrazioni;

constexpr double SEMIASSE_MAGGIORE = 6378137.0;         // a of WGS 84, m
constexpr double SEMIASSE_MINORE = 6356752.3142451795;  // b of WGS 84, m

void uguali(const Geodetica& luogo, double latitudine, double longitudine, double altezza, double gradi = 1e-11,
            double metri = 1e-6) {
    EXPECT_NEAR(luogo.latitudine, latitudine, gradi);
    EXPECT_NEAR(luogo.longitudine, longitudine, gradi);
    EXPECT_NEAR(luogo.altezza, altezza, metri);
}

TEST(Wgs84, AxesOfTheEllipsoidAreTheEquatorAndThePoles) {
    uguali(geodetica(SEMIASSE_MAGGIORE, 0, 0), 0, 0, 0);
    uguali(geodetica(0, SEMIASSE_MAGGIORE + 100, 0), 0, 90, 100);
    uguali(geodetica(0, -SEMIASSE_MAGGIORE, 0), 0, -90, 0);
    uguali(geodetica(0, 0, SEMIASSE_MINORE), 90, 0, 0);
    uguali(geodetica(0, 0, -SEMIASSE_MINORE - 5), -90, 0, 5);
}

// At 45 degrees the radius of curvature across the meridian is a^2 / sqrt((a^2 + b^2) / 2): the rest is by hand.
TEST(Wgs84, FortyFiveDegreesByHand) {
    const double n = SEMIASSE_MAGGIORE * SEMIASSE_MAGGIORE /
                     std::sqrt((SEMIASSE_MAGGIORE * SEMIASSE_MAGGIORE + SEMIASSE_MINORE * SEMIASSE_MINORE) / 2);
    const double schiacciato = n * (SEMIASSE_MINORE * SEMIASSE_MINORE) / (SEMIASSE_MAGGIORE * SEMIASSE_MAGGIORE);
    uguali(geodetica(n * std::sqrt(0.5), 0, schiacciato * std::sqrt(0.5)), 45, 0, 0);
}

// EPSG Guidance Note 7-2, the worked example of method 9602 (geographic to geocentric), WGS 84.
TEST(Wgs84, PublishedExampleOfEpsg) {
    const double latitudine = 53 + 48.0 / 60 + 33.820 / 3600;
    const double longitudine = 2 + 7.0 / 60 + 46.380 / 3600;
    uguali(geodetica(3771793.968, 140253.342, 5124304.349), latitudine, longitudine, 73.0, 2e-8, 2e-3);
    const Ecef posto = ecef({latitudine, longitudine, 73.0});
    EXPECT_NEAR(posto.x, 3771793.968, 1e-3);
    EXPECT_NEAR(posto.y, 140253.342, 1e-3);
    EXPECT_NEAR(posto.z, 5124304.349, 1e-3);
}

TEST(Wgs84, VelocityIsSeenAlongEastNorthAndUp) {
    const Geodetica equatore{0, 0, 0};  // X is up, Y east, Z north
    const VelocitaLocale v = velocita_locale(equatore, {3, 1, 2});
    EXPECT_DOUBLE_EQ(v.est, 1);
    EXPECT_DOUBLE_EQ(v.nord, 2);
    EXPECT_DOUBLE_EQ(v.su, 3);
    const VelocitaLocale levante = velocita_locale({0, 90, 0}, {-4, 5, 6});  // -X is east, Y up
    EXPECT_NEAR(levante.est, 4, 1e-15);
    EXPECT_NEAR(levante.nord, 6, 1e-15);
    EXPECT_NEAR(levante.su, 5, 1e-15);
}

TEST(Wgs84, VelocityComesBackFromEcefAnywhere) {
    for (double latitudine = -90; latitudine <= 90; latitudine += 15)
        for (double longitudine = -180; longitudine < 180; longitudine += 30) {
            const Geodetica luogo{latitudine, longitudine, 200};
            const VelocitaLocale v = velocita_locale(luogo, velocita_ecef(luogo, {10, -20, 0.5}));
            EXPECT_NEAR(v.est, 10, 1e-12);
            EXPECT_NEAR(v.nord, -20, 1e-12);
            EXPECT_NEAR(v.su, 0.5, 1e-12);
        }
}

TEST(Wgs84, HeadingRunsFromNorthByEast) {
    EXPECT_DOUBLE_EQ((VelocitaLocale{0, 1, 9}).rotta(), 0);
    EXPECT_DOUBLE_EQ((VelocitaLocale{2, 0, 9}).rotta(), 90);
    EXPECT_DOUBLE_EQ((VelocitaLocale{0, -2, 0}).rotta(), 180);
    EXPECT_DOUBLE_EQ((VelocitaLocale{-2, 0, 0}).rotta(), 270);
    EXPECT_DOUBLE_EQ((VelocitaLocale{-1e-300, 1, 0}).rotta(), 0) << "never 360";
    EXPECT_DOUBLE_EQ((VelocitaLocale{3, 4, 12}).orizzontale(), 5);
    EXPECT_DOUBLE_EQ((VelocitaLocale{3, 4, 12}).nello_spazio(), 13);
}

}  // namespace
