// How a plot becomes dots and characters, and where records stand on its axis.
#include "plots/grafico.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "plots/grafico_terminale.h"
#include "plots/percorso.h"
#include "plots/raster.h"
#include "plots/tacche.h"
#include "text/durata.h"
#include "text/errori.h"
#include "text/larghezza.h"
#include "text/parole.h"

namespace {

using namespace kel::strumento;

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

Grafico con_pannelli(std::size_t quanti) {
    Grafico grafico;
    for (std::size_t i = 0; i < quanti; ++i) {
        grafico.pannelli.push_back(pannello_singolo("Series " + std::to_string(i), "V"));
        grafico.pannelli.back().curve.front().serie.aggiungi(0, 1);
        grafico.pannelli.back().curve.front().serie.aggiungi(100, 2);
    }
    return grafico;
}

std::vector<std::string> righe(const std::string& testo) {
    return dividi(std::string_view(testo).substr(0, testo.size() - 1), '\n');
}

int larghezza(const std::string& testo) {
    int massima = 0;
    for (const std::string& riga : righe(testo))
        massima = std::max(massima, larghezza_testo(riga));
    return massima;
}

Terminale terminale(int colonne, int alto, bool utf8 = false, bool cresce = false) {
    return {colonne, alto, utf8, cresce};
}

TEST(PlotTerminal, FillsTheTerminal) {
    for (const auto& [colonne, alto] : {std::pair{80, 20}, std::pair{120, 50}, std::pair{200, 23}, std::pair{20, 10}}) {
        const std::string testo = disegno_terminale(con_pannelli(1), terminale(colonne, alto)).testo;
        EXPECT_EQ(larghezza(testo), colonne);
        EXPECT_EQ(righe(testo).size(), static_cast<std::size_t>(alto));
    }
}

TEST(PlotTerminal, SaysWhichPanelsHaveNoRoom) {
    const DisegnoTerminale disegno = disegno_terminale(con_pannelli(9), terminale(80, 20));
    EXPECT_EQ(righe(disegno.testo).size(), 20u);
    ASSERT_EQ(disegno.note.size(), 1u);
    EXPECT_EQ(disegno.note[0].nomi, (std::vector<std::string>{"Series 6", "Series 7", "Series 8"}));
    EXPECT_NE(disegno.testo.find("Series 5"), std::string::npos);
    EXPECT_EQ(disegno.testo.find("Series 6"), std::string::npos);
}

TEST(PlotTerminal, GrowsDownwardsWhereEveryPanelWasAskedFor) {
    const DisegnoTerminale disegno = disegno_terminale(con_pannelli(30), terminale(80, 20, false, true));
    EXPECT_EQ(righe(disegno.testo).size(), 30u * 4 + 2) << "three lines and a name each, and the axis";
    EXPECT_NE(disegno.testo.find("Series 29"), std::string::npos);
    EXPECT_TRUE(disegno.note.empty());
}

// Words in their order, without the curves between them.
std::string parole(const std::string& testo) {
    std::string tutte;
    for (const char c : testo)
        if (c != ' ' && c != '\n')
            tutte += c;
    return tutte;
}

TEST(PlotTerminal, CutsNoTextWhateverItsSize) {
    const std::string nome = "Temp\u00e9rature des freins \u3072\u304b avant gauche";
    for (int colonne = 16; colonne < 90; ++colonne)
        for (const int alto : {5, 10, 24, 50})
            for (const bool utf8 : {false, true}) {
                SCOPED_TRACE(std::to_string(colonne) + " by " + std::to_string(alto));
                Grafico grafico = con_pannelli(3);
                grafico.titolo = "una sessione di prova molto lunga.samples";
                grafico.pannelli[0].nome = nome;
                grafico.traccia.aggiungi(10, 44, 0);
                grafico.traccia.aggiungi(10.01, 44, 0);
                grafico.giri = {{0, "1"}, {50, "2"}};
                const DisegnoTerminale disegno = disegno_terminale(grafico, terminale(colonne, alto, utf8));
                ASSERT_LE(larghezza(disegno.testo), colonne);
                const std::string pagina = parole(disegno.testo);
                ASSERT_NE(pagina.find(parole(grafico.titolo)), std::string::npos) << disegno.testo;
                if (colonne < 60) {  // no track beside the name
                    const std::string atteso = utf8 ? parole(nome) + "V" : "Temp?raturedesfreins??avantgaucheV";
                    ASSERT_NE(pagina.find(atteso), std::string::npos) << disegno.testo;
                    ASSERT_TRUE(std::any_of(disegno.note.begin(), disegno.note.end(), [](const Nota& nota) {
                        return nota.prima.find("track") != std::string::npos;
                    }));
                }
                for (const Pannello& pannello : grafico.pannelli) {
                    const bool mostrato =
                        pannello.nome == nome || pagina.find(parole(pannello.nome)) != std::string::npos;
                    const bool detto = std::any_of(disegno.note.begin(), disegno.note.end(), [&](const Nota& nota) {
                        return std::find(nota.nomi.begin(), nota.nomi.end(), pannello.nome) != nota.nomi.end();
                    });
                    ASSERT_NE(mostrato, detto) << pannello.nome;
                }
            }
}

TEST(PlotTerminal, BearsATerminalOfAnySize) {
    for (int colonne = 0; colonne < 70; colonne += 3)
        for (int alto = -5; alto < 12; ++alto)
            for (const bool utf8 : {false, true}) {
                Grafico grafico = con_pannelli(2);
                EXPECT_FALSE(disegno_terminale(grafico, terminale(colonne, alto, utf8)).testo.empty());
                grafico.traccia.aggiungi(10, 44, 0);
                grafico.traccia.aggiungi(10.01, 44, 0);
                EXPECT_FALSE(disegno_terminale(grafico, terminale(colonne, alto, utf8)).testo.empty());
                grafico.pannelli.clear();
                EXPECT_FALSE(disegno_terminale(grafico, terminale(colonne, alto, utf8)).testo.empty());
            }
}

TEST(PlotTerminal, TellsSeveralCurvesApartByLetters) {
    Grafico grafico = con_pannelli(1);
    grafico.pannelli[0].curve.push_back({"Other", {}});
    grafico.pannelli[0].curve[1].serie.aggiungi(0, 2);
    grafico.pannelli[0].curve[1].serie.aggiungi(100, 1);
    const std::string testo = disegno_terminale(grafico, terminale(80, 12)).testo;
    EXPECT_NE(testo.find("Series 0 V: a Series 0, b Other"), std::string::npos) << testo;
    EXPECT_GT(std::count(testo.begin(), testo.end(), 'b'), 20);
}

TEST(PlotTerminal, DrawsANumberWithoutAUnitAsSteps) {
    Grafico grafico;
    grafico.pannelli.push_back(pannello_singolo("Gear", ""));
    for (int i = 0; i < 3; ++i)
        grafico.pannelli[0].curve[0].serie.aggiungi(i, i == 2 ? 2 : 1);
    const auto pagina = righe(disegno_terminale(grafico, terminale(40, 8)).testo);
    const std::string& sotto = pagina[pagina.size() - 3];
    EXPECT_EQ(std::count(sotto.begin(), sotto.end(), '.'), 33) << "level up to the jump: " << sotto;
    EXPECT_EQ(sotto.find(':'), 39u) << "and the jump at the end";
}

TEST(PlotTicks, HaveRoomAndEvenSteps) {
    for (const double durata : {0.1, 1.0, 7.0, 52.0, 147.0, 3600.0, 5999.0, 6001.0, 86400.0, 1e6})
        for (const double colonne : {14.0, 30.0, 70.0, 150.0})
            for (const Ascissa ascissa : {Ascissa::tempo, Ascissa::distanza, Ascissa::numero}) {
                Grafico grafico = con_pannelli(1);
                grafico.ascissa = ascissa;
                grafico.pannelli[0].curve[0].serie = Serie();
                grafico.pannelli[0].curve[0].serie.aggiungi(17, 1);
                grafico.pannelli[0].curve[0].serie.aggiungi(17 + durata, 2);
                const auto tutte = tacche(grafico, colonne, 1);
                ASSERT_FALSE(tutte.empty() && durata > 2 && colonne > 20) << durata << " on " << colonne;
                for (std::size_t i = 1; i < tutte.size(); ++i) {
                    const double fra = (tutte[i].x - tutte[i - 1].x) / durata * colonne;
                    ASSERT_GT(fra, static_cast<double>(tutte[i].testo.size() + tutte[i - 1].testo.size()) / 2);
                    ASSERT_NE(tutte[i].testo, tutte[i - 1].testo);
                }
                if (tutte.size() > 2) {
                    ASSERT_NEAR(tutte[2].x - tutte[1].x, tutte[1].x - tutte[0].x, 1e-9 * tutte[2].x);
                }
            }
}

TEST(PlotTicks, CountEachSessionsOwnTime) {
    Grafico grafico = con_pannelli(1);
    grafico.sessioni = {{0, 40, 0}, {60, 100, 60}};
    std::vector<std::string> testi;
    for (const Tacca& tacca : tacche(grafico, 70, 1))
        testi.push_back(tacca.testo);
    EXPECT_EQ(testi, (std::vector<std::string>{"0:00", "0:10", "0:20", "0:30", "0:40", "0:00", "0:10", "0:20", "0:30",
                                               "0:40"}));
}

TEST(PlotAxis, PutsSessionsOneAfterTheOther) {
    Percorso percorso({});
    for (const double tempo : {10.0, 11.0, 12.0})
        EXPECT_EQ(percorso.colloca(tempo, {}), tempo);
    EXPECT_TRUE(percorso.sessioni().empty());
    EXPECT_EQ(percorso.nota(), "");
    const auto primo = percorso.colloca(3, {});
    ASSERT_TRUE(primo);
    EXPECT_GT(*primo, 12.0);
    EXPECT_TRUE(percorso.nuova());
    EXPECT_TRUE(percorso.interrotto());
    EXPECT_EQ(percorso.colloca(4.5, {}), *primo + 1.5);
    EXPECT_FALSE(percorso.nuova());
    ASSERT_EQ(percorso.sessioni().size(), 2u);
    EXPECT_EQ(percorso.sessioni()[1].da, *primo);
    EXPECT_EQ(percorso.sessioni()[1].a, *primo + 1.5);
    EXPECT_EQ(*primo - percorso.sessioni()[1].scarto, 3.0);
    EXPECT_EQ(percorso.nota(), "time runs backwards at record 3: 2 sessions, drawn one after the other");
}

TEST(PlotAxis, ShowsThePartAskedForOfEverySession) {
    Tratto tratto;
    tratto.da = 2;
    tratto.a = 3;
    Percorso percorso(tratto);
    std::vector<double> posti;
    for (int sessione = 0; sessione < 2; ++sessione)
        for (int i = 0; i < 10; ++i)
            if (const auto x = percorso.colloca(i, {}))
                posti.push_back(*x);
    EXPECT_EQ(posti, (std::vector<double>{2, 3, 4, 5})) << "a gap of one behind the first";
}

TEST(PlotAxis, MakesDistancesOfSpeeds) {
    Tratto tratto;
    tratto.ascissa = Ascissa::distanza;
    Percorso percorso(tratto);
    EXPECT_EQ(percorso.colloca(0, {}), 0.0);
    EXPECT_EQ(percorso.colloca(1, 10), 0.0) << "nothing is known of the first second";
    EXPECT_EQ(percorso.colloca(2, 20), 15.0);
    EXPECT_EQ(percorso.colloca(3, {}), 35.0) << "the last speed holds";
    EXPECT_EQ(percorso.colloca(300, 20), 35.0) << "not over a pause";
    EXPECT_TRUE(percorso.interrotto());
    EXPECT_EQ(percorso.colloca(301, -50), 35.0) << "nor backwards";
}

TEST(PlotAxis, RefusesTimesThatAreNone) {
    Percorso percorso({});
    EXPECT_THROW(for (int i = 0; i < 5000; ++i) percorso.colloca(i % 2, {}), NonTrovato);
}

TEST(PlotNote, IsCutShortWithTheNumberOfNamesLeftOut) {
    const Nota nota{"not drawn: ", {"one", "two", "three"}, "; --all"};
    EXPECT_EQ(nota.testo(), "not drawn: one, two, three; --all");
    EXPECT_EQ(nota.testo(32), "not drawn: one and 2 more; --all");
    EXPECT_EQ(nota.testo(1), "not drawn: one and 2 more; --all");
}

TEST(Durations, AreWrittenAndRead) {
    EXPECT_EQ(testo_durata(0, 0, false), "0:00");
    EXPECT_EQ(testo_durata(59.96, 1, false), "1:00.0");
    EXPECT_EQ(testo_durata(3725.25, 2, false), "62:05.25");
    EXPECT_EQ(testo_durata(3725.25, 0, true), "1:02:05");
    EXPECT_EQ(testo_durata(-65, 0, false), "-1:05");
    EXPECT_EQ(leggi_durata("1:05.5"), 65.5);
    EXPECT_EQ(leggi_durata("1:02:05"), 3725.0);
    EXPECT_EQ(leggi_durata("90"), 90.0);
    EXPECT_EQ(leggi_durata(".5"), 0.5);
    for (const char* nessuna : {"", ":", "1:", ":5", "1:60", "1:2:3:4", "1.5:00", "-5", "1e3", "1:05 ", "inf", "."})
        EXPECT_FALSE(leggi_durata(nessuna)) << nessuna;
}

TEST(Widths, AreThoseOfATerminal) {
    EXPECT_EQ(larghezza_testo("abc"), 3);
    EXPECT_EQ(larghezza_testo("\u00e9e\u0301"), 2) << "a letter with its accent in one or two codes";
    EXPECT_EQ(larghezza_testo("\u3072\uff21"), 4);
    EXPECT_EQ(a_capo("one two three", 7), (std::vector<std::string>{"one two", "three"}));
    EXPECT_EQ(a_capo("abcdefgh", 3), (std::vector<std::string>{"abc", "def", "gh"}));
    EXPECT_EQ(a_capo("", 5), (std::vector<std::string>{""}));
}

}  // namespace
