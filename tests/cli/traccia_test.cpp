// What is kept of a track to be drawn, held against all of it.
#include "plots/traccia.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <string>

namespace {

using namespace kel::strumento;

constexpr double METRI_IN_UN_GRADO = 111195;
constexpr std::size_t PUNTI_MASSIMI = 8192 + 4096;

// On the equator a degree is as long to the east as to the north.
void aggiungi(Traccia& traccia, double est, double nord, double velocita) {
    traccia.aggiungi(est / METRI_IN_UN_GRADO, nord / METRI_IN_UN_GRADO, velocita);
}

double distanza(const PuntoTraccia& a, const PuntoTraccia& b, double est, double nord) {
    const double de = b.est - a.est;
    const double dn = b.nord - a.nord;
    const double quadrato = de * de + dn * dn;
    const double parte =
        quadrato > 0 ? std::clamp(((est - a.est) * de + (nord - a.nord) * dn) / quadrato, 0.0, 1.0) : 0;
    return std::hypot(est - a.est - parte * de, nord - a.nord - parte * dn);
}

struct Via {
    const char* nome;
    std::function<void(int, double&, double&)> posto;
};

// The points that are kept are some of those put in: every other lies by the line between the two around it.
void confronta(const Via& via, int quanti) {
    SCOPED_TRACE(std::string(via.nome) + ", " + std::to_string(quanti) + " points");
    Traccia traccia;
    double est = 0;
    double nord = 0;
    for (int i = 0; i < quanti; ++i) {
        via.posto(i, est, nord);
        aggiungi(traccia, est, nord, 50);
    }
    const auto& punti = traccia.punti();
    ASSERT_LE(punti.size(), PUNTI_MASSIMI);
    std::size_t prossimo = 0;
    double massima = 0;
    for (int i = 0; i < quanti; ++i) {
        via.posto(i, est, nord);
        if (prossimo < punti.size() && std::hypot(punti[prossimo].est - est, punti[prossimo].nord - nord) < 1e-6)
            ++prossimo;
        else if (prossimo > 0 && prossimo < punti.size())
            massima = std::max(massima, distanza(punti[prossimo - 1], punti[prossimo], est, nord));
    }
    EXPECT_EQ(prossimo, punti.size()) << "points that were never put in";
    EXPECT_LE(massima, traccia.tolleranza() + 1e-6) << "metres from the line drawn";
}

TEST(PlotTrack, PassesWithinItsToleranceOfEveryPoint) {
    std::mt19937_64 caso(12);
    std::vector<double> curve(1000001);
    for (double& una : curve)
        una = static_cast<double>(caso() % 2001) / 1000 - 1;
    double rotta = 0;
    const Via vie[] = {
        {"laps of a square",
         [](int i, double& est, double& nord) {
             const double lungo = std::fmod(i * 0.9, 800);
             const double lato = std::fmod(lungo, 200);
             const int quale = static_cast<int>(lungo / 200);
             est = quale == 0 ? lato : quale == 1 ? 200 : quale == 2 ? 200 - lato : 0;
             nord = quale == 0 ? 0 : quale == 1 ? lato : quale == 2 ? 200 : 200 - lato;
             est += i * 1e-4;  // no place twice
         }},
        {"a spiral",
         [](int i, double& est, double& nord) {
             est = 0.01 * i * std::cos(i * 0.01);
             nord = 0.01 * i * std::sin(i * 0.01);
         }},
        {"at random",
         [&](int i, double& est, double& nord) {
             if (i == 0)
                 est = nord = rotta = 0;
             rotta += 0.2 * curve[static_cast<std::size_t>(i)];
             est += i == 0 ? 0 : std::cos(rotta);
             nord += i == 0 ? 0 : std::sin(rotta);
         }},
    };
    for (const Via& via : vie)
        for (const int quanti : {2, 100, 5000, 12300, 90000, 400000})
            confronta(via, quanti);
}

// 100 laps of an hour and more, each a little off the others: the corner is drawn where it was driven.
TEST(PlotTrack, DoesNotCutACorner) {
    Traccia traccia;
    for (int giro = 0; giro < 100; ++giro)
        for (int i = 0; i < 1200; ++i) {
            const double lato = i % 300 * 0.8;
            const double largo = giro * 0.01;
            const int quale = i / 300;
            aggiungi(traccia,
                     quale == 0   ? lato
                     : quale == 1 ? 240 + largo
                     : quale == 2 ? 240 - lato
                                  : -largo,
                     quale == 0   ? -largo
                     : quale == 1 ? lato
                     : quale == 2 ? 240 + largo
                                  : 240 - lato,
                     60);
        }
    EXPECT_LT(traccia.tolleranza(), 0.2) << "metres";
    const auto& punti = traccia.punti();
    double vicino = 1e9;
    for (std::size_t i = 1; i < punti.size(); ++i)
        vicino = std::min(vicino, distanza(punti[i - 1], punti[i], 240.5, 239.2));
    EXPECT_LT(vicino, 0.3) << "metres from the corner of the middle lap";
}

TEST(PlotTrack, KeepsTheSpeedAlongAStraight) {
    Traccia traccia;
    const auto velocita = [](int i) { return i < 5000 ? 90.0 : std::max(40.0, 90.0 - (i - 5000) * 0.5); };
    for (int i = 0; i < 10000; ++i)
        aggiungi(traccia, i * 0.5, 0, velocita(i));
    const auto& punti = traccia.punti();
    EXPECT_LT(punti.size(), 5000u) << "a straight takes few points";
    std::size_t prossimo = 1;
    for (int i = 0; i < 10000; ++i) {
        const double est = i * 0.5;
        while (prossimo + 1 < punti.size() && punti[prossimo].est < est)
            ++prossimo;
        const PuntoTraccia& a = punti[prossimo - 1];
        const PuntoTraccia& b = punti[prossimo];
        const double parte = (est - a.est) / (b.est - a.est);
        ASSERT_NEAR(a.velocita + parte * (b.velocita - a.velocita), velocita(i), 0.6) << "at " << est << " m";
    }
}

TEST(PlotTrack, IsInMetresFromItsFirstPoint) {
    Traccia traccia;
    traccia.aggiungi(10, 60, 0);
    traccia.aggiungi(10.001, 60.001, 0);
    ASSERT_EQ(traccia.punti().size(), 2u);
    EXPECT_NEAR(traccia.punti()[1].nord, 111.195, 1e-6);
    EXPECT_NEAR(traccia.punti()[1].est, 111.195 / 2, 1e-6) << "at 60 degrees a degree of longitude is half as long";
}

TEST(PlotTrack, GoesOnBeyond180Degrees) {
    Traccia traccia;
    traccia.aggiungi(179.9999, 0, 0);
    traccia.aggiungi(-179.9999, 0, 0);
    EXPECT_NEAR(traccia.punti()[1].est, 22.239, 1e-3);
}

TEST(PlotTrack, KeepsItsBreaks) {
    Traccia traccia;
    traccia.interrompi();
    for (int i = 0; i < 300000; ++i) {
        if (i % 100000 == 50000)
            traccia.interrompi();
        aggiungi(traccia, i * 0.1, 0, 0);
    }
    const auto& punti = traccia.punti();
    EXPECT_LE(punti.size(), PUNTI_MASSIMI);
    EXPECT_EQ(std::count_if(punti.begin(), punti.end(), [](const PuntoTraccia& punto) { return punto.staccato; }), 4)
        << "the first point, and one behind each break";
    EXPECT_EQ(punti.front().est, 0.0);
}

TEST(PlotTrack, StaysBoundedWhereItIsBrokenAtEveryPoint) {
    Traccia traccia;
    for (int i = 0; i < 200000; ++i) {
        traccia.interrompi();
        aggiungi(traccia, 1000 * std::cos(i * 0.01), 1000 * std::sin(i * 0.01), i % 100);
    }
    EXPECT_LE(traccia.punti().size(), PUNTI_MASSIMI);
}

}  // namespace
