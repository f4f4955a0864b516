// What is kept of many values to be drawn, and how dots and characters come of it.
#include "plots/grafico.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "plots/grafico_terminale.h"
#include "plots/raster.h"

namespace {

using namespace kel::strumento;

TEST(PlotSeries, KeepsEveryPeakOfAMillionValuesInFewPoints) {
    Serie serie;
    for (int i = 0; i < 1000000; ++i)
        serie.aggiungi(i, i == 123457 ? 1000.0 : i == 765433 ? -1000.0 : i % 10);
    EXPECT_LE(serie.punti().size(), 16384u);
    EXPECT_GE(serie.punti().size(), 2048u) << "too few to look like a line";
    EXPECT_EQ(serie.massimo(), 1000.0);
    EXPECT_EQ(serie.minimo(), -1000.0);
    const auto trova = [&serie](double valore) {
        return std::find_if(serie.punti().begin(), serie.punti().end(),
                            [valore](const Punto& punto) { return punto.presente && punto.valore == valore; });
    };
    ASSERT_NE(trova(1000.0), serie.punti().end()) << "the peak is lost";
    EXPECT_EQ(trova(1000.0)->tempo, 123457.0);
    ASSERT_NE(trova(-1000.0), serie.punti().end()) << "the dip is lost";
    EXPECT_EQ(trova(-1000.0)->tempo, 765433.0);
    EXPECT_TRUE(std::is_sorted(serie.punti().begin(), serie.punti().end(), [](const Punto& a, const Punto& b) {
        return a.tempo < b.tempo;
    })) << "the line runs back in time";
}

TEST(PlotSeries, StaysBoundedWhereEverySecondValueIsMissing) {
    Serie serie;
    for (int i = 0; i < 200000; ++i)
        serie.aggiungi(i, i % 2 == 0 ? std::optional<double>(i) : std::nullopt);
    EXPECT_LE(serie.punti().size(), 16384u);
    EXPECT_TRUE(std::any_of(serie.punti().begin(), serie.punti().end(), [](const Punto& p) { return !p.presente; }));
}

TEST(PlotSeries, ABreakOfAnyLengthIsOnePointAndNoneComesFirst) {
    Serie serie;
    for (const double valore : {-1.0, std::numeric_limits<double>::quiet_NaN()})
        serie.aggiungi(0, valore < 0 ? std::nullopt : std::optional(valore));
    EXPECT_TRUE(serie.punti().empty());
    EXPECT_TRUE(serie.vuota());
    serie.aggiungi(1, 5);
    for (int i = 2; i < 10; ++i)
        serie.aggiungi(i, std::nullopt);
    serie.aggiungi(10, 5);
    EXPECT_EQ(serie.punti().size(), 3u);
    EXPECT_FALSE(serie.vuota());
    EXPECT_EQ(serie.minimo(), 5.0);
    EXPECT_EQ(serie.massimo(), 5.0);
}

TEST(PlotTrack, IsInMetresFromItsFirstPoint) {
    Traccia traccia;
    traccia.aggiungi(10, 60, 0);
    traccia.aggiungi(10.001, 60.001, 0);
    ASSERT_EQ(traccia.punti().size(), 2u);
    EXPECT_NEAR(traccia.punti()[1].nord, 111.195, 1e-6);
    EXPECT_NEAR(traccia.punti()[1].est, 111.195 / 2, 1e-6) << "at 60 degrees a degree of longitude is half as long";
}

TEST(PlotTrack, StaysBoundedAndKeepsItsBreaks) {
    Traccia traccia;
    for (int i = 0; i < 300000; ++i) {
        if (i % 100000 == 50000)
            traccia.interrompi();
        traccia.aggiungi(10 + i * 1e-6, 44, 0);
    }
    EXPECT_LE(traccia.punti().size(), 16384u);
    EXPECT_EQ(std::count_if(traccia.punti().begin(), traccia.punti().end(),
                            [](const PuntoTraccia& punto) { return !punto.presente; }),
              3);
    EXPECT_EQ(traccia.punti().front().est, 0.0);
}

TEST(PlotRaster, BrailleBitsStandWhereTheirDotsAre) {
    Raster raster(1, 1, true);
    Foglio foglio(1, 1);
    raster.linea(0, 0, 1, 3);
    raster.stampa(foglio, 0, 0);
    // Dots 7, 3, 5 and 4 of the pattern: lower left, above it, right of the middle, upper right.
    EXPECT_EQ(foglio.testo(), "\u285C\n");
}

TEST(PlotRaster, AsciiHasTwoDotsACharacter) {
    Raster raster(3, 1, false);
    raster.linea(0, 0, 0, 0);
    raster.linea(1, 1, 1, 1);
    raster.linea(2, 0, 2, 1);
    Foglio foglio(3, 1);
    raster.stampa(foglio, 0, 0);
    EXPECT_EQ(foglio.testo(), ".':\n");
}

TEST(PlotRaster, DrawsOnlyWhatLiesOnIt) {
    Raster raster(2, 1, false);
    raster.linea(-5, -5, 9, 9);
    Foglio foglio(2, 1);
    raster.stampa(foglio, 0, 0);
    EXPECT_EQ(foglio.testo(), ".'\n");
}

Grafico conPannelli(std::size_t quanti) {
    Grafico grafico;
    grafico.asse = "time, s";
    for (std::size_t i = 0; i < quanti; ++i) {
        grafico.pannelli.push_back({"Series " + std::to_string(i), "V", {}});
        grafico.pannelli.back().serie.aggiungi(0, 1);
        grafico.pannelli.back().serie.aggiungi(1, 2);
    }
    return grafico;
}

std::pair<std::size_t, std::size_t> misure(const std::string& testo) {
    std::size_t larghezza = 0;
    std::size_t righe = 0;
    for (std::size_t da = 0; da < testo.size(); ++righe) {
        const std::size_t a = testo.find('\n', da);
        larghezza = std::max(larghezza, a - da);
        da = a + 1;
    }
    return {larghezza, righe};
}

TEST(PlotTerminal, FillsTheTerminal) {
    for (const auto& [colonne, righe] : {std::pair{80, 20}, std::pair{120, 50}, std::pair{200, 23}}) {
        const auto [larghezza, altezza] = misure(disegnoTerminale(conPannelli(1), {colonne, righe, false}));
        EXPECT_EQ(larghezza, static_cast<std::size_t>(colonne));
        EXPECT_EQ(altezza, static_cast<std::size_t>(righe));
    }
}

TEST(PlotTerminal, GrowsDownwardsWhereThereAreMorePanelsThanFit) {
    const std::string testo = disegnoTerminale(conPannelli(30), {80, 20, false});
    EXPECT_EQ(misure(testo).second, 1u + 30 * 4 + 2) << "three lines and a name each, a title and the axis";
    EXPECT_NE(testo.find("Series 29"), std::string::npos);
}

TEST(PlotTerminal, BearsATerminalOfAnySize) {
    for (int colonne = 0; colonne < 60; ++colonne)
        for (int righe = 0; righe < 12; ++righe)
            for (const bool utf8 : {false, true}) {
                Grafico grafico = conPannelli(2);
                EXPECT_FALSE(disegnoTerminale(grafico, {colonne, righe, utf8}).empty());
                grafico.traccia.aggiungi(10, 44, 0);
                grafico.traccia.aggiungi(10.01, 44, 0);
                EXPECT_FALSE(disegnoTerminale(grafico, {colonne, righe, utf8}).empty());
                grafico.pannelli.clear();
                EXPECT_FALSE(disegnoTerminale(grafico, {colonne, righe, utf8}).empty());
            }
}

}  // namespace
