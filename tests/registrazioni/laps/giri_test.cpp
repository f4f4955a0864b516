// Laps from fixes alone, on made-up tracks whose lap times are known.
#include "laps/giri.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "gps/wgs84.h"
#include "laps/andamento.h"
#include "laps/linea.h"
#include "laps/ricerca_linea.h"

namespace {

using namespace kel_registrazioni;

constexpr double LAT = 44.8231;
constexpr double LON = 10.4107;
constexpr double MINIMO = 10;

struct Stato {
    double est = 0, nord = 0;
};

using Moto = std::function<Stato(double)>;

// What a receiver would give of a movement over the plane around (LAT, LON); with Doppler it measures speeds, too.
struct Ricevitore {
    double frequenza = 10;
    double rumore = 0;
    bool doppler = true;
    std::function<bool(double)> ricezione = [](double) { return true; };

    std::vector<Fix> guarda(const Moto& moto, double da, double a) const {
        std::mt19937 caso(42);
        std::normal_distribution<double> errore(0, 1);
        const Geodetica origine{LAT, LON, 0};
        const Ecef o = ecef(origine);
        std::vector<Fix> fix;
        for (int i = 0; da + i / frequenza <= a; ++i) {
            Fix uno;
            uno.tempo = da + i / frequenza;
            const Stato qui = moto(uno.tempo);
            const Stato dopo = moto(uno.tempo + 1e-4);
            const double v_est = (dopo.est - qui.est) / 1e-4;
            const double v_nord = (dopo.nord - qui.nord) / 1e-4;
            const Ecef d =
                velocita_ecef(origine, {qui.est + rumore * errore(caso), qui.nord + rumore * errore(caso), 0});
            const Geodetica luogo = geodetica(o.x + d.x, o.y + d.y, o.z + d.z);
            uno.valido = ricezione(uno.tempo);
            uno.latitudine = luogo.latitudine;
            uno.longitudine = luogo.longitudine;
            if (doppler && uno.valido) {
                const VelocitaLocale v{v_est + 0.05 * errore(caso), v_nord + 0.05 * errore(caso), 0};
                uno.velocita = v.orizzontale();
                uno.rotta = v.rotta();
            }
            fix.push_back(uno);
        }
        return fix;
    }
};

// A circle of 100 m around (-100, 0), anticlockwise: it passes the origin towards the north once a lap. The kart drives
// unevenly: in the lap n it takes `durata(n)`.
Moto cerchio(std::function<double(int)> durata, double inizio = 0) {
    return [durata, inizio](double t) {
        double resto = t - inizio;
        int n = 0;
        for (; resto >= durata(n); ++n)
            resto -= durata(n);
        for (; resto < 0; --n)
            resto += durata(n - 1);
        // Slower and faster within the lap, as fast at its ends.
        const double parte = resto / durata(n);
        const double angolo = 2 * std::numbers::pi * parte + 0.3 * (std::cos(2 * std::numbers::pi * parte) - 1);
        return Stato{-100 + 100 * std::cos(angolo), 100 * std::sin(angolo)};
    };
}

// The part of a lap's time after which a part of the circle is driven.
double parte_del_giro(double parte_del_cerchio) {
    double prima = 0;
    double dopo = 1;
    while (dopo - prima > 1e-9) {
        const double meta = (prima + dopo) / 2;
        const double fatta = meta + 0.3 * (std::cos(2 * std::numbers::pi * meta) - 1) / (2 * std::numbers::pi);
        (fatta < parte_del_cerchio ? prima : dopo) = meta;
    }
    return prima;
}

double durata(int n) {
    return 30 + 0.731 * std::sin(n * 1.7);
}

// A line on that plane, passed in a direction.
Linea linea_in(double est, double nord, double rotta) {
    const Geodetica origine{LAT, LON, 0};
    const Ecef o = ecef(origine);
    const Ecef d = velocita_ecef(origine, {est, nord, 0});
    const Geodetica luogo = geodetica(o.x + d.x, o.y + d.y, o.z + d.z);
    return {luogo.latitudine, luogo.longitudine, rotta, Linea::LARGHEZZA};
}

const Linea TRAGUARDO{LAT, LON, 0, Linea::LARGHEZZA};

std::string stati(const std::vector<Giro>& giri) {
    std::string testo;
    for (const Giro& giro : giri)
        testo += (testo.empty() ? "" : ", ") + std::to_string(giro.numero) +
                 (giro.stato == StatoGiro::buono ? "" : " " + std::string(nome(giro.stato)));
    return testo;
}

std::vector<Giro> conta(std::vector<Fix> fix, const Linea& linea = TRAGUARDO) {
    const Guida guida(std::move(fix));
    auto tutti = giri(guida, passaggi(guida, linea, MINIMO));
    misura(tutti, guida);
    return tutti;
}

void vicini(const std::vector<Giro>& giri, double tolleranza_ms, int primo = 0) {
    for (const Giro& giro : giri) {
        if (giro.ms) {
            EXPECT_NEAR(*giro.ms, durata(primo + giro.numero - 1) * 1000, tolleranza_ms) << "lap " << giro.numero;
        }
    }
}

TEST(Laps, OfACircleAreExactAtAnyRate) {
    for (const double frequenza : {1.0, 5.0, 10.0, 25.0, 100.0}) {
        const auto giri = conta(Ricevitore{frequenza}.guarda(cerchio(durata), -7, 200));
        EXPECT_EQ(stati(giri), "0 out, 1, 2, 3, 4, 5, 6, 7 in") << frequenza;
        vicini(giri, frequenza == 1 ? 10 : 2);
        EXPECT_NEAR(giri[1].metri.value_or(0), 2 * std::numbers::pi * 100, 2);
        EXPECT_NEAR(static_cast<double>(giri[1].campioni), 30 * frequenza, frequenza + 1);
    }
}

TEST(Laps, WithoutDopplerAreAsMany) {
    const auto giri = conta(Ricevitore{10, 0, false}.guarda(cerchio(durata), -7, 200));
    EXPECT_EQ(stati(giri), "0 out, 1, 2, 3, 4, 5, 6, 7 in");
    vicini(giri, 2);
    EXPECT_NEAR(giri[1].metri.value_or(0), 2 * std::numbers::pi * 100, 2);
}

TEST(Laps, AreCountedOnceUnderAMetreOfNoise) {
    for (const bool doppler : {true, false})
        for (const double frequenza : {1.0, 10.0, 25.0}) {
            const auto giri = conta(Ricevitore{frequenza, 1, doppler}.guarda(cerchio(durata), -7, 600));
            EXPECT_EQ(giri.size(), 21u) << frequenza << " Hz, Doppler " << doppler << ": " << stati(giri);
            vicini(giri, 250);
        }
}

TEST(Laps, SpeedsAreTheTopAndTheLeastOfEachLap) {
    for (const double secondi : {30.0, 40.0}) {
        const auto giri = conta(Ricevitore{25}.guarda(cerchio([secondi](int) { return secondi; }), -7, 100));
        const double media = 2 * std::numbers::pi * 100 / secondi;
        ASSERT_GE(giri.size(), 3u);
        EXPECT_NEAR(giri[1].massima.value_or(0), media * 1.3, 0.3);
        EXPECT_NEAR(giri[1].minima.value_or(0), media * 0.7, 0.3);
    }
}

TEST(Laps, OfAFigureEightAreTakenInOneDirectionOnly) {
    // The track crosses itself at the origin at right angles; only one branch goes north-east.
    const Moto otto = [](double t) {
        const double a = 2 * std::numbers::pi * (t - 5) / 40;
        return Stato{150 * std::sin(a), 75 * std::sin(2 * a)};
    };
    const auto giri = conta(Ricevitore{10, 0.3}.guarda(otto, 0, 190), {LAT, LON, 45, 30});
    EXPECT_EQ(stati(giri), "0 out, 1, 2, 3, 4, 5 in");
    for (const Giro& giro : giri) {
        if (giro.ms) {
            EXPECT_NEAR(*giro.ms, 40000, 80);
        }
    }
}

TEST(Laps, WithoutAFixAreMarkedAndDoNotCount) {
    Ricevitore ricevitore;
    // Lost at the line between laps 2 and 3, and for four seconds on the far side of lap 5.
    const double al_traguardo = durata(0) + durata(1);
    const double lontano = durata(0) + durata(1) + durata(2) + durata(3) + 15;
    ricevitore.ricezione = [=](double t) { return std::fabs(t - al_traguardo) > 1.5 && std::fabs(t - lontano) > 2; };
    const auto giri = conta(ricevitore.guarda(cerchio(durata), -7, 200));
    EXPECT_EQ(stati(giri), "0 out, 1, 2 no fix, 3 no fix, 4, 5 no fix, 6, 7 in");
    EXPECT_NEAR(giri[5].ms.value_or(0), durata(4) * 1000, 2) << "its time is good all the same";
    ASSERT_NE(migliore(giri), nullptr);
    EXPECT_EQ(migliore(giri)->numero, 4);
}

TEST(Laps, AFixLostForAMomentChangesNothing) {
    Ricevitore ricevitore;
    ricevitore.ricezione = [](double t) { return std::fmod(t + 70, 7) > 0.4; };
    const auto giri = conta(ricevitore.guarda(cerchio(durata), -7, 200));
    EXPECT_EQ(stati(giri), "0 out, 1, 2, 3, 4, 5, 6, 7 in");
    vicini(giri, 20);
}

// Moves along the circle as a function of time tells: laps driven.
Moto lungo_il_cerchio(std::function<double(double)> giri_fatti) {
    return [giri_fatti](double t) {
        const double angolo = 2 * std::numbers::pi * giri_fatti(t);
        return Stato{-100 + 100 * std::cos(angolo), 100 * std::sin(angolo)};
    };
}

TEST(Laps, StandingOnTheLineIsOnePassage) {
    // Two laps of 30 s, a minute on the line, two more.
    const auto sosta = [](double t) { return t < 60 ? t / 30 : t < 120 ? 2 : 2 + (t - 120) / 30; };
    for (const bool doppler : {true, false}) {
        const auto giri = conta(Ricevitore{10, 1, doppler}.guarda(lungo_il_cerchio(sosta), -7, 187));
        EXPECT_EQ(giri.size(), 6u) << stati(giri);
        EXPECT_EQ(giri[1].stato, StatoGiro::buono);
        EXPECT_NE(giri[2].stato, StatoGiro::buono) << "it ends, or does not end, by standing";
        EXPECT_NE(giri[3].stato, StatoGiro::buono) << "it begins from standing";
        ASSERT_NE(migliore(giri), nullptr);
        EXPECT_NEAR(*migliore(giri)->ms, 30000, 250);
    }
}

TEST(Laps, WithAStopOnTheWayAreMarked) {
    const auto sosta = [](double t) { return t < 45 ? t / 30 : t < 65 ? 1.5 : 1.5 + (t - 65) / 30; };
    const auto giri = conta(Ricevitore{10, 0.3}.guarda(lungo_il_cerchio(sosta), -7, 127));
    EXPECT_EQ(stati(giri), "0 out, 1, 2 stopped, 3, 4 in");
}

TEST(Laps, TheLinePassedBackwardsClosesNone) {
    // 20 m beyond the line, back 40 m, and on again.
    const double metro = 1 / (2 * std::numbers::pi * 100);
    const auto indietro = [metro](double t) {
        if (t < 61)
            return t / 30;
        const double la = 61.0 / 30;
        return t < 71 ? la - 4 * metro * (t - 61) : la - 40 * metro + (t - 71) / 30;
    };
    const auto giri = conta(Ricevitore{10, 0.3}.guarda(lungo_il_cerchio(indietro), -7, 137));
    EXPECT_EQ(stati(giri), "0 out, 1, 2, 3 wrong way, 4, 5, 6 in") << "12 s later it is passed again";
    // All the way round the other way there is no lap at all.
    EXPECT_EQ(conta(Ricevitore{10}.guarda(lungo_il_cerchio([](double t) { return -t / 30; }), -7, 137)).size(), 0u);
}

TEST(Laps, TwoPassagesWithinSecondsAreOne) {
    const double metro = 1 / (2 * std::numbers::pi * 100);
    const auto avanti_e_indietro = [metro](double t) {
        if (t < 60.7)
            return t / 30;
        const double la = 60.7 / 30;
        return t < 63.7 ? la - 10 * metro * (t - 60.7) : la - 30 * metro + (t - 63.7) / 30;
    };
    const Guida guida(Ricevitore{10, 0.1}.guarda(lungo_il_cerchio(avanti_e_indietro), -7, 137));
    const Passaggi trovati = passaggi(guida, TRAGUARDO, MINIMO);
    EXPECT_EQ(trovati.avanti.size(), 5u);
    EXPECT_EQ(trovati.indietro.size(), 1u);
    EXPECT_EQ(trovati.scartati, 1u);
}

TEST(Laps, ARecordingThatBeginsInTheMiddleBeginsWithAnOutLap) {
    const auto giri = conta(Ricevitore{10}.guarda(cerchio(durata), 41, 130));
    EXPECT_EQ(stati(giri), "0 out, 1, 2, 3 in");
    vicini(giri, 2, 2);
}

TEST(Laps, ThatAreNotClosedAreNone) {
    EXPECT_EQ(conta({}).size(), 0u);
    EXPECT_EQ(conta(Ricevitore{10}.guarda(cerchio(durata), 2, 28)).size(), 0u);
    EXPECT_EQ(stati(conta(Ricevitore{10}.guarda(cerchio(durata), 2, 50))), "0 out, 1 in");
    EXPECT_EQ(migliore(conta(Ricevitore{10}.guarda(cerchio(durata), 2, 50))), nullptr);
}

TEST(Laps, OfSessionsThatAreJoinedDoNotReachAcross) {
    auto fix = Ricevitore{10}.guarda(cerchio(durata), -7, 100);
    const auto seconda = Ricevitore{10}.guarda(cerchio(durata), -7, 100);
    fix.insert(fix.end(), seconda.begin(), seconda.end());
    EXPECT_EQ(stati(conta(fix)), "0 out, 1, 2, 3, 4 in, 5 out, 6, 7, 8, 9 in");
}

TEST(Laps, ThatEndRightBehindTheLineAreClosed) {
    const double fine = durata(0) + durata(1) + 0.15;
    EXPECT_EQ(stati(conta(Ricevitore{10}.guarda(cerchio(durata), -7, fine))), "0 out, 1, 2, 3 in");
}

TEST(Sectors, AddUpToTheLapWhateverTheirOrder) {
    const Guida guida(Ricevitore{10}.guarda(cerchio([](int) { return 30.0; }), -7, 130));
    auto tutti = giri(guida, passaggi(guida, TRAGUARDO, MINIMO));
    const Linea sud = linea_in(-100, -100, 90);
    const Linea nord = linea_in(-100, 100, 270);
    dividi(tutti, guida, std::vector{sud, nord});
    ASSERT_EQ(stati(tutti), "0 out, 1, 2, 3, 4, 5 in");
    for (const Giro& giro : tutti) {
        ASSERT_EQ(giro.settori.size(), 3u);
        if (!giro.ms)
            continue;
        ASSERT_TRUE(giro.settori[0] && giro.settori[1] && giro.settori[2]);
        EXPECT_EQ(*giro.settori[0] + *giro.settori[1] + *giro.settori[2], *giro.ms);
        EXPECT_NEAR(*giro.settori[0], 30000 * parte_del_giro(0.25), 3);
        EXPECT_NEAR(*giro.settori[1], 30000 * (parte_del_giro(0.75) - parte_del_giro(0.25)), 3);
    }
    // A line that no lap passes.
    dividi(tutti, guida, std::vector{sud, linea_in(500, 500, 90)});
    EXPECT_TRUE(tutti[1].settori[0]);
    EXPECT_FALSE(tutti[1].settori[1]);
    EXPECT_FALSE(tutti[1].settori[2]);
}

// The time at a distance, between the points around it; nothing outside of the lap and where the way is not known.
std::optional<double> tempo_a(const std::vector<PuntoGiro>& punti, double metri) {
    for (std::size_t i = 1; i < punti.size(); ++i) {
        const PuntoGiro& prima = punti[i - 1];
        if (metri < prima.metri || metri > punti[i].metri)
            continue;
        if (punti[i].staccato && metri < punti[i].metri)
            return std::nullopt;
        return std::lerp(prima.secondi, punti[i].secondi, (metri - prima.metri) / (punti[i].metri - prima.metri));
    }
    return std::nullopt;
}

TEST(LapsOverDistance, LoseOverTheirWholeWayWhatTheyLoseInTime) {
    const auto giri_lenti = [](int n) { return n == 1 ? 33.0 : 30.0; };
    const Guida guida(Ricevitore{10}.guarda(cerchio(giri_lenti), -7, 100));
    auto tutti = giri(guida, passaggi(guida, TRAGUARDO, MINIMO));
    misura(tutti, guida);
    ASSERT_EQ(stati(tutti), "0 out, 1, 2, 3, 4 in");
    const double lunghezza = *tutti[1].metri;
    const auto primo = andamento(tutti[1], guida, lunghezza);
    const auto lento = andamento(tutti[2], guida, lunghezza);
    for (const auto* punti : {&primo, &lento}) {
        EXPECT_EQ(punti->front().metri, 0);
        EXPECT_NEAR(punti->back().metri, lunghezza, 1e-6);
        EXPECT_TRUE(std::is_sorted(punti->begin(), punti->end(),
                                   [](const PuntoGiro& a, const PuntoGiro& b) { return a.metri < b.metri; }));
    }
    // A tenth slower everywhere: at each place a tenth of the time has been lost.
    for (double m = 20; m < lunghezza; m += 20) {
        const auto suo = tempo_a(primo, m);
        const auto altro = tempo_a(lento, m);
        ASSERT_TRUE(suo && altro) << m;
        EXPECT_NEAR(*altro - *suo, 0.1 * *suo, 0.02) << m;
    }
    EXPECT_NEAR(*tempo_a(lento, lunghezza) - *tempo_a(primo, lunghezza), 3, 0.002);
    EXPECT_TRUE(andamento(tutti[0], guida, lunghezza).empty()) << "what is driven out is no lap";
}

TEST(LapsOverDistance, WithoutAFixForAWhileAreRightOnBothSidesOfIt) {
    Ricevitore ricevitore;
    ricevitore.ricezione = [](double t) { return t < 40 || t > 46; };
    const Guida guida(ricevitore.guarda(cerchio([](int) { return 30.0; }), -7, 100));
    auto tutti = giri(guida, passaggi(guida, TRAGUARDO, MINIMO));
    misura(tutti, guida);
    ASSERT_EQ(stati(tutti), "0 out, 1, 2 no fix, 3, 4 in");
    const auto intero = andamento(tutti[1], guida, *tutti[1].metri);
    const auto bucato = andamento(tutti[2], guida, *tutti[1].metri);
    int mancanti = 0;
    for (double m = 20; m < *tutti[1].metri; m += 20) {
        const auto altro = tempo_a(bucato, m);
        mancanti += altro ? 0 : 1;
        EXPECT_NEAR(altro.value_or(*tempo_a(intero, m)) - *tempo_a(intero, m), 0, 0.05) << m;
    }
    EXPECT_GE(mancanti, 3);
    EXPECT_LE(mancanti, 10);
}

TEST(FinishLine, IsFoundWhereTheTrackPassesMostOftenAtSpeed) {
    for (const double frequenza : {1.0, 10.0}) {
        const Guida guida(Ricevitore{frequenza, 0.5}.guarda(cerchio(durata), -7, 200));
        const auto trovata = cerca_linea(guida, MINIMO);
        ASSERT_TRUE(trovata);
        EXPECT_EQ(trovata->volte, 7u);
        const auto tutti = giri(guida, passaggi(guida, trovata->linea, MINIMO));
        for (const Giro& giro : tutti) {
            if (giro.ms) {
                EXPECT_NEAR(*giro.ms, 30000, 1000);
            }
        }
        EXPECT_EQ(testo(*leggi_linea(testo(trovata->linea))), testo(trovata->linea));
    }
}

// The kart is fastest after three quarters of its time, where it has driven 0.75 - 0.15 / pi of the circle.
TEST(FinishLine, LiesAcrossTheFastestPlace) {
    const Guida guida(Ricevitore{10}.guarda(cerchio([](int) { return 30.0; }), -7, 200));
    const auto trovata = cerca_linea(guida, MINIMO);
    ASSERT_TRUE(trovata);
    const double angolo = 2 * std::numbers::pi * (0.75 - 0.15 / std::numbers::pi);
    const LineaPiana attesa = guida.linea(linea_in(-100 + 100 * std::cos(angolo), 100 * std::sin(angolo), 107.2));
    const LineaPiana piana = guida.linea(trovata->linea);
    EXPECT_LT(std::hypot(piana.centro.est - attesa.centro.est, piana.centro.nord - attesa.centro.nord), 25);
    EXPECT_NEAR(trovata->linea.rotta, 107.2, 15);
    EXPECT_NEAR(trovata->velocita, 1.3 * 2 * std::numbers::pi * 100 / 30, 0.2);
    EXPECT_EQ(trovata->linea.larghezza, 30);
    EXPECT_EQ(trovata->volte, 7u);
    const LineaPiana cerchio_suo = guida.linea(linea_in(-100, 0, 0));
    EXPECT_NEAR(std::hypot(piana.centro.est - cerchio_suo.centro.est, piana.centro.nord - cerchio_suo.centro.nord), 100,
                0.3)
        << "in the middle of the track";
}

// On a circle at one speed every place is as good as another. Mathematical libraries differ in the last bits of what they give.
TEST(FinishLine, IsTheSameWhateverTheLastBitsSay) {
    auto fix = Ricevitore{10}.guarda(
        [](double t) {
            return Stato{-100 + 100 * std::cos(t / 5), 100 * std::sin(t / 5)};
        },
        0, 150);
    for (Fix& uno : fix)
        uno.velocita = 20;
    const auto trovata = cerca_linea(Guida(fix), MINIMO);
    ASSERT_TRUE(trovata);
    for (std::size_t i = 0; i < fix.size(); ++i) {
        const double verso = i % 3 == 0 ? 360 : -360;
        for (double* uno : {&fix[i].latitudine, &fix[i].longitudine, &*fix[i].velocita, &*fix[i].rotta})
            *uno = std::nextafter(*uno, verso);
    }
    const auto altra = cerca_linea(Guida(fix), MINIMO);
    ASSERT_TRUE(altra);
    EXPECT_EQ(testo(altra->linea), testo(trovata->linea));
    EXPECT_EQ(altra->volte, trovata->volte);
    EXPECT_EQ(altra->velocita, trovata->velocita);
}

TEST(FinishLine, IsFoundThoughAReceiverSlipsOnce) {
    auto fix = Ricevitore{10, 0.5}.guarda(cerchio(durata), -7, 200);
    fix[700].velocita = 140;  // m/s; the kart has 21
    const auto trovata = cerca_linea(Guida(fix), MINIMO);
    ASSERT_TRUE(trovata);
    EXPECT_EQ(trovata->volte, 7u);
}

TEST(FinishLine, IsNotFoundWhereNothingIsPassedTwice) {
    EXPECT_FALSE(cerca_linea(Guida({}), MINIMO));
    const auto fermo = Ricevitore{10, 1}.guarda([](double) { return Stato{}; }, 0, 300);
    EXPECT_FALSE(cerca_linea(Guida(fermo), MINIMO));
    const auto fermo_senza = Ricevitore{10, 1, false}.guarda([](double) { return Stato{}; }, 0, 300);
    EXPECT_FALSE(cerca_linea(Guida(fermo_senza), MINIMO));
    const auto diritto = Ricevitore{10}.guarda([](double t) { return Stato{20 * t, 3 * t}; }, 0, 300);
    EXPECT_FALSE(cerca_linea(Guida(diritto), MINIMO));
    const auto e_ritorno = Ricevitore{10}.guarda(
        [](double t) {
            return Stato{20 * (t < 60 ? t : 120 - t), 0};
        },
        0, 119);
    EXPECT_FALSE(cerca_linea(Guida(e_ritorno), MINIMO)) << "there and back is no lap";
}

TEST(FinishLine, IsReadAsItIsWritten) {
    ASSERT_TRUE(leggi_linea("44.8231,10.4107,270"));
    EXPECT_EQ(testo(*leggi_linea("44.8231, 10.4107, 270")), "44.8231000,10.4107000,270.0");
    EXPECT_EQ(testo(*leggi_linea("-44.8231,-10.4107,-90,12.5")), "-44.8231000,-10.4107000,-90.0,12.5");
    for (const char* no : {"", "1,2", "1,2,3,4,5", "1,2,x", "91,0,0", "0,181,0", "0,0,361", "0,0,0,0", "0,0,0,-1",
                           "0,0,0,1001", "nan,0,0", "1;2;3", "1,2,3,"})
        EXPECT_FALSE(leggi_linea(no)) << no;
}

}  // namespace
