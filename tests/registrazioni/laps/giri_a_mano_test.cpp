// Laps, their sectors and their numbers, of ways and passages that are given: everything can be worked out by hand.
#include "laps/giri.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/errore.h"
#include "laps/andamento.h"
#include "laps/lettura.h"
#include "piano.h"

namespace {

using namespace kel_registrazioni;
using piano::fix;
using piano::senza_fix;

// Towards the north at 10 m/s, one fix a second.
std::vector<Fix> strada(int quanti, double da = 0) {
    std::vector<Fix> tutti;
    for (int t = 0; t < quanti; ++t)
        tutti.push_back(fix(da + t, 0, 10 * t, 10.0, 0.0));
    return tutti;
}

Passaggio passaggio(double tempo, std::size_t dopo) {
    return {tempo, dopo, 10, false, false};
}

// "number state start end time": the state in words, times in ms.
std::string testo(const std::vector<Giro>& giri) {
    const auto ms = [](const std::optional<double>& s) { return s ? std::to_string(std::lround(*s * 1000)) : "-"; };
    std::string tutti;
    for (const Giro& giro : giri)
        tutti += (tutti.empty() ? "" : "; ") + std::to_string(giro.numero) + " " + std::string(nome(giro.stato)) + " " +
                 ms(giro.inizio) + " " + ms(giro.fine) + (giro.ms ? " " + std::to_string(*giro.ms) : "") + " s" +
                 std::to_string(giro.sessione);
    return tutti;
}

std::string giri_di(const std::vector<Fix>& fix, const std::vector<Passaggio>& avanti,
                    const std::vector<Passaggio>& indietro = {}) {
    return testo(giri(Guida(fix), {avanti, indietro, 0}));
}

TEST(LapsByHand, LieBetweenThePassages) {
    EXPECT_EQ(giri_di(strada(30), {passaggio(5.5, 6), passaggio(15.25, 16), passaggio(26, 26)}),
              "0 out 0 5500 s0; 1  5500 15250 9750 s0; 2  15250 26000 10750 s0; 3 in 26000 29000 s0");
    EXPECT_EQ(giri_di(strada(30), {passaggio(0, 0), passaggio(29, 29)}), "1  0 29000 29000 s0")
        << "nothing before the first fix and behind the last";
    EXPECT_EQ(giri_di(strada(30), {}), "");
}

TEST(LapsByHand, HaveTheStateOfTheWorstThatHappened) {
    const auto stato = [](const std::function<void(Passaggio&, Passaggio&)>& cambia) {
        Passaggio prima = passaggio(5.5, 6);
        Passaggio dopo = passaggio(15.5, 16);
        cambia(prima, dopo);
        return std::string(nome(giri(Guida(strada(30)), {{prima, dopo}, {passaggio(10, 10)}, 0}).at(1).stato));
    };
    EXPECT_EQ(stato([](Passaggio&, Passaggio&) {}), "wrong way");
    EXPECT_EQ(stato([](Passaggio& a, Passaggio&) { a.senza_fix = true; }), "no fix");
    EXPECT_EQ(stato([](Passaggio&, Passaggio& b) { b.senza_fix = true; }), "no fix");
    EXPECT_EQ(stato([](Passaggio&, Passaggio& b) { b.lento = b.senza_fix = true; }), "in");
    EXPECT_EQ(stato([](Passaggio& a, Passaggio& b) { a.lento = b.lento = true; }), "out");
}

TEST(LapsByHand, AreDrivenTheWrongWayOnlyWithinThemselves) {
    const auto con = [](double tempo, std::size_t dopo) {
        return std::string(
            nome(giri(Guida(strada(30)), {{passaggio(5.5, 6), passaggio(15.5, 16)}, {passaggio(tempo, dopo)}, 0})
                     .at(1)
                     .stato));
    };
    EXPECT_EQ(con(5.6, 6), "wrong way");
    EXPECT_EQ(con(15.4, 16), "wrong way");
    EXPECT_EQ(con(5.5, 6), "") << "at its start";
    EXPECT_EQ(con(15.5, 16), "") << "at its end";
    auto due = strada(30);
    const auto altra = strada(30);
    due.insert(due.end(), altra.begin(), altra.end());
    EXPECT_EQ(std::string(nome(
                  giri(Guida(due), {{passaggio(5.5, 6), passaggio(15.5, 16)}, {passaggio(10, 40)}, 0}).at(1).stato)),
              "")
        << "in another session";
}

TEST(LapsByHand, WithoutAFixForMoreThanAGapAreToldOf) {
    const auto senza = [](const std::vector<std::size_t>& persi) {
        auto tutti = strada(30);
        for (const std::size_t i : persi)
            tutti[i].valido = false;
        return std::string(nome(giri(Guida(tutti), {{passaggio(5.5, 6), passaggio(15.5, 16)}, {}, 0}).at(1).stato));
    };
    EXPECT_EQ(senza({}), "");
    EXPECT_EQ(senza({10}), "") << "2 s";
    EXPECT_EQ(senza({10, 11}), "no fix") << "3 s";
    EXPECT_EQ(senza({6, 7}), "") << "2.5 s from the line";
    EXPECT_EQ(senza({6, 7, 8}), "no fix");
    EXPECT_EQ(senza({14, 15}), "") << "2.5 s to the line";
    EXPECT_EQ(senza({13, 14, 15}), "no fix");
    EXPECT_EQ(senza({16, 17, 18, 19}), "") << "behind it";
}

TEST(LapsByHand, ThatStoodForFiveSecondsAreToldOf) {
    const auto fermi = [](const std::vector<std::pair<std::size_t, std::optional<double>>>& velocita) {
        auto tutti = strada(30);
        for (const auto& [i, una] : velocita)
            tutti[i].velocita = una;
        return std::string(nome(giri(Guida(tutti), {{passaggio(5.5, 6), passaggio(15.5, 16)}, {}, 0}).at(1).stato));
    };
    EXPECT_EQ(fermi({{7, 0.9}, {8, 0.9}, {9, 0.9}, {10, 0.9}, {11, 0.9}}), "") << "4 s";
    EXPECT_EQ(fermi({{7, 0.9}, {8, 0.9}, {9, 0.9}, {10, 0.9}, {11, 0.9}, {12, 0.9}}), "stopped");
    EXPECT_EQ(fermi({{7, 0.9}, {8, 0.9}, {9, 1.0}, {10, 0.9}, {11, 0.9}, {12, 0.9}}), "") << "1 m/s is moving";
    EXPECT_EQ(fermi({{7, 0.9}, {8, 0.9}, {9, {}}, {10, 0.9}, {11, 0.9}, {12, 0.9}}), "") << "nobody knows";
    EXPECT_EQ(fermi({{2, 0.}, {3, 0.}, {4, 0.}, {5, 0.}, {6, 0.}, {7, 0.}, {8, 0.}}), "") << "before the line";
}

TEST(LapsByHand, AreMeasured) {
    auto tutti = strada(30);
    tutti[8].velocita = 13;
    tutti[9].velocita = 7;
    tutti[20].velocita = 99;
    const Guida guida(tutti);
    auto suoi = giri(guida, {{passaggio(5.5, 6), passaggio(15.5, 16)}, {}, 0});
    misura(suoi, guida);
    ASSERT_EQ(suoi.size(), 3u);
    EXPECT_EQ(suoi[0].campioni, 6u);
    EXPECT_EQ(suoi[1].campioni, 10u);
    EXPECT_EQ(suoi[2].campioni, 14u) << "the last fix belongs to the way in";
    EXPECT_EQ(suoi[1].massima, 13);
    EXPECT_EQ(suoi[1].minima, 7);
    EXPECT_EQ(suoi[2].massima, 99);
    EXPECT_DOUBLE_EQ(suoi[1].metri.value_or(0), 100);
    EXPECT_DOUBLE_EQ(suoi[0].metri.value_or(0), 55);
    std::vector<Giro> senza(1);
    senza[0].campioni = 7;
    misura(senza, guida);
    EXPECT_EQ(senza[0].campioni, 7u) << "as the logger counted: no time of it is known";
    EXPECT_FALSE(senza[0].metri);
}

TEST(LapsByHand, WithoutAnySpeedHaveNoDistance) {
    std::vector<Fix> tutti;
    for (int t = 0; t < 30; ++t)
        tutti.push_back(senza_fix(t));
    const Guida guida(tutti);
    auto suoi = giri(guida, {{passaggio(5.5, 6), passaggio(15.5, 16)}, {}, 0});
    misura(suoi, guida);
    EXPECT_EQ(suoi[1].campioni, 10u);
    EXPECT_FALSE(suoi[1].massima);
    EXPECT_FALSE(suoi[1].metri);
    EXPECT_TRUE(andamento(suoi[1], guida, 100).empty());
}

// The lap of the straight way from 55 m to 155 m.
struct UnGiro {
    Guida guida;
    std::vector<Giro> tutti;
    explicit UnGiro(const std::vector<Fix>& fix = strada(30))
        : guida(fix), tutti(giri(guida, {{passaggio(5.5, 6), passaggio(15.5, 16)}, {}, 0})) {
        misura(tutti, guida);
    }
    Giro& giro() { return tutti.at(1); }
};

std::vector<int> settori(const Giro& giro) {
    std::vector<int> ms;
    for (const auto& uno : giro.settori)
        ms.push_back(uno.value_or(-1));
    return ms;
}

TEST(SectorsByHand, EndAtTheSplitsInTheOrderInWhichTheyArePassed) {
    UnGiro uno;
    dividi(uno.tutti, uno.guida, std::vector{piano::linea(0, 125, 0), piano::linea(0, 75, 0)});
    EXPECT_EQ(settori(uno.giro()), (std::vector<int>{2000, 5000, 3000}));
    EXPECT_EQ(settori(uno.tutti[0]), (std::vector<int>{-1, -1, -1})) << "it is not closed";
    dividi(uno.tutti, uno.guida, std::vector{piano::linea(0, 75, 0), piano::linea(0, 200, 0)});
    EXPECT_EQ(settori(uno.giro()), (std::vector<int>{2000, -1, -1})) << "one that it does not pass";
    dividi(uno.tutti, uno.guida, std::vector{piano::linea(0, 40, 0)});
    EXPECT_EQ(settori(uno.giro()), (std::vector<int>{-1, -1})) << "one that was passed before it began";
    dividi(uno.tutti, uno.guida, {});
    EXPECT_TRUE(uno.giro().settori.empty());
}

TEST(SectorsByHand, WithoutAFixAtTheSplitAreNone) {
    auto tutti = strada(30);
    for (const std::size_t i : {9u, 10u, 11u})
        tutti[i].valido = false;
    UnGiro uno(tutti);
    dividi(uno.tutti, uno.guida, std::vector{piano::linea(0, 100, 0)});
    EXPECT_EQ(settori(uno.giro()), (std::vector<int>{-1, -1}));
}

TEST(DistancesByHand, AreLinesAcrossTheTrack) {
    UnGiro uno;
    const auto linea = linea_a_distanza(uno.giro(), uno.guida, 30);
    ASSERT_TRUE(linea);
    EXPECT_NEAR(linea->latitudine, piano::luogo(0, 85).latitudine, 1e-9);
    EXPECT_NEAR(linea->longitudine, piano::LON, 1e-9);
    EXPECT_NEAR(linea->rotta, 0, 1e-6);
    EXPECT_EQ(linea->larghezza, 30);
    EXPECT_NEAR(linea_a_distanza(uno.giro(), uno.guida, 1)->latitudine, piano::luogo(0, 56).latitudine, 1e-9)
        << "between the fixes on either side of the line";
    EXPECT_NEAR(linea_a_distanza(uno.giro(), uno.guida, 99)->latitudine, piano::luogo(0, 154).latitudine, 1e-9);
    EXPECT_FALSE(linea_a_distanza(uno.giro(), uno.guida, 100)) << "so long it is not";
    Giro ignoto;
    ignoto.metri = 100;
    EXPECT_FALSE(linea_a_distanza(ignoto, uno.guida, 30)) << "nobody knows when it was driven";
}

TEST(DistancesByHand, AreNowhereWhereThereWasNoFix) {
    auto tutti = strada(30);
    for (const std::size_t i : {9u, 10u, 11u})
        tutti[i].valido = false;
    UnGiro uno(tutti);
    EXPECT_TRUE(linea_a_distanza(uno.giro(), uno.guida, 25)) << "80 m";
    EXPECT_FALSE(linea_a_distanza(uno.giro(), uno.guida, 26));
    EXPECT_FALSE(linea_a_distanza(uno.giro(), uno.guida, 64));
    EXPECT_TRUE(linea_a_distanza(uno.giro(), uno.guida, 66)) << "behind 120 m";
    auto due = strada(30);
    due[9].valido = false;
    EXPECT_TRUE(linea_a_distanza(UnGiro(due).giro(), Guida(due), 35)) << "one fix that is lost is no gap";
}

TEST(DistancesByHand, AtTheEndsOfTheRecordingTakeTheFixesThatThereAre) {
    const Guida guida(strada(11));
    std::vector<Giro> tutti = giri(guida, {{passaggio(0, 0), passaggio(10, 10)}, {}, 0});
    misura(tutti, guida);
    EXPECT_NEAR(linea_a_distanza(tutti.at(0), guida, 5)->latitudine, piano::luogo(0, 5).latitudine, 1e-9);
    EXPECT_NEAR(linea_a_distanza(tutti.at(0), guida, 95)->latitudine, piano::luogo(0, 95).latitudine, 1e-9);
}

TEST(CoursesByHand, AreStretchedToOneLength) {
    UnGiro uno;
    const auto punti = andamento(uno.giro(), uno.guida, 200);
    ASSERT_EQ(punti.size(), 12u);
    EXPECT_DOUBLE_EQ(punti[1].metri, 10);
    EXPECT_DOUBLE_EQ(punti[1].secondi, 0.5);
    EXPECT_DOUBLE_EQ(punti[10].metri, 190);
    EXPECT_DOUBLE_EQ(punti[11].metri, 200);
    EXPECT_DOUBLE_EQ(punti[11].secondi, 10);
    EXPECT_EQ(punti[0].velocita, 10.0);
    EXPECT_EQ(punti[11].velocita, 10.0);
    EXPECT_TRUE(andamento(uno.tutti[0], uno.guida, 200).empty()) << "not closed";
    Giro senza = uno.giro();
    senza.inizio.reset();
    EXPECT_TRUE(andamento(senza, uno.guida, 200).empty());
    senza = uno.giro();
    senza.metri = 0;
    EXPECT_TRUE(andamento(senza, uno.guida, 200).empty());
}

TEST(CoursesByHand, AreStretchedWhereTheFixWasLost) {
    auto tutti = strada(30);
    for (const std::size_t i : {9u, 10u, 11u})
        tutti[i] = senza_fix(static_cast<double>(i));
    UnGiro uno(tutti);  // from 80 m to 120 m nothing is known
    const auto lunghi = andamento(uno.giro(), uno.guida, 120);
    ASSERT_EQ(lunghi.size(), 9u);
    EXPECT_NEAR(lunghi[3].metri, 25, 1e-3) << "before it: as it was measured";
    EXPECT_FALSE(lunghi[3].staccato);
    EXPECT_NEAR(lunghi[4].metri, 85, 1e-3) << "behind it: 20 m more";
    EXPECT_TRUE(lunghi[4].staccato);
    EXPECT_NEAR(lunghi[8].metri, 120, 1e-3);
    const auto corti = andamento(uno.giro(), uno.guida, 50);
    EXPECT_NEAR(corti[3].metri, 12.5, 1e-3) << "shorter than it was: all of it is pressed";
    EXPECT_NEAR(corti[4].metri, 32.5, 1e-3);
}

// Lines by their splits, with what is said.
std::string intermedi(const Lettura& lettura, const Intermedio& uno) {
    std::string detto;
    try {
        linee_intermedie(lettura, std::span(&uno, 1), PAROLE_DELLA_FACCIA,
                         [&detto](const std::string& riga) { detto += riga; });
    } catch (const Errore& e) {
        return std::string("error: ") + e.what();
    }
    return detto;
}

TEST(SplitsByHand, AreToldOfWhereNoLapPassesThem) {
    Lettura lettura{Guida(strada(30)), UnGiro().tutti, {}};
    EXPECT_EQ(intermedi(lettura, piano::linea(0, 75, 0)), "");
    EXPECT_EQ(intermedi(lettura, piano::linea(0, 30, 0)).substr(0, 24), "no lap passes intermedi ") << "before the lap";
    EXPECT_EQ(intermedi(lettura, piano::linea(0, 200, 0)).substr(0, 24), "no lap passes intermedi ") << "behind it";
    lettura.giri.erase(lettura.giri.begin() + 1);
    EXPECT_EQ(intermedi(lettura, piano::linea(0, 75, 0)).substr(0, 24), "no lap passes intermedi ") << "none is closed";
}

TEST(SplitsByHand, InMetresLieInTheFirstLapWhereNoneCounts) {
    Lettura lettura{Guida(strada(30)), UnGiro().tutti, {}};
    lettura.giri[1].stato = StatoGiro::fermo;
    EXPECT_EQ(intermedi(lettura, Metri{30, "30"}).substr(0, 26), "intermedi 30 is intermedi ");
    EXPECT_EQ(intermedi(lettura, Metri{100, "1e2"}), "error: intermedi 1e2 is nowhere: lap 1 has 100 m");
}

}  // namespace
