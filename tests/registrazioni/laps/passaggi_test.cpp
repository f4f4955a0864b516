// When a line was passed: straight ways whose moments can be worked out by hand.
#include "laps/passaggi.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "piano.h"

namespace {

using namespace kel_registrazioni;
using piano::fix;

// Towards the north, one fix a second: how far at each, and how fast.
std::vector<Fix> verso_nord(int quanti, const std::function<double(double)>& dove,
                            const std::function<double(double)>& v, double est = 0) {
    std::vector<Fix> tutti;
    for (int t = 0; t < quanti; ++t)
        tutti.push_back(fix(t, est, dove(t), std::fabs(v(t)), v(t) < 0 ? 180.0 : 0.0));
    return tutti;
}

std::vector<Fix> piano_a(double velocita, double est = 0, double da = -52.5) {
    return verso_nord(
        static_cast<int>(200 / velocita), [=](double t) { return da + velocita * t; }, [=](double) { return velocita; },
        est);
}

// The line is where the first fix is: the plane begins there. So it is given by metres from (LAT, LON).
Passaggi passati(const std::vector<Fix>& fix, double rotta = 0, double larghezza = 30, double minimo = 10) {
    return passaggi(Guida(fix), piano::linea(0, 0, rotta, larghezza), minimo);
}

TEST(Passages, AreMetByTheSpeedsOfBothFixes) {
    // 50 m at 10 m/s and 1 m/s more each second: the root of 200, less 10.
    const auto trovati = passati(verso_nord(
        12, [](double t) { return -50 + 10 * t + t * t / 2; }, [](double t) { return 10 + t; }));
    ASSERT_EQ(trovati.avanti.size(), 1u);
    const Passaggio& uno = trovati.avanti[0];
    EXPECT_NEAR(uno.tempo, 4.142135623730951, 1e-5);
    EXPECT_EQ(uno.dopo, 5u);
    EXPECT_NEAR(uno.velocita, 14.142135623730951, 1e-5);
    EXPECT_FALSE(uno.lento);
    EXPECT_FALSE(uno.senza_fix);
    EXPECT_TRUE(trovati.indietro.empty());
    EXPECT_EQ(trovati.scartati, 0u);
}

TEST(Passages, AreMetByEvenMotionWhereASpeedCannotBe) {
    // 10 m in each second: speeds below half of that, or above twice, are not believed.
    const auto con = [](double v_prima, double v_dopo) {
        auto tutti = piano_a(10, 0, -43);
        tutti[4].velocita = v_prima;
        tutti[5].velocita = v_dopo;
        return passati(tutti).avanti.at(0).tempo;
    };
    EXPECT_NEAR(con(10, 10), 4.3, 1e-6);
    EXPECT_NEAR(con(4.9, 10), 4.3, 1e-6);
    EXPECT_NEAR(con(10, 20.1), 4.3, 1e-6);
    EXPECT_NEAR(con(20.1, 10), 4.3, 1e-6);
    EXPECT_NEAR(con(10, 4.9), 4.3, 1e-6);
    // Of the way s in a second: 12 s - 4 s^2 + 2 s^3 = 3, and 5.1 s + 9.8 s^2 - 4.9 s^3 = 3.
    EXPECT_NEAR(con(12, 10), 4.271190706, 1e-5);
    EXPECT_NEAR(con(5.1, 10), 4.371892159, 1e-5);
}

TEST(Passages, LieWithinTheWidthOfTheLine) {
    EXPECT_EQ(passati(piano_a(10, 14.9)).avanti.size(), 1u);
    EXPECT_EQ(passati(piano_a(10, 15.1)).avanti.size(), 0u);
    EXPECT_EQ(passati(piano_a(10, -14.9)).avanti.size(), 1u);
    EXPECT_EQ(passati(piano_a(10, -15.1)).avanti.size(), 0u);
    EXPECT_EQ(passati(piano_a(10, 15.1), 0, 30.4).avanti.size(), 1u);
}

TEST(Passages, GoInTheDirectionOfTheLineGiveOrTake45Degrees) {
    EXPECT_EQ(passati(piano_a(10), 45).avanti.size(), 1u);
    EXPECT_EQ(passati(piano_a(10), 46).avanti.size(), 0u);
    EXPECT_EQ(passati(piano_a(10), -45).avanti.size(), 1u);
    EXPECT_EQ(passati(piano_a(10), -46).avanti.size(), 0u);
    const auto contrari = passati(piano_a(10), 180);
    EXPECT_TRUE(contrari.avanti.empty());
    ASSERT_EQ(contrari.indietro.size(), 1u);
    EXPECT_NEAR(contrari.indietro[0].tempo, 5.25, 1e-6);
    EXPECT_NEAR(contrari.indietro[0].velocita, 10, 1e-6);
    EXPECT_EQ(passati(piano_a(10), 134).indietro.size(), 0u);
}

TEST(Passages, BelowTwoMetresASecondAreSlow) {
    EXPECT_TRUE(passati(piano_a(1.9)).avanti.at(0).lento);
    EXPECT_FALSE(passati(piano_a(2.1)).avanti.at(0).lento);
}

TEST(Passages, WithinAGapAreAGuess) {
    auto tutti = piano_a(10);
    tutti.erase(tutti.begin() + 5);
    EXPECT_FALSE(passati(tutti).avanti.at(0).senza_fix) << "2 s of a receiver with one fix a second";
    tutti.erase(tutti.begin() + 5);
    EXPECT_TRUE(passati(tutti).avanti.at(0).senza_fix) << "3 s";
    EXPECT_EQ(passati(tutti).avanti.at(0).dopo, 5u);
}

TEST(Passages, CountOnceTheLineLiesTenMetresBehind) {
    // 3 m over the line and back 12 m, twice, then on.
    const double dove[] = {-30, -15, 3, -9, 3, -9, 3, 12, 30};
    std::vector<Fix> tutti;
    for (int t = 0; t < 9; ++t)
        tutti.push_back(fix(t / 5.0, 0, dove[t]));
    const auto trovati = passati(tutti);
    ASSERT_EQ(trovati.avanti.size(), 1u);
    EXPECT_TRUE(trovati.indietro.empty());
    EXPECT_FALSE(trovati.avanti[0].lento);
}

TEST(Passages, WithoutADirectionCountAllTheSame) {
    // A receiver that is driven at 6 m/s, says that it stands, and gives a direction: so there is none to believe.
    auto tutti = piano_a(6);
    for (Fix& uno : tutti)
        uno.velocita = 0.5;
    EXPECT_EQ(passati(tutti).avanti.size(), 1u);
    EXPECT_EQ(passati(tutti, 80).avanti.size(), 1u) << "any";
    EXPECT_TRUE(passati(tutti).avanti[0].lento) << "by what it says";
}

TEST(Passages, BetweenTwoFixesOfOneMomentAreAtThatMoment) {
    auto tutti = piano_a(10);
    for (std::size_t i = 6; i < tutti.size(); ++i)
        tutti[i].tempo -= 1;
    EXPECT_EQ(passati(tutti).avanti.at(0).tempo, 5);
}

TEST(Passages, DoNotReachFromOneSessionIntoTheNext) {
    auto tutti = piano_a(10);
    for (std::size_t i = 6; i < tutti.size(); ++i)
        tutti[i].tempo -= 6;
    EXPECT_EQ(passati(tutti).avanti.size(), 0u);
}

TEST(Passages, OfNoiseAreInTheMiddleOfTheFirstAndTheLastWithinTwoSeconds) {
    const double dove[] = {-30, -15, 3, -9, 3, -9, 3, 12, 30};
    const auto con = [&dove](double passo) {
        std::vector<Fix> tutti;
        for (int t = 0; t < 9; ++t)
            tutti.push_back(fix(t * passo, 0, dove[t], 0.5, 0.0));  // a receiver that stands has no direction
        return passati(tutti).avanti.at(0).tempo;
    };
    // At 11/6 and at 23/4 of the steps.
    EXPECT_NEAR(con(0.2), (11 / 6.0 + 23 / 4.0) / 2 * 0.2, 1e-6);
    EXPECT_NEAR(con(0.8), 23 / 4.0 * 0.8, 1e-6) << "3 s lie between them: the last one";
}

TEST(Passages, SoonerThanTheShortestLapAreLeftOut) {
    // There and back, again and again: every 20 s in the same direction.
    const auto dove = [](double t) { return 50 * std::sin(t * 2 * 3.14159265358979 / 20); };
    const auto v = [](double t) { return 50 * 2 * 3.14159265358979 / 20 * std::cos(t * 2 * 3.14159265358979 / 20); };
    const auto tutti = verso_nord(95, dove, v);
    EXPECT_EQ(passati(tutti, 0, 30, 19.9).avanti.size(), 4u);
    EXPECT_EQ(passati(tutti, 0, 30, 19.9).scartati, 0u);
    EXPECT_EQ(passati(tutti, 0, 30, 20.1).avanti.size(), 2u);
    EXPECT_EQ(passati(tutti, 0, 30, 20.1).scartati, 2u);
    EXPECT_EQ(passati(tutti, 0, 30, 20.1).indietro.size(), 5u);
}

TEST(Passages, RightBeforeTheEndCountUnlessTheyAreSlow) {
    const auto fino_a = [](double velocita, double oltre) {
        auto tutti = piano_a(velocita);
        while (tutti.back().tempo * velocita - 52.5 > oltre)
            tutti.pop_back();
        return passati(tutti).avanti.size();
    };
    EXPECT_EQ(fino_a(10, 8), 1u);
    EXPECT_EQ(fino_a(10, 0), 0u);
    EXPECT_EQ(fino_a(1.9, 8), 0u);
    EXPECT_EQ(fino_a(1.9, 12), 1u);
}

}  // namespace
