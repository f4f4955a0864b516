// Laps of recordings whose channels differ: what each of them says of laps, and which of them is believed.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/numeri.h"
#include "kelregistrazioni.h"
#include "pista.h"
#include "prova.h"
#include "registrazioni/recordings/fatti.h"

namespace {

using namespace prova;
using fatti::canale;
using kel_registrazioni::con_decimali;

constexpr kel_funpos NUMERO = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_LAP, 0);
constexpr kel_funpos TEMPO = kelFidComponi(FID_PHI_TIME, FID_OBJ_LAP, 0);
constexpr kel_funpos CORRENTE = kelFidComponi(FID_PHI_TIME, FID_OBJ_RUNNING_LAP, 0);
constexpr kel_funpos RUOTA = kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL);
constexpr kel_funpos LAP_2G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G);
constexpr kel_funpos LAP_1G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL1G);
constexpr kel_funpos GPS_UBX = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);

Byte operator+(Byte a, const Byte& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

struct ChiudiGiri {
    void operator()(s_kel_giri* giri) const { kelGiriChiudi(giri); }
};
using Giri = std::unique_ptr<s_kel_giri, ChiudiGiri>;

using Campione = std::function<void(Byte&, int)>;  // adds the samples of a record

// Records behind stamps of 32 bits, `passo` ms apart.
Byte record(int quanti, std::uint32_t passo, const Campione& campione, std::uint32_t da = 0) {
    Byte byte;
    for (int i = 0; i < quanti; ++i) {
        aggiungi(byte, da + static_cast<std::uint32_t>(i) * passo);
        campione(byte, i);
    }
    return byte;
}

// What is said, then a line a lap: number, state, time in ms, start in s, samples, and top speed in m/s where it is known.
std::string giri_di(const Registrazione& reg, const s_kel_scelte_giri& scelte = {}) {
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    EXPECT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
    s_kel_errore errore{};
    if (kelGiriCalcola(giri.get(), &scelte, &errore) != 1)
        return errore.testo;
    std::string tutti = kelGiriDetto(giri.get());
    for (unsigned i = 0; i < kelGiriNumero(giri.get()); ++i) {
        s_kel_giro uno{};
        kelGiriGiro(giri.get(), i, &uno);
        const std::string stato = kelGiriNomeStato(uno.stato);
        tutti += std::to_string(uno.numero) + (stato.empty() ? "" : " " + stato) +
                 (uno.ms < 0 ? "" : " " + std::to_string(uno.ms)) +
                 (std::isnan(uno.inizio) ? "" : " at " + con_decimali(uno.inizio, 3)) + ", " +
                 std::to_string(uno.campioni) + (std::isnan(uno.massima) ? "" : ", " + con_decimali(uno.massima, 1)) +
                 "\n";
    }
    return tutti;
}

std::string giri_di(const Byte& canali, const Byte& campioni, const s_kel_scelte_giri& scelte = {},
                    eKelOrario orario = KEL_ORARIO_U32MS) {
    s_kel_apertura apertura{};
    apertura.orario = orario;
    const Registrazione reg = apri(canali, campioni, apertura);
    EXPECT_TRUE(reg);
    return giri_di(reg, scelte);
}

// Ten records a second, a lap every thirty; the timer ran for 20 ms when the record with the new lap was written.
void numero_di(Byte& byte, int i) {
    aggiungi(byte, static_cast<std::int16_t>(i / 300));
}
void tempo_di(Byte& byte, int i) {
    aggiungi(byte, std::int32_t{i < 300 ? 0 : 29900 + 10 * (i / 300)});
}
void corrente_di(Byte& byte, int i) {
    aggiungi(byte, std::int32_t{i % 300 * 100 + 20});
}

TEST(LapChannels, OfNumberTimeAndRunningTime) {
    Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, TEMPO, KEL_TIPO_TEMPO_GIRO, "Last");
    canale(canali, CORRENTE, KEL_TIPO_TEMPO_GIRO, "Running");
    canale(canali, RUOTA, KEL_TIPO_FLOAT, "Wheel");
    const Byte campioni = record(1000, 100, [](Byte& byte, int i) {
        numero_di(byte, i);
        tempo_di(byte, i);
        corrente_di(byte, i);
        aggiungi(byte, std::bit_cast<std::uint32_t>(i == 450 ? 108.0f : 72.0f));
    });
    EXPECT_EQ(giri_di(canali, campioni),
              "laps from 'No', 'Last'\n"
              "0 out at 0.000, 1, 20.0\n"
              "1 29910 at 0.070, 299, 20.0\n"
              "2 29920 at 30.060, 299, 30.0\n"
              "3 29930 at 60.050, 299, 20.0\n"
              "4 in at 89.980, 100, 20.0\n");
}

TEST(LapChannels, OfNumbersAloneAreExactToARecord) {
    const Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    EXPECT_EQ(giri_di(canali, record(1000, 100, numero_di)),
              "laps from 'No', which has no times: they are exact to a record\n"
              "0 out at 0.000, 300\n"
              "1 30000 at 30.000, 300\n"
              "2 30000 at 60.000, 300\n"
              "3 in at 90.000, 100\n");
}

TEST(LapChannels, OfTimesAloneAreCounted) {
    const Byte canali = canale(TEMPO, KEL_TIPO_TEMPO_GIRO, "Last");
    EXPECT_EQ(giri_di(canali, record(1000, 100, tempo_di)),
              "laps from 'Last'\n"
              "0 out at 0.000, 1\n"
              "1 29910 at 0.090, 299\n"
              "2 29920 at 30.080, 299\n"
              "3 29930 at 60.070, 299\n"
              "4 in at 90.000, 100\n");
}

TEST(LapChannels, ARunningTimeAloneIsNoLap) {
    const Byte canali = canale(CORRENTE, KEL_TIPO_TEMPO_GIRO, "Running");
    EXPECT_EQ(giri_di(canali, record(1000, 100, corrente_di)),
              "there are no lap packets, no lap channels and no GPS packet in the recording");
}

TEST(LapChannels, WithoutTimesOfRecordsHaveTheirSamplesAlone) {
    Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, TEMPO, KEL_TIPO_TEMPO_GIRO, "Last");
    Byte campioni;
    for (int i = 0; i < 1000; ++i) {
        numero_di(campioni, i);
        tempo_di(campioni, i);
    }
    EXPECT_EQ(giri_di(canali, campioni, {}, KEL_ORARIO_NESSUNO),
              "laps from 'No', 'Last'\n"
              "1 29910, 300\n"
              "2 29920, 300\n"
              "3 29930, 300\n");
    const s_kel_intermedio meta{100, {}, nullptr};
    s_kel_scelte_giri scelte{};
    scelte.intermedi = &meta;
    scelte.num_intermedi = 1;
    EXPECT_EQ(giri_di(canali, campioni, scelte, KEL_ORARIO_NESSUNO), "splits take positions, and there are none in it");
}

TEST(LapChannels, TheFirstOfAKindThatHasNumbersIsTaken) {
    Byte canali = canale(NUMERO, KEL_TIPO_OTTO_BYTE, "No numbers");
    canale(canali, NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, NUMERO, KEL_TIPO_INT16, "Another");
    const Byte campioni = record(700, 100, [](Byte& byte, int i) {
        aggiungi(byte, std::uint64_t{0});
        numero_di(byte, i);
        aggiungi(byte, static_cast<std::int16_t>(i));
    });
    EXPECT_EQ(giri_di(canali, campioni),
              "laps from 'No', which has no times: they are exact to a record\n"
              "0 out at 0.000, 300\n"
              "1 30000 at 30.000, 300\n"
              "2 in at 60.000, 100\n");
}

TEST(LapChannels, NumbersThatAreNoneAreNotTaken) {
    const Byte canali = canale(NUMERO, KEL_TIPO_FLOAT, "No");
    const auto con = [](float strano) {
        return record(1000, 100, [strano](Byte& byte, int i) {
            aggiungi(byte, std::bit_cast<std::uint32_t>(i % 300 == 150 ? strano : static_cast<float>(i / 300)));
        });
    };
    const std::string attesi =
        "laps from 'No', which has no times: they are exact to a record\n"
        "0 out at 0.000, 300\n"
        "1 30000 at 30.000, 300\n"
        "2 30000 at 60.000, 300\n"
        "3 in at 90.000, 100\n";
    for (const float strano : {3e9f, -3e9f, INFINITY, NAN})
        EXPECT_EQ(giri_di(canali, con(strano)), attesi) << strano;
}

TEST(LapChannels, ReservedValuesAreNoNumbers) {
    const Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    const Byte campioni = record(1000, 100, [](Byte& byte, int i) {
        aggiungi(byte, i % 300 == 150 ? std::uint16_t{0xCFFF} : static_cast<std::uint16_t>(i / 300));
    });
    EXPECT_EQ(giri_di(canali, campioni), giri_di(canali, record(1000, 100, numero_di)));
}

TEST(LapChannels, OfNumbersAndARunningTimeAreAsExactAsThatTime) {
    Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, CORRENTE, KEL_TIPO_TEMPO_GIRO, "Running");
    const Byte campioni = record(700, 100, [](Byte& byte, int i) {
        numero_di(byte, i);
        corrente_di(byte, i + i / 600);
    });
    EXPECT_EQ(giri_di(canali, campioni),
              "laps from 'No'\n"
              "0 out at 0.000, 300\n"
              "1 29900 at 29.980, 299\n"
              "2 in at 59.880, 101\n");
}

// The packet of the first generation, whose time is a lap's where its number has changed.
void pacchetto_1g(Byte& byte, int i) {
    aggiungi(byte, std::int32_t{29900 + 10 * (i / 300)});
    aggiungi(byte, static_cast<std::uint16_t>((i / 300) << 12));
    aggiungi(byte, std::uint16_t{0});
}

void pacchetto_2g(Byte& byte, int i) {
    byte.push_back(1);
    byte.push_back(0);
    aggiungi(byte, static_cast<std::uint16_t>(i / 300));
    for (const std::int32_t uno : {i < 300 ? 0 : 29900 + 10 * (i / 300), 0, 0, i % 300 * 100 + 20, 0, 0})
        aggiungi(byte, uno);
}

TEST(LapChannels, PacketsGoBeforeChannelsAndTheFirstBeforeTheOthers) {
    Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, LAP_1G, KEL_TIPO_LAP_1G, "Old");
    canale(canali, LAP_2G, KEL_TIPO_LAP_2G, "New");
    const Byte campioni = record(700, 100, [](Byte& byte, int i) {
        aggiungi(byte, static_cast<std::int16_t>(i));
        pacchetto_1g(byte, i);
        pacchetto_2g(byte, i);
    });
    EXPECT_EQ(giri_di(canali, campioni),
              "laps from 'Old'\n"
              "0 out at 0.000, 1\n"
              "1 29910 at 0.090, 299\n"
              "2 29920 at 30.080, 299\n"
              "3 in at 60.000, 100\n");
    Byte nuovi = canale(LAP_2G, KEL_TIPO_OTTO_BYTE, "Unknown");
    canale(nuovi, kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0), KEL_TIPO_LAP_1G, "Of another kind");
    canale(nuovi, LAP_2G, KEL_TIPO_LAP_2G, "New");
    const Byte dati = record(700, 100, [](Byte& byte, int i) {
        aggiungi(byte, std::uint64_t{0});
        pacchetto_1g(byte, i / 2);
        pacchetto_2g(byte, i);
    });
    EXPECT_EQ(giri_di(nuovi, dati),
              "laps from 'New'\n"
              "0 out at 0.000, 1\n"
              "1 29910 at 0.070, 299\n"
              "2 29920 at 30.060, 299\n"
              "3 in at 59.980, 100\n");
}

// The track by the logger's GPS, which repeats each solution once, and a lap packet that does not move.
void gps_due_volte(Byte& byte, int i) {
    aggiungi(byte, static_cast<std::uint32_t>(7000 + i / 2 * 100));
    const Byte sol = Pista::nav_sol(i / 2 / 10.0);
    byte.insert(byte.end(), sol.begin(), sol.end());
}

Byte canali_gps() {
    return canale(KEL_FID_GPS_PACCHETTO, KEL_TIPO_GPS_KEL, "GPS");
}

s_kel_scelte_giri con_fonte(eKelFonteGiri fonte, const s_kel_linea* linea = nullptr) {
    s_kel_scelte_giri scelte{};
    scelte.fonte = fonte;
    scelte.linea = linea;
    return scelte;
}

constexpr s_kel_linea TRAGUARDO{Pista::LAT, Pista::LON, 0, 0};

TEST(LapSources, GpsIsTakenWhereTheLoggerHasTimedNone) {
    const Byte canali = canali_gps();
    const Byte campioni = record(2000, 50, gps_due_volte, 5000);
    const std::string attesi =
        "laps from GPS\n"
        "0 out at 5.000, 151, 20.9\n"
        "1 30000 at 20.040, 300, 20.9\n"
        "2 29500 at 50.040, 295, 21.3\n"
        "3 in at 79.540, 254, 21.7\n";
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_QUALUNQUE, &TRAGUARDO)), attesi);
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_GPS, &TRAGUARDO)), attesi);
    EXPECT_EQ(giri_di(canali, campioni).substr(0, 78),
              "laps from GPS; finish line found, passed 4 times at 76 km/h on average: linea ");
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_REGISTRATORE)),
              "there are no lap packets and no lap channels in the recording");
}

TEST(LapSources, AReceiversPayloadAloneIsAGpsPacketToo) {
    const Byte canali = canale(GPS_UBX, KEL_TIPO_GPS_NAVSOL, "Receiver");
    Byte campioni;
    for (int i = 0; i < 1000; ++i) {
        const Byte sol = Pista::nav_sol(i / 10.0);
        campioni.insert(campioni.end(), sol.begin(), sol.end());
    }
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_GPS, &TRAGUARDO), KEL_ORARIO_NESSUNO),
              "laps from GPS\n"
              "0 out at 0.000, 151, 20.9\n"
              "1 30000 at 15.040, 300, 20.9\n"
              "2 29500 at 45.040, 295, 21.3\n"
              "3 in at 74.540, 254, 21.7\n");
}

TEST(LapSources, OfBothTheLoggerIsBelievedUnlessALineIsGiven) {
    Byte canali = canali_gps();
    canale(canali, LAP_2G, KEL_TIPO_LAP_2G, "Lap");
    const Byte campioni = record(2000, 50, [](Byte& byte, int i) {
        gps_due_volte(byte, i);
        pacchetto_2g(byte, i / 2);
    });
    EXPECT_EQ(giri_di(canali, campioni),
              "laps from 'Lap'\n"
              "0 out at 0.000, 2, 20.9\n"
              "1 29910 at 0.070, 598, 20.9\n"
              "2 29920 at 30.060, 598, 21.3\n"
              "3 29930 at 60.050, 598, 21.7\n"
              "4 in at 89.980, 200, 21.7\n");
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_REGISTRATORE, &TRAGUARDO)),
              "laps from 'Lap'\n"
              "0 out at 0.000, 2, 20.9\n"
              "1 29910 at 0.070, 598, 20.9\n"
              "2 29920 at 30.060, 598, 21.3\n"
              "3 29930 at 60.050, 598, 21.7\n"
              "4 in at 89.980, 200, 21.7\n");
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_QUALUNQUE, &TRAGUARDO)).substr(0, 14), "laps from GPS\n");
}

TEST(LapSources, ARepeatedSolutionIsNoPositionButHasItsSpeed) {
    Byte canali = canali_gps();
    canale(canali, LAP_2G, KEL_TIPO_LAP_2G, "Lap");
    const Byte campioni = record(2000, 50, [](Byte& byte, int i) {
        gps_due_volte(byte, i);
        pacchetto_2g(byte, i / 2);
    });
    const Registrazione reg = apri(canali, campioni);
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    kelGiriAggiungi(giri.get(), nullptr);
    ASSERT_EQ(kelGiriCalcola(giri.get(), nullptr, nullptr), 1);
    std::vector<s_kel_fix> fix(598);
    ASSERT_EQ(kelGiriFix(giri.get(), 1, fix.data(), fix.size()), 598u);
    for (std::size_t i = 0; i < fix.size(); ++i) {
        EXPECT_EQ(std::isnan(fix[i].latitudine), i % 2 == 1) << i;
        EXPECT_FALSE(std::isnan(fix[i].velocita)) << i;
    }
}

TEST(LapSources, ALoggerWithoutLapsIsToldOfAndGpsTaken) {
    Byte canali = canali_gps();
    canale(canali, LAP_2G, KEL_TIPO_LAP_2G, "Lap");
    const Byte campioni = record(2000, 50, [](Byte& byte, int i) {
        gps_due_volte(byte, i);
        pacchetto_2g(byte, 0);
    });
    EXPECT_EQ(giri_di(canali, campioni).substr(0, 72),
              "there is no lap in 'Lap'\n"
              "laps from GPS; finish line found, passed 4 time");
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_REGISTRATORE)), "no lap is closed: there is none in 'Lap'");
    const Byte solo = canale(LAP_2G, KEL_TIPO_LAP_2G, "Lap");
    const Byte fermo = record(100, 50, [](Byte& byte, int) { pacchetto_2g(byte, 0); });
    EXPECT_EQ(giri_di(solo, fermo), "no lap is closed: there is none in 'Lap'");
    const Byte altro = canale(RUOTA, KEL_TIPO_INT16, "Wheel");
    const Byte niente = record(100, 50, [](Byte& byte, int i) { aggiungi(byte, static_cast<std::int16_t>(i)); });
    const std::string senza = "there is no GPS packet in the recording";
    EXPECT_EQ(giri_di(altro, niente), "there are no lap packets, no lap channels and no GPS packet in the recording");
    EXPECT_EQ(giri_di(altro, niente, con_fonte(KEL_GIRI_GPS)), senza);
    EXPECT_EQ(giri_di(altro, niente, con_fonte(KEL_GIRI_QUALUNQUE, &TRAGUARDO)), senza);
}

TEST(LapSources, APacketThatIsNoGpsPacketIsNone) {
    Byte canali = canale(LAP_2G, KEL_TIPO_GPS_KEL, "Laps by name");
    canale(canali, KEL_FID_GPS_PACCHETTO, KEL_TIPO_OTTO_BYTE, "GPS by name");
    canale(canali, RUOTA, KEL_TIPO_GPS_NAVSOL, "Speed by name");
    const Byte campioni(1160);
    EXPECT_EQ(giri_di(canali, campioni, con_fonte(KEL_GIRI_GPS), KEL_ORARIO_NESSUNO),
              "there is no GPS packet in the recording");
}

// u-blox streams of the track.
std::string giri_ubx(const Byte& byte, const s_kel_scelte_giri& scelte) {
    return giri_di(Registrazione(kelRegApriUbx(byte.data(), byte.size(), nullptr)), scelte);
}

Byte pista(double da, double a, double sposta = 0, std::uint8_t fix = 3) {
    Byte byte;
    for (int i = static_cast<int>(da * 10); i < a * 10; ++i) {
        Byte dati = Pista::nav_sol(i / 10.0, fix);
        fatti::metti(dati, 0, static_cast<std::uint32_t>(345600000 + i * 100 + std::lround(sposta * 1000)));
        messaggio(byte, 1, 6, dati);
    }
    return byte;
}

TEST(LapSessions, AreNumberedInEachLap) {
    const Byte byte = pista(0, 50) + pista(0, 50);
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    kelGiriAggiungi(giri.get(), nullptr);
    const s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    ASSERT_EQ(kelGiriCalcola(giri.get(), &scelte, nullptr), 1);
    ASSERT_EQ(kelGiriNumero(giri.get()), 6u);
    for (unsigned i = 0; i < 6; ++i) {
        s_kel_giro uno{};
        uno.sessione = 99;
        kelGiriGiro(giri.get(), i, &uno);
        EXPECT_EQ(uno.sessione, i / 3) << i;
    }
    // More room than there are fixes: what lies behind them is not touched.
    std::vector<s_kel_fix> fix(151 + 3, {-7, -7, -7});
    EXPECT_EQ(kelGiriFix(giri.get(), 3, fix.data(), fix.size()), 151u);
    EXPECT_NE(fix[150].latitudine, -7);
    EXPECT_EQ(fix[151].latitudine, -7);
}

TEST(LapLines, HaveTheWidthThatIsGiven) {
    const auto con = [](double larghezza) {
        const s_kel_linea linea{Pista::LAT, Pista::LON + 0.0001, 0, larghezza};  // 7.9 m beside the track
        return giri_ubx(pista(0, 80), con_fonte(KEL_GIRI_GPS, &linea)).substr(0, 14);
    };
    EXPECT_EQ(con(0), "laps from GPS\n") << "30 m";
    EXPECT_EQ(con(17), "laps from GPS\n");
    EXPECT_EQ(con(14), "no lap is clos");
}

TEST(LapSessions, DoNotReachIntoEachOther) {
    s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    EXPECT_EQ(
        giri_ubx(pista(0, 50) + pista(0, 50), scelte),
        "laps from GPS\n"
        "2 sessions, as time runs backwards or on by more than ten minutes: no lap reaches from one into the next\n"
        "0 out at 0.000, 151, 20.9\n"
        "1 30000 at 15.040, 300, 20.9\n"
        "2 in at 45.040, 49, 21.3\n"
        "3 out at 0.000, 151, 20.9\n"
        "4 30000 at 15.040, 300, 20.9\n"
        "5 in at 45.040, 49, 21.3\n")
        << "time runs backwards";
    EXPECT_EQ(
        giri_ubx(pista(0, 50) + pista(50, 110, 601), scelte),
        "laps from GPS\n"
        "2 sessions, as time runs backwards or on by more than ten minutes: no lap reaches from one into the next\n"
        "0 out at 0.000, 151, 20.9\n"
        "1 30000 at 15.040, 300, 20.9\n"
        "2 in at 45.040, 49, 21.3\n"
        "3 out at 651.000, 246, 21.3\n"
        "4 29000 at 675.540, 290, 21.7\n"
        "5 in at 704.540, 64, 22.1\n")
        << "a pause";
    EXPECT_EQ(giri_ubx(pista(0, 50) + pista(50, 110, 599), scelte),
              "laps from GPS\n"
              "0 out at 0.000, 151, 20.9\n"
              "1 30000 at 15.040, 300, 20.9\n"
              "2 no fix 628500 at 45.040, 295, 21.3\n"
              "3 29000 at 673.540, 290, 21.7\n"
              "4 in at 702.540, 64, 22.1\n")
        << "still the same";
}

TEST(LapLines, ThatCloseNoLapSayHowOftenTheyArePassed) {
    const s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    const std::string linea = " the line 44.8231000,10.4107000,0.0";
    EXPECT_EQ(giri_ubx(pista(0, 20), scelte), "no lap is closed: the track passes once, not twice," + linea);
    EXPECT_EQ(giri_ubx(pista(0, 20) + pista(0, 20), scelte),
              "no lap is closed: the track passes no more than once a session" + linea);
    const s_kel_linea rovescio{Pista::LAT, Pista::LON, 180, 12.5};
    EXPECT_EQ(giri_ubx(pista(0, 110), con_fonte(KEL_GIRI_GPS, &rovescio)),
              "no lap is closed: the track never passes the line 44.8231000,10.4107000,180.0,12.5; the other way it "
              "does, 4 times: the heading is the third number");
    EXPECT_EQ(giri_ubx(pista(0, 20, 0, 2), scelte), "no lap is closed: none of the 200 solutions has a fix in space");
}

TEST(LapLines, PassedTooSoonAgainAreToldOf) {
    s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    scelte.minimo = 29.75;
    EXPECT_EQ(giri_ubx(pista(0, 110), scelte),
              "laps from GPS\n"
              "1 passage of the line less than 29.75 s after another is left out (minimo)\n"
              "0 out at 0.000, 151, 20.9\n"
              "1 30000 at 15.040, 300, 20.9\n"
              "2 58500 at 45.040, 585, 21.7\n"
              "3 in at 103.540, 64, 22.1\n");
}

TEST(LapLines, PassedTooSoonMoreThanOnceAreCounted) {
    s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    scelte.minimo = 31;
    EXPECT_EQ(giri_ubx(pista(0, 170), scelte).substr(14, 88),
              "3 passages of the line less than 31 s after another are left out (minimo)\n0 out at 0.000");
}

TEST(LapChannels, OfTwoSessionsHaveTheirWaysOutAndInEach) {
    Byte canali = canale(NUMERO, KEL_TIPO_INT16, "No");
    canale(canali, TEMPO, KEL_TIPO_TEMPO_GIRO, "Last");
    const auto uno = [](Byte& byte, int i) {
        numero_di(byte, i);
        tempo_di(byte, i);
    };
    const Byte prima = record(601, 100, uno);  // its last record is the first behind the line
    EXPECT_EQ(
        giri_di(canali, prima + record(700, 100, uno)),
        "laps from 'No', 'Last'\n"
        "2 sessions, as time runs backwards or on by more than ten minutes: no lap reaches from one into the next\n"
        "0 out at 0.000, 1\n"
        "1 29910 at 0.090, 299\n"
        "2 29920 at 30.080, 299\n"
        "0 out at 0.000, 1\n"
        "1 29910 at 0.090, 299\n"
        "2 29920 at 30.080, 299\n"
        "3 in at 60.000, 100\n");
}

TEST(LapLines, OfASplitThatNobodyPassesAreToldOf) {
    const s_kel_intermedio intermedi[] = {{0, {Pista::LAT + 1, Pista::LON, 0, 0}, nullptr},
                                          {0, {Pista::LAT, Pista::LON - 0.00253, 180, 0}, nullptr}};
    s_kel_scelte_giri scelte = con_fonte(KEL_GIRI_GPS, &TRAGUARDO);
    scelte.intermedi = intermedi;
    scelte.num_intermedi = 2;
    EXPECT_EQ(giri_ubx(pista(0, 80), scelte),
              "laps from GPS\n"
              "no lap passes intermedi 45.8231000,10.4107000,0.0\n"
              "0 out at 0.000, 151, 20.9\n"
              "1 30000 at 15.040, 300, 20.9\n"
              "2 29500 at 45.040, 295, 21.3\n"
              "3 in at 74.540, 54, 21.7\n");
}

}  // namespace
