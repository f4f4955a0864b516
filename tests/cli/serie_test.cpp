// What is kept of a series to be drawn, held against all that was put in.
#include "plots/serie.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

using namespace kel::strumento;

struct Misura {
    double x = 0;
    std::optional<double> valore;
};

// A series that can be made twice: nothing of it has to be stored.
struct Andamento {
    const char* nome;
    std::function<std::optional<double>(std::mt19937_64&, std::size_t)> valore;
    std::function<double(std::mt19937_64&)> passo;
};

void percorri(const Andamento& andamento, std::uint64_t seme, std::size_t quante,
              const std::function<void(const Misura&)>& fai) {
    std::mt19937_64 caso(seme);
    double x = 1000;
    for (std::size_t i = 0; i < quante; ++i) {
        fai({x, andamento.valore(caso, i)});
        x += andamento.passo(caso);
    }
}

double tra(std::mt19937_64& caso, double da, double a) {
    return da + (a - da) * static_cast<double>(caso() >> 11) / 9007199254740992.0;  // 2 to the power of 53
}

std::vector<Andamento> andamenti() {
    const auto costante = [](std::mt19937_64&) { return 0.04; };
    const auto incerto = [](std::mt19937_64& caso) { return tra(caso, 1e-6, 0.08); };
    const auto a_salti = [](std::mt19937_64& caso) { return caso() % 1000 == 0 ? tra(caso, 1, 60) : 0.04; };
    return {
        {"noise", [](std::mt19937_64& caso, std::size_t) { return std::optional(tra(caso, -5, 5)); }, costante},
        {"steps with breaks",
         [](std::mt19937_64& caso, std::size_t i) -> std::optional<double> {
             if (caso() % 37 == 0)
                 return std::nullopt;
             return static_cast<double>(i / 777 % 7);
         },
         incerto},
        {"every second value missing",
         [](std::mt19937_64& caso, std::size_t i) -> std::optional<double> {
             const double valore = tra(caso, 0, 1);
             return i % 2 == 0 ? std::optional(valore) : std::nullopt;
         },
         costante},
        {"rare peaks, long breaks, pauses",
         [](std::mt19937_64& caso, std::size_t i) -> std::optional<double> {
             const auto uno = caso();
             if (i / 5000 % 5 == 3)
                 return std::numeric_limits<double>::quiet_NaN();
             return uno % 50000 == 0 ? static_cast<double>(uno % 1000) : std::sin(static_cast<double>(i) / 300);
         },
         a_salti},
    };
}

// What a stretch holds by the plainest reckoning.
struct Tratto {
    double numero = -1;
    double primo = 0, ultimo = 0, minimo = 0, massimo = 0;

    void aggiungi(double valore) {
        ultimo = valore;
        minimo = std::min(minimo, valore);
        massimo = std::max(massimo, valore);
    }
};

template <typename Fai>
void a_tratti(const std::vector<Punto>& punti, double origine, double tratto, Fai fai) {
    Tratto uno;
    for (const Punto& punto : punti) {
        const double numero = std::floor((punto.x - origine) / tratto);
        if (numero != uno.numero) {
            if (uno.numero >= 0)
                fai(uno);
            uno = {numero, punto.valore, punto.valore, punto.valore, punto.valore};
        }
        uno.aggiungi(punto.valore);
    }
    if (uno.numero >= 0)
        fai(uno);
}

// Every stretch begins, ends and reaches as far as all its values do, no other has a point; and a point is joined to the
// one before exactly where no value is missing between them.
void confronta(const Andamento& andamento, std::uint64_t seme, std::size_t quante) {
    SCOPED_TRACE(std::string(andamento.nome) + ", seed " + std::to_string(seme) + ", " + std::to_string(quante) +
                 " values");
    Serie serie;
    percorri(andamento, seme, quante, [&](const Misura& m) { serie.aggiungi(m.x, m.valore); });
    const std::vector<Punto>& punti = serie.punti();
    ASSERT_LE(punti.size(), 16384u);
    const double tratto = serie.tratto() > 0 ? serie.tratto() : 1e-9;
    std::vector<Tratto> disegnati;
    if (!punti.empty())
        a_tratti(punti, punti.front().x, tratto, [&](const Tratto& t) { disegnati.push_back(t); });

    Tratto vero;
    std::size_t tratti = 0;
    std::size_t punto = 0;
    bool rotto = true;
    double origine = 0;
    std::size_t sbagliati = 0;
    const auto chiudi = [&] {
        const bool c_e = tratti < disegnati.size();
        const Tratto& d = c_e ? disegnati[tratti] : vero;
        sbagliati += !c_e || d.numero != vero.numero || d.primo != vero.primo || d.ultimo != vero.ultimo ||
                     d.minimo != vero.minimo || d.massimo != vero.massimo;
        ++tratti;
    };
    std::size_t rotture_sbagliate = 0;
    percorri(andamento, seme, quante, [&](const Misura& m) {
        if (!m.valore || !std::isfinite(*m.valore)) {
            rotto = true;
            return;
        }
        if (vero.numero < 0)
            origine = m.x;
        const double numero = std::floor((m.x - origine) / tratto);
        if (numero != vero.numero) {
            if (vero.numero >= 0)
                chiudi();
            vero = {numero, *m.valore, *m.valore, *m.valore, *m.valore};
        }
        vero.aggiungi(*m.valore);
        if (punto < punti.size() && punti[punto].x == m.x) {
            rotture_sbagliate += punti[punto].staccato != rotto || punti[punto].valore != *m.valore;
            rotto = false;
            ++punto;
        }
    });
    if (vero.numero >= 0)
        chiudi();
    EXPECT_EQ(sbagliati, 0u) << "stretches whose envelope is not the true one";
    EXPECT_EQ(tratti, disegnati.size()) << "stretches with values, and stretches drawn";
    EXPECT_EQ(punto, punti.size()) << "points that were never put in";
    EXPECT_EQ(rotture_sbagliate, 0u) << "points joined over a break, or apart without one";
    if (serie.tratto() > 0) {
        EXPECT_LE(serie.tratto(), (punti.back().x - punti.front().x) / 2047) << "stretches too wide for a screen";
    }
}

TEST(PlotSeries, IsTheTrueEnvelopeAtAnyLength) {
    std::uint64_t seme = 20261122;
    for (const Andamento& andamento : andamenti())
        for (const std::size_t quante :
             {0u, 1u, 2u, 3u, 1000u, 16383u, 16384u, 16385u, 16400u, 33000u, 90000u, 300000u, 1000000u})
            confronta(andamento, ++seme, quante);
}

TEST(PlotSeries, IsTheTrueEnvelopeOfTenMillionValues) {
    confronta(andamenti()[3], 7, 10000000);
}

// An hour at 25 values a second: all of it is drawn alike, the first minutes as the last.
TEST(PlotSeries, DoesNotDecayAsTheRecordingGrows) {
    Serie serie;
    constexpr int QUANTI = 90000;
    for (int i = 0; i < QUANTI; ++i)
        serie.aggiungi(i * 0.04, i / 50 % 2);
    int salti[10] = {};
    double prima = 0;
    for (const Punto& punto : serie.punti()) {
        salti[std::min(9, static_cast<int>(punto.x / (QUANTI * 0.04) * 10))] += punto.valore != prima;
        prima = punto.valore;
    }
    for (const int uno : salti)
        EXPECT_NEAR(uno, QUANTI / 50 / 10, 1) << "steps in a tenth of the recording";
}

TEST(PlotSeries, AStepStaysAStepAndAPeakItsValue) {
    Serie serie;
    for (int i = 0; i < 1000000; ++i)
        serie.aggiungi(i, i == 123457 ? 1000.0 : i < 500000 ? 0.0 : 10.0);
    EXPECT_EQ(serie.massimo(), 1000.0);
    EXPECT_EQ(serie.minimo(), 0.0);
    const auto& punti = serie.punti();
    const auto picco = std::find_if(punti.begin(), punti.end(), [](const Punto& p) { return p.valore == 1000.0; });
    ASSERT_NE(picco, punti.end());
    EXPECT_EQ(picco->x, 123457.0);
    const auto gradino = std::find_if(punti.begin(), punti.end(), [](const Punto& p) { return p.valore == 10.0; });
    ASSERT_NE(gradino, punti.end());
    EXPECT_LE(gradino->x - (gradino - 1)->x, serie.tratto());
}

TEST(PlotSeries, ABreakOfAnyLengthIsOneAndNoneComesFirst) {
    Serie serie;
    serie.aggiungi(0, std::nullopt);
    serie.aggiungi(0.5, std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(serie.vuota());
    serie.aggiungi(1, 5);
    for (int i = 2; i < 10; ++i)
        serie.aggiungi(i, std::nullopt);
    serie.aggiungi(10, 5);
    serie.aggiungi(11, 5);
    ASSERT_EQ(serie.punti().size(), 3u);
    EXPECT_TRUE(serie.punti()[1].staccato);
    EXPECT_FALSE(serie.punti()[2].staccato);
}

TEST(PlotSeries, BearsAnyAxis) {
    for (const double passo : {0.0, 1e-300, 1e-12, 1.0, 1e9, 1e300}) {
        Serie serie;
        for (int i = 0; i < 40000; ++i)
            serie.aggiungi(i * passo, i % 9);
        serie.aggiungi(40001 * passo + 1e13, 3);
        EXPECT_LE(serie.punti().size(), 16384u);
        EXPECT_EQ(serie.massimo(), 8.0);
    }
}

}  // namespace
