// Laps through the C face: the simulated kart's, whose laps its own logger has timed.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kelregistrazioni.h"
#include "pista.h"
#include "prova.h"

namespace {

using namespace prova;

struct ChiudiGiri {
    void operator()(s_kel_giri* giri) const { kelGiriChiudi(giri); }
};
using Giri = std::unique_ptr<s_kel_giri, ChiudiGiri>;

Giri raccolti(const Registrazione& reg) {
    Giri giri(kelGiriApri(reg.get(), nullptr));
    EXPECT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
    return giri;
}

TEST(Laps, OfTheLoggersPackets) {
    const Kart kart;
    const Byte campioni = kart.campioni(55);  // the lap packet's number grows every ten records
    const Registrazione reg = apri(kart.canali(), campioni);
    const Giri giri = raccolti(reg);
    ASSERT_EQ(kelGiriCalcola(giri.get(), nullptr, nullptr), 1);
    EXPECT_STREQ(kelGiriDetto(giri.get()), "laps from 'Lap'\n");
    unsigned chiusi = 0;
    s_kel_giro giro{};
    for (unsigned i = 0; i < kelGiriNumero(giri.get()); ++i) {
        ASSERT_EQ(kelGiriGiro(giri.get(), i, &giro), 1);
        if (giro.ms < 0)
            continue;
        ++chiusi;
        EXPECT_EQ(giro.ms, 50000 + static_cast<int>(chiusi));
        EXPECT_EQ(giro.numero, static_cast<int>(chiusi));
        EXPECT_EQ(giro.migliore, chiusi == 1 ? 1 : 0);
        EXPECT_NEAR(giro.distacco, (chiusi - 1) / 1000.0, 1e-9);
        EXPECT_EQ(giro.num_settori, 0u);
    }
    EXPECT_EQ(chiusi, 5u);
    EXPECT_EQ(kelGiriGiro(giri.get(), kelGiriNumero(giri.get()), &giro), 0);
}

TEST(Laps, OfAPushedStreamAreThoseOfMemory) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione intera = apri(kart.canali(), campioni);
    const Giri attesi = raccolti(intera);
    ASSERT_EQ(kelGiriCalcola(attesi.get(), nullptr, nullptr), 1);
    const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    for (std::size_t da = 0; da <= campioni.size(); da += 3000) {
        ASSERT_EQ(
            kelRegSpingi(reg.get(), campioni.data() + da, std::min<std::size_t>(3000, campioni.size() - da), nullptr),
            1);
        ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
        ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1) << "no row twice";
    }
    ASSERT_EQ(kelRegSpingi(reg.get(), nullptr, 0, nullptr), 1);
    ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
    ASSERT_EQ(kelGiriCalcola(giri.get(), nullptr, nullptr), 1);
    ASSERT_EQ(kelGiriNumero(giri.get()), kelGiriNumero(attesi.get()));
    for (unsigned i = 0; i < kelGiriNumero(giri.get()); ++i) {
        s_kel_giro uno{};
        s_kel_giro altro{};
        kelGiriGiro(giri.get(), i, &uno);
        kelGiriGiro(attesi.get(), i, &altro);
        EXPECT_EQ(uno.ms, altro.ms);
        EXPECT_EQ(uno.campioni, altro.campioni);
        EXPECT_EQ(uno.inizio, altro.inizio);
    }
}

TEST(Laps, ThatMissedRowsSaySo) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    kelRegSpingi(reg.get(), campioni.data(), 20000, nullptr);
    kelRegSpingi(reg.get(), campioni.data() + 20000, 20000, nullptr);
    s_kel_errore errore{};
    EXPECT_EQ(kelGiriAggiungi(giri.get(), &errore), 0);
    EXPECT_STREQ(errore.testo, "rows from 0 to 200 are at hand no longer");
}

TEST(Laps, SayWhyThereIsNone) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione reg = apri(kart.canali(), campioni);
    const Giri giri = raccolti(reg);
    const auto detto = [&](const s_kel_scelte_giri& scelte) {
        s_kel_errore errore{};
        EXPECT_EQ(kelGiriCalcola(giri.get(), &scelte, &errore), 0);
        EXPECT_EQ(kelGiriNumero(giri.get()), 0u);
        return std::string(errore.testo);
    };
    s_kel_scelte_giri scelte{};
    scelte.fonte = KEL_GIRI_GPS;
    EXPECT_EQ(detto(scelte),
              "no lap is closed: no place is passed twice in the same direction at speed, 10 s apart or more (minimo)");
    scelte.minimo = NAN;
    EXPECT_EQ(detto(scelte), "minimo is no time; accepted: seconds, 1 to 3600, or 0 for 10");
    scelte.minimo = 0;
    s_kel_linea linea{91, 0, 0, 0};
    scelte.linea = &linea;
    EXPECT_EQ(detto(scelte),
              "linea is no line; accepted: latitude, longitude and heading in degrees, and a width of up to 1000 m");
    linea = {44.5, 10, 90, 0};
    EXPECT_EQ(detto(scelte), "no lap is closed: the track never passes the line 44.5000000,10.0000000,90.0");
    const Byte rumore(100);
    const Registrazione vuota(kelRegApriUbx(rumore.data(), rumore.size(), nullptr));
    const Giri nessuno = raccolti(vuota);
    s_kel_errore errore{};
    EXPECT_EQ(kelGiriCalcola(nessuno.get(), nullptr, &errore), 0);
    EXPECT_STREQ(errore.testo, "there is no NAV-SOL and no NAV-PVT message in it");
}

// Three laps of a track by GPS, at the line that is given.
struct TreGiri {
    Byte byte;
    Registrazione reg{kelRegApriUbx(byte.data(), byte.size(), nullptr)};
    Giri giri = raccolti(reg);
    s_kel_linea linea{Pista::LAT, Pista::LON, 0, 0};
    s_kel_scelte_giri scelte{};

    explicit TreGiri(Byte flusso = Pista::flusso(3)) : byte(std::move(flusso)) { scelte.linea = &linea; }
    std::string calcola() {
        s_kel_errore errore{};
        return kelGiriCalcola(giri.get(), &scelte, &errore) == 1 ? "" : errore.testo;
    }
    s_kel_giro giro(unsigned quale) const {
        s_kel_giro uno{};
        EXPECT_EQ(kelGiriGiro(giri.get(), quale, &uno), 1) << quale;
        return uno;
    }
};

TEST(Laps, ByGpsAtALineThatIsGiven) {
    TreGiri tre;
    ASSERT_EQ(tre.calcola(), "");
    EXPECT_STREQ(kelGiriDetto(tre.giri.get()), "laps from GPS\n");
    ASSERT_EQ(kelGiriNumero(tre.giri.get()), 5u);
    double inizio = 0;
    for (unsigned i = 0; i < 5; ++i) {
        const s_kel_giro giro = tre.giro(i);
        EXPECT_EQ(giro.numero, static_cast<int>(i));
        EXPECT_EQ(giro.sessione, 0u);
        EXPECT_EQ(giro.stato, i == 0 ? KEL_GIRO_USCITA : i == 4 ? KEL_GIRO_RIENTRO : KEL_GIRO_BUONO);
        EXPECT_NEAR(giro.inizio, inizio, 0.01);
        inizio += i == 0 ? Pista::USCITA : Pista::durata(static_cast<int>(i) - 1);
        if (i == 0 || i == 4) {
            EXPECT_EQ(giro.ms, -1);
            EXPECT_TRUE(std::isnan(giro.distacco));
            EXPECT_EQ(giro.migliore, 0);
            continue;
        }
        EXPECT_NEAR(giro.ms, 30500 - 500 * static_cast<int>(i), 5);
        EXPECT_EQ(giro.migliore, i == 3 ? 1 : 0);
        EXPECT_NEAR(giro.distacco, 1.5 - 0.5 * i, 0.01);
        EXPECT_NEAR(giro.metri, Pista::GIRO, 1);
        EXPECT_NEAR(giro.massima, Pista::GIRO / Pista::durata(static_cast<int>(i) - 1), 0.1);
        EXPECT_NEAR(giro.minima, giro.massima, 0.4);
        EXPECT_NEAR(static_cast<double>(giro.campioni), 305 - 5 * static_cast<double>(i), 1);
    }
    s_kel_giro oltre{};
    EXPECT_EQ(kelGiriGiro(tre.giri.get(), 5, &oltre), 0);
    EXPECT_EQ(kelGiriGiro(tre.giri.get(), UINT32_MAX, &oltre), 0);
}

TEST(Laps, AreDividedIntoSectors) {
    TreGiri tre;
    const s_kel_linea meta{tre.linea.latitudine, tre.linea.longitudine - 0.00253, 180, 0};
    const s_kel_intermedio intermedi[] = {{Pista::GIRO / 4, {}, nullptr}, {0, meta, nullptr}};
    tre.scelte.intermedi = intermedi;
    tre.scelte.num_intermedi = 2;
    ASSERT_EQ(tre.calcola(), "");
    for (unsigned i = 1; i <= 3; ++i) {
        const s_kel_giro giro = tre.giro(i);
        ASSERT_EQ(giro.num_settori, 3u);
        EXPECT_NEAR(giro.settori[0], giro.ms / 4, 30);
        EXPECT_NEAR(giro.settori[1], giro.ms / 4, 30);
        EXPECT_EQ(giro.settori[0] + giro.settori[1] + giro.settori[2], giro.ms);
    }
    const s_kel_intermedio lontano{1e6, {}, "far away"};
    tre.scelte.intermedi = &lontano;
    tre.scelte.num_intermedi = 1;
    EXPECT_EQ(tre.calcola(), "intermedi far away is nowhere: lap 3 has 628 m");
    EXPECT_EQ(kelGiriNumero(tre.giri.get()), 0u);
    for (const double metri : {-1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
        const s_kel_intermedio nessuno{metri, {}, nullptr};
        tre.scelte.intermedi = &nessuno;
        EXPECT_EQ(tre.calcola(), "intermedi has metres that are none; accepted: above 0, or 0 and a line");
    }
    const s_kel_intermedio storto{0, {0, 181, 0, 0}, nullptr};
    tre.scelte.intermedi = &storto;
    EXPECT_EQ(
        tre.calcola(),
        "intermedi is no line; accepted: latitude, longitude and heading in degrees, and a width of up to 1000 m");
}

// Whether there is no fix in a lap (the first is 0) around a part of its time.
bool perso(double tempo, int giro, double parte) {
    double inizio = Pista::USCITA;
    for (int i = 0; i < giro; ++i)
        inizio += Pista::durata(i);
    return std::fabs(tempo - inizio - parte * Pista::durata(giro)) < 2;
}

TEST(Laps, WithoutAFixAtASplitTakeItFromAnother) {
    TreGiri tre(Pista::flusso(3, Pista::FREQUENZA, [](double tempo) {
        return perso(tempo, 0, 0.25) || perso(tempo, 1, 0.5) || perso(tempo, 2, 0.25);
    }));
    const s_kel_intermedio quarto{Pista::GIRO / 4, {}, "a quarter"};
    tre.scelte.intermedi = &quarto;
    tre.scelte.num_intermedi = 1;
    ASSERT_EQ(tre.calcola(), "");
    const std::string detto = kelGiriDetto(tre.giri.get());
    EXPECT_NE(detto.find(", by lap 2, as lap 1 has no fix there\n"), std::string::npos) << detto;
    for (const unsigned senza : {1u, 3u})
        EXPECT_EQ(tre.giro(senza).settori[0], -1);
    EXPECT_NEAR(tre.giro(2).settori[0], tre.giro(2).ms / 4, 30);
    EXPECT_EQ(tre.giro(2).settori[0] + tre.giro(2).settori[1], tre.giro(2).ms);
}

TEST(Laps, WithoutAFixAtASplitAnywhereSaySo) {
    TreGiri tre(Pista::flusso(3, Pista::FREQUENZA, [](double tempo) {
        return perso(tempo, 0, 0.25) || perso(tempo, 1, 0.25) || perso(tempo, 2, 0.25);
    }));
    const s_kel_intermedio quarto{Pista::GIRO / 4, {}, "a quarter"};
    tre.scelte.intermedi = &quarto;
    tre.scelte.num_intermedi = 1;
    EXPECT_EQ(tre.calcola(), "intermedi a quarter is nowhere: no lap has a fix there");
}

// The lines of start and finish lie between two fixes.
TEST(Laps, AreDividedAlsoRightBehindTheStartAndRightBeforeTheFinish) {
    TreGiri tre;
    const double lungo = [&] {
        EXPECT_EQ(tre.calcola(), "");
        return tre.giro(3).metri;
    }();
    for (const double metri : {0.02, lungo - 0.02}) {
        const s_kel_intermedio uno{metri, {}, nullptr};
        tre.scelte.intermedi = &uno;
        tre.scelte.num_intermedi = 1;
        EXPECT_EQ(tre.calcola(), "") << metri;
    }
}

TEST(Laps, CallTheChoicesByTheWordsOfTheCaller) {
    TreGiri tre;
    const s_kel_parole parole{nullptr, nullptr, "--line", "--min-time", "--split"};
    tre.scelte.parole = &parole;
    tre.scelte.linea = nullptr;
    tre.scelte.minimo = 4000;
    EXPECT_EQ(tre.calcola(), "--min-time is no time; accepted: seconds, 1 to 3600, or 0 for 10");
    tre.scelte.minimo = 0.5;
    EXPECT_EQ(tre.calcola(), "--min-time is no time; accepted: seconds, 1 to 3600, or 0 for 10");
    tre.scelte.minimo = 0;
    ASSERT_EQ(tre.calcola(), "");
    EXPECT_NE(std::strstr(kelGiriDetto(tre.giri.get()), ": --line "), nullptr) << kelGiriDetto(tre.giri.get());
    tre.scelte.udm = "furlong";
    EXPECT_EQ(tre.calcola(), "udm 'furlong' is no unit of a speed; accepted: km/h, mph");
    tre.scelte.udm = "mph";
    ASSERT_EQ(tre.calcola(), "");
    EXPECT_NE(std::strstr(kelGiriDetto(tre.giri.get()), " mph on average"), nullptr) << kelGiriDetto(tre.giri.get());
    tre.scelte.fonte = static_cast<eKelFonteGiri>(3);
    EXPECT_EQ(tre.calcola(), "fonte is none; accepted: 0 to 2");
}

TEST(Laps, OverTheirDistance) {
    TreGiri tre;
    ASSERT_EQ(tre.calcola(), "");
    constexpr double LUNGHEZZA = 1000;  // stretched to
    const std::size_t quanti = kelGiriAndamento(tre.giri.get(), 2, LUNGHEZZA, nullptr, 0);
    ASSERT_GE(quanti, 290u);
    std::vector<s_kel_punto_giro> punti(quanti + 1);
    punti.back().metri = -7;
    ASSERT_EQ(kelGiriAndamento(tre.giri.get(), 2, LUNGHEZZA, punti.data(), quanti), quanti);
    EXPECT_EQ(punti.back().metri, -7);
    EXPECT_EQ(punti.front().metri, 0);
    EXPECT_EQ(punti.front().secondi, 0);
    EXPECT_NEAR(punti[quanti - 1].metri, LUNGHEZZA, 1e-6);
    EXPECT_NEAR(punti[quanti - 1].secondi, Pista::durata(1), 0.005);
    for (std::size_t i = 0; i < quanti; ++i) {
        // The car is as fast everywhere in the lap.
        EXPECT_NEAR(punti[i].metri, LUNGHEZZA * punti[i].secondi / Pista::durata(1), 1.5) << i;
        EXPECT_NEAR(punti[i].velocita, Pista::GIRO / Pista::durata(1), 0.5) << i;
        EXPECT_EQ(punti[i].staccato, 0) << i;
    }
    std::array<s_kel_punto_giro, 3> pochi{};
    pochi[2].metri = -7;
    EXPECT_EQ(kelGiriAndamento(tre.giri.get(), 2, LUNGHEZZA, pochi.data(), 2), quanti);
    EXPECT_EQ(pochi[1].metri, punti[1].metri);
    EXPECT_EQ(pochi[2].metri, -7);
    EXPECT_EQ(kelGiriAndamento(tre.giri.get(), 0, LUNGHEZZA, nullptr, 0), 0u) << "not closed";
    EXPECT_EQ(kelGiriAndamento(tre.giri.get(), 5, LUNGHEZZA, nullptr, 0), 0u) << "no such lap";
    for (const double nessuna : {0.0, -1.0, static_cast<double>(NAN)})
        EXPECT_EQ(kelGiriAndamento(tre.giri.get(), 2, nessuna, nullptr, 0), 0u);
}

TEST(Laps, HaveTheFixesOfTheirWay) {
    TreGiri tre;
    ASSERT_EQ(tre.calcola(), "");
    std::size_t tutti = 0;
    for (unsigned i = 0; i < 5; ++i)
        tutti += kelGiriFix(tre.giri.get(), i, nullptr, 0);
    EXPECT_EQ(tutti, kelRegRighe(tre.reg.get()));
    const std::size_t quanti = kelGiriFix(tre.giri.get(), 1, nullptr, 0);
    std::vector<s_kel_fix> fix(quanti + 1);
    fix.back().velocita = -7;
    ASSERT_EQ(kelGiriFix(tre.giri.get(), 1, fix.data(), quanti), quanti);
    EXPECT_EQ(fix.back().velocita, -7);
    for (std::size_t i = 0; i < quanti; ++i) {
        EXPECT_NEAR(fix[i].latitudine, Pista::LAT, 0.001);
        EXPECT_NEAR(fix[i].longitudine, Pista::LON - 0.00127, 0.0013);
        EXPECT_NEAR(fix[i].velocita, Pista::GIRO / Pista::durata(0), 0.1);
    }
    EXPECT_NEAR(fix[0].latitudine, Pista::LAT, 3e-5) << "it begins at the line";
    s_kel_fix due[2] = {{0, 0, -7}, {0, 0, -7}};
    EXPECT_EQ(kelGiriFix(tre.giri.get(), 1, due, 1), quanti);
    EXPECT_EQ(due[0].latitudine, fix[0].latitudine);
    EXPECT_EQ(due[1].velocita, -7);
    EXPECT_EQ(kelGiriFix(tre.giri.get(), 5, nullptr, 0), 0u);
}

TEST(Laps, WhereTheFixIsLostHaveNoNumbersThere) {
    Byte byte;
    constexpr int FIX = 900;
    for (int i = 0; i < FIX; ++i)
        messaggio(byte, 1, 6, Pista::nav_sol(i / Pista::FREQUENZA, i >= 250 && i < 300 ? 0 : 3));
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    const Giri giri = raccolti(reg);
    s_kel_scelte_giri scelte{};
    const s_kel_linea linea{Pista::LAT, Pista::LON, 0, 0};
    scelte.linea = &linea;
    ASSERT_EQ(kelGiriCalcola(giri.get(), &scelte, nullptr), 1);
    s_kel_giro giro{};
    ASSERT_EQ(kelGiriGiro(giri.get(), 1, &giro), 1);
    EXPECT_EQ(giro.stato, KEL_GIRO_SENZA_FIX);
    EXPECT_TRUE(std::isnan(giro.distacco)) << "it does not count";
    std::vector<s_kel_fix> fix(kelGiriFix(giri.get(), 1, nullptr, 0));
    kelGiriFix(giri.get(), 1, fix.data(), fix.size());
    unsigned persi = 0;
    for (const s_kel_fix& uno : fix)
        if (std::isnan(uno.latitudine)) {
            ++persi;
            EXPECT_TRUE(std::isnan(uno.longitudine));
            EXPECT_TRUE(std::isnan(uno.velocita));
        }
    EXPECT_EQ(persi, 50u);
    std::vector<s_kel_punto_giro> punti(kelGiriAndamento(giri.get(), 1, Pista::GIRO, nullptr, 0));
    kelGiriAndamento(giri.get(), 1, Pista::GIRO, punti.data(), punti.size());
    unsigned staccati = 0;
    for (const s_kel_punto_giro& uno : punti)
        staccati += static_cast<unsigned>(uno.staccato);
    EXPECT_EQ(staccati, 1u);
}

TEST(Laps, ReadALineAsMessagesWriteIt) {
    s_kel_linea linea{1, 2, 3, 4};
    ASSERT_EQ(kelGiriLinea("44.8231,10.4107,359.9", &linea), 1);
    EXPECT_EQ(linea.latitudine, 44.8231);
    EXPECT_EQ(linea.longitudine, 10.4107);
    EXPECT_EQ(linea.rotta, 359.9);
    EXPECT_EQ(linea.larghezza, 30);
    ASSERT_EQ(kelGiriLinea(" -44.8 ,\t-10.4 , -90 , 12.5 ", &linea), 1);
    EXPECT_EQ(linea.latitudine, -44.8);
    EXPECT_EQ(linea.larghezza, 12.5);
    linea.rotta = 77;
    for (const char* testo :
         {"",          ",",       "1",        "1,2",          "1,2,",      "1,2,3,",     "1,2,3,4,5", "1,2,3,4,",
          "1,2,x",     "1,2,3 4", "1;2;3",    "nan,2,3",      "1,inf,3",   "0x1,2,3",    "90.1,0,0",  "0,180.1,0",
          "0,0,360.1", "0,0,0,0", "0,0,0,-1", "0,0,0,1000.1", "1e999,0,0", "1,2,3\n,4,5"}) {
        EXPECT_EQ(kelGiriLinea(testo, &linea), 0) << testo;
        EXPECT_EQ(linea.rotta, 77) << testo;
    }
    EXPECT_EQ(kelGiriLinea("90,180,360,1000", &linea), 1) << "the ends are good";
}

TEST(Laps, StatesHaveTheNamesOfTheTable) {
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_BUONO), "");
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_USCITA), "out");
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_RIENTRO), "in");
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_SENZA_FIX), "no fix");
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_CONTROMANO), "wrong way");
    EXPECT_STREQ(kelGiriNomeStato(KEL_GIRO_FERMO), "stopped");
    EXPECT_EQ(kelGiriNomeStato(static_cast<eKelStatoGiro>(6)), nullptr);
}

TEST(Laps, BeforeTheyAreComputedThereIsNone) {
    TreGiri tre;
    s_kel_giro giro{};
    EXPECT_EQ(kelGiriNumero(tre.giri.get()), 0u);
    EXPECT_EQ(kelGiriGiro(tre.giri.get(), 0, &giro), 0);
    EXPECT_EQ(kelGiriFix(tre.giri.get(), 0, nullptr, 0), 0u);
    EXPECT_EQ(kelGiriAndamento(tre.giri.get(), 0, 100, nullptr, 0), 0u);
    EXPECT_STREQ(kelGiriDetto(tre.giri.get()), "");
}

TEST(Laps, MayOutliveTheRecording) {
    TreGiri tre;
    tre.reg.reset();
    EXPECT_EQ(tre.calcola(), "");
    EXPECT_EQ(kelGiriNumero(tre.giri.get()), 5u);
}

}  // namespace
