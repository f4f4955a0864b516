// The way that was driven, on a plane: sessions, gaps, distances, speeds and directions, by hand.
#include "laps/guida.h"

#include <gtest/gtest.h>

#include <vector>

#include "piano.h"

namespace {

using namespace kel_registrazioni;
using piano::fix;
using piano::senza_fix;

using Posti = std::vector<std::size_t>;

TEST(Way, LiesOnAPlaneAroundTheFirstFixThatHasAPosition) {
    const Guida guida({senza_fix(0), fix(1, 0, 0), fix(2, 300, -40), senza_fix(3), fix(4, -1000, 2000)});
    EXPECT_EQ(guida.validi(), (Posti{1, 2, 4}));
    EXPECT_NEAR(guida.punto(1).est, 0, 1e-9);
    EXPECT_NEAR(guida.punto(2).est, 300, 0.01);
    EXPECT_NEAR(guida.punto(2).nord, -40, 0.01);
    EXPECT_NEAR(guida.punto(4).est, -1000, 0.01);
    EXPECT_NEAR(guida.punto(4).nord, 2000, 0.01);
    const LineaPiana piana = guida.linea(piano::linea(300, -40, 30, 12));
    EXPECT_NEAR(piana.centro.est, guida.punto(2).est, 1e-9) << "the same place is the same point";
    EXPECT_NEAR(piana.centro.nord, guida.punto(2).nord, 1e-9);
    EXPECT_NEAR(piana.dir_est, 0.5, 1e-9);
    EXPECT_NEAR(piana.dir_nord, 0.8660254037844387, 1e-9);
    EXPECT_EQ(piana.larghezza, 12);
}

TEST(Way, PointsGoBackToTheMap) {
    const Guida guida({fix(0, 0, 0)});
    const Linea linea = guida.linea({300, -40}, {3, 3}, 17);
    const Geodetica atteso = piano::luogo(300, -40);
    EXPECT_NEAR(linea.latitudine, atteso.latitudine, 1e-10);
    EXPECT_NEAR(linea.longitudine, atteso.longitudine, 1e-10);
    EXPECT_NEAR(linea.rotta, 45, 1e-9);
    EXPECT_EQ(linea.larghezza, 17);
}

TEST(Way, PointsAreBehindALineAndToItsRight) {
    const LineaPiana nord{{10, 20}, 0, 1, 30};
    EXPECT_EQ(nord.oltre({13, 25}), 5);
    EXPECT_EQ(nord.oltre({13, 18}), -2);
    EXPECT_EQ(nord.a_destra({13, 25}), 3);
    const LineaPiana ovest{{10, 20}, -1, 0, 30};
    EXPECT_EQ(ovest.oltre({13, 25}), -3);
    EXPECT_EQ(ovest.a_destra({13, 25}), 5);
}

TEST(Way, IsDividedWhereTimeRunsBackOrStandsForMoreThanTenMinutes) {
    const Guida guida(
        {fix(0, 0, 0), fix(600, 0, 0), fix(600, 0, 0), fix(1200.5, 0, 0), fix(1200, 0, 0), fix(1201, 0, 0)});
    EXPECT_EQ(guida.sessioni(), (Posti{0, 3, 4}));
    Posti di;
    for (std::size_t i = 0; i < 6; ++i)
        di.push_back(guida.sessione(i));
    EXPECT_EQ(di, (Posti{0, 0, 0, 1, 2, 2}));
    EXPECT_TRUE(Guida({}).sessioni().empty());
}

double buco(const std::vector<double>& tempi) {
    std::vector<Fix> tutti;
    for (const double tempo : tempi)
        tutti.push_back(fix(tempo, 0, 0));
    return Guida(tutti).buco();
}

TEST(Way, HasAGapAfterTwoAndAHalfOfItsSteps) {
    EXPECT_EQ(buco({}), 1);
    EXPECT_EQ(buco({5}), 1);
    EXPECT_EQ(buco({0, 0.1, 0.2}), 1) << "never less than a second";
    EXPECT_EQ(buco({0, 0.5, 1}), 1.25);
    EXPECT_EQ(buco({0, 1, 2, 3}), 2.5);
    EXPECT_EQ(buco({0, 1, 3, 6, 10, 10, 10, 0}), 7.5) << "the upper one of 1, 2, 3, 4: no step is no step";
    EXPECT_EQ(buco({0, 2, 3}), 5) << "in any order";
}

TEST(Way, IsAsLongAsItsSpeedsMakeIt) {
    const Guida guida({fix(0, 0, 0, 10.0), fix(1, 100, 0, 20.0), senza_fix(2, 30.0), fix(4.5, 200, 0, 30.0)});
    EXPECT_EQ(guida.metri(0), 0);
    EXPECT_EQ(guida.metri(1), 15) << "not the 100 m between the positions";
    EXPECT_EQ(guida.metri(2), 40) << "a speed needs no position";
    EXPECT_EQ(guida.metri(3), 115) << "2.5 s is no gap yet";
}

TEST(Way, IsStraightFromPositionToPositionWhereSpeedsAreNotKnown) {
    const Guida guida({fix(0, 0, 0), fix(1, 30, 40, 7.0), senza_fix(2), fix(3, 30, 140), fix(4, 30, 140, 5.0),
                       fix(5, 30, 150, 5.0), fix(8, 30, 250, 5.0)});
    EXPECT_EQ(guida.buco(), 2.5);
    EXPECT_NEAR(guida.metri(1), 50, 0.01) << "one speed of two is not enough";
    EXPECT_NEAR(guida.metri(2), 50, 0.01) << "without a position nothing is added";
    EXPECT_NEAR(guida.metri(3), 150, 0.01);
    EXPECT_NEAR(guida.metri(4), 150, 0.01);
    EXPECT_NEAR(guida.metri(5), 155, 0.01);
    EXPECT_NEAR(guida.metri(6), 255, 0.01) << "behind a gap of 3 s the straight line, though both speeds are known";
}

TEST(Way, IsNotShorterBehindALossOfTheFixThanItsSpeeds) {
    // 3 s at 10 m/s without positions, back to where the fix was lost.
    const Guida guida({fix(0, 0, 0, 10.0), senza_fix(1, 10.0), senza_fix(2, 10.0), fix(3, 1, 0)});
    EXPECT_EQ(guida.metri(2), 20);
    EXPECT_EQ(guida.metri(3), 20) << "not 1";
}

TEST(Way, DoesNotReachFromOneSessionIntoTheNext) {
    const Guida guida({fix(0, 0, 0, 10.0), fix(1, 10, 0, 10.0), fix(0, 500, 0, 10.0), fix(1, 510, 0), fix(2, 510, 5)});
    EXPECT_EQ(guida.metri(1), 10);
    EXPECT_EQ(guida.metri(2), 10);
    EXPECT_NEAR(guida.metri(3), 20, 0.01);
    EXPECT_NEAR(guida.metri(4), 25, 0.01);
}

TEST(Way, IsKnownAtAnyMomentOfASession) {
    const Guida guida({fix(0, 0, 0, 10.0), fix(1, 0, 0, 10.0), fix(1, 0, 0, 10.0), fix(2, 0, 0, 30.0),
                       fix(0, 0, 0, 8.0), fix(2, 0, 0, 8.0)});
    EXPECT_EQ(guida.metri(0, -5), 0) << "before it begins";
    EXPECT_EQ(guida.metri(0, 0), 0);
    EXPECT_EQ(guida.metri(0, 0.5), 5);
    EXPECT_EQ(guida.metri(0, 1), 10);
    EXPECT_EQ(guida.metri(0, 1.25), 15) << "a quarter of the 20 m of that second";
    EXPECT_EQ(guida.metri(0, 2), 30);
    EXPECT_EQ(guida.metri(0, 99), 30) << "behind its end";
    EXPECT_EQ(guida.metri(1, -1), 30) << "the next one goes on from there";
    EXPECT_EQ(guida.metri(1, 0.5), 34);
    EXPECT_EQ(guida.metri(1, 3), 46);
}

// At t the point t (t + 1) / 2 to the east: from the nearest one on either side that is 5 m away.
TEST(Way, HasTheSpeedThatThePositionsAroundAFixGive) {
    std::vector<Fix> tutti;
    for (int t = 0; t < 8; ++t)
        tutti.push_back(fix(t, t * (t + 1) / 2.0, 0));
    const Guida guida(tutti);
    EXPECT_NEAR(guida.velocita(3).value_or(0), 14 / 4.0, 1e-4) << "from 1 m to 15 m";
    EXPECT_NEAR(guida.velocita(6).value_or(0), 13 / 2.0, 1e-4) << "from 15 m to 28 m";
    EXPECT_NEAR(guida.velocita(0).value_or(0), 6 / 3.0, 1e-4) << "nothing before it";
    EXPECT_NEAR(guida.velocita(7).value_or(0), 7 / 1.0, 1e-4) << "nothing behind it";
    EXPECT_NEAR(guida.direzione(3)->est, 1, 1e-6);
    EXPECT_NEAR(guida.direzione(3)->nord, 0, 1e-4);
}

TEST(Way, LooksForPositionsAmongSixtyFourFixesOnEitherSide) {
    std::vector<Fix> tutti;
    for (int t = 0; t <= 201; ++t)
        tutti.push_back(fix(t, t == 0 ? -30 : t == 201 ? 30 : 0, 0));
    const Guida guida(tutti);
    EXPECT_NEAR(guida.velocita(64).value_or(-1), 30 / 128.0, 1e-4);
    EXPECT_NEAR(guida.velocita(65).value_or(-1), 0, 1e-4);
    EXPECT_NEAR(guida.velocita(136).value_or(-1), 0, 1e-4);
    EXPECT_NEAR(guida.velocita(137).value_or(-1), 30 / 128.0, 1e-4);
    EXPECT_TRUE(guida.direzione(64));
    EXPECT_FALSE(guida.direzione(65)) << "standing has no direction";
}

TEST(Way, TakesTheReceiversSpeedAndDirectionWhereThereAreAny) {
    const Guida guida({fix(0, 0, 0, 7.0, 90.0), fix(1, 0, 10, 1.0, 30.0), fix(2, 0, 20, 0.99, 30.0), fix(3, 0, 30, 7.0),
                       fix(4, 0, 40, {}, 90.0), senza_fix(5, 3.0), senza_fix(6)});
    EXPECT_EQ(guida.velocita(0), 7.0);
    EXPECT_NEAR(guida.direzione(0)->est, 1, 1e-9);
    EXPECT_NEAR(guida.direzione(1)->est, 0.5, 1e-9);
    EXPECT_NEAR(guida.direzione(1)->nord, 0.8660254037844387, 1e-9);
    EXPECT_FALSE(guida.direzione(2)) << "below 1 m/s a receiver's direction is noise";
    EXPECT_NEAR(guida.direzione(3)->nord, 1, 1e-6) << "by the positions";
    EXPECT_NEAR(guida.direzione(4)->nord, 1, 1e-6) << "a direction without a speed is not believed";
    EXPECT_NEAR(guida.velocita(4).value_or(0), 10, 1e-3);
    EXPECT_EQ(guida.velocita(5), 3.0);
    EXPECT_FALSE(guida.direzione(5));
    EXPECT_FALSE(guida.velocita(6));
    const Guida solo({fix(0, 0, 0)});
    EXPECT_FALSE(solo.velocita(0)) << "one position makes no way";
    EXPECT_FALSE(solo.direzione(0));
    const Guida fermi({fix(0, 0, 0), fix(0, 100, 0)});
    EXPECT_FALSE(fermi.velocita(0)) << "nor do two at one moment";
}

TEST(Way, PositionsOfOtherSessionsGiveNoSpeed) {
    const Guida guida({fix(0, 0, 0), fix(1, 2, 0), fix(0, 50, 0), fix(1, 53, 0), fix(0, 99, 0)});
    EXPECT_NEAR(guida.velocita(2).value_or(0), 3, 1e-4);
    EXPECT_NEAR(guida.velocita(3).value_or(0), 3, 1e-4);
    EXPECT_FALSE(guida.direzione(2)) << "3 m are too few";
}

}  // namespace
