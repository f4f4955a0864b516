// Solutions in WGS 84, from NAV-SOL and from NAV-PVT, against the messages' own numbers.
#include "gps/soluzione.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "common/interi.h"
#include "gps/campi_gps.h"
#include "gps/lettore_soluzioni.h"
#include "gps/navpvt.h"
#include "gps/ultima_soluzione.h"
#include "messaggi.h"

namespace {

using namespace kel_registrazioni;
using Sol = std::array<std::uint8_t, NAV_SOL_BYTE>;
using Pvt = std::array<std::uint8_t, NAV_PVT_BYTE>;

// Any frame: sync, class, id, length, payload, checksum.
template <typename Payload>
std::string frame(std::uint8_t id, const Payload& payload) {
    std::string corpo = {1, static_cast<char>(id), static_cast<char>(payload.size()), 0};
    corpo.append(payload.begin(), payload.end());
    unsigned a = 0;
    unsigned b = 0;
    for (const char c : corpo) {
        a = (a + static_cast<unsigned char>(c)) & 0xFF;
        b = (b + a) & 0xFF;
    }
    return "\xB5\x62" + corpo + static_cast<char>(a) + static_cast<char>(b);
}

LettoreSoluzioni lettore(const std::string& byte) {
    return LettoreSoluzioni([&byte, da = std::size_t{0}](std::uint8_t* dove, std::size_t quanti) mutable {
        quanti = std::min(quanti, byte.size() - da);
        std::memcpy(dove, byte.data() + da, quanti);
        da += quanti;
        return quanti;
    });
}

template <typename Payload, typename Intero>
void metti(Payload& payload, std::size_t da, Intero valore) {
    scrivi_intero(std::span<std::uint8_t>(payload), da, valore);
}

// On the equator at longitude 0: X is up, Y east, Z north. 100 m up, 10 m/s east, 5 north, 1 down.
Sol equatore(std::uint8_t fix = 3, std::uint32_t settimana_ms = 400463250) {
    Sol p{};
    metti(p, 0, settimana_ms);
    metti(p, 8, std::int16_t{2307});
    p[10] = fix;
    p[11] = 0x0D;
    metti(p, 12, std::int32_t{637823700});
    metti(p, 24, std::uint32_t{70000});
    metti(p, 28, std::int32_t{-100});
    metti(p, 32, std::int32_t{1000});
    metti(p, 36, std::int32_t{500});
    metti(p, 40, std::uint32_t{300});
    p[47] = 7;
    return p;
}

// The same place and movement as NAV-PVT says them.
Pvt equatore_pvt(std::uint8_t fix = 3, std::uint32_t settimana_ms = 400463250) {
    Pvt p{};
    metti(p, 0, settimana_ms);
    metti(p, 4, std::uint16_t{2024});
    p[6] = 3;
    p[7] = 28;
    p[8] = 15;
    p[9] = 14;
    p[10] = 5;
    p[11] = 0x07;
    metti(p, 16, std::int32_t{250000000});
    p[20] = fix;
    p[21] = 0x01;
    p[23] = 7;
    metti(p, 32, std::int32_t{100000});   // height, mm
    metti(p, 40, std::uint32_t{420000});  // horizontal accuracy, mm
    metti(p, 44, std::uint32_t{560000});  // vertical: 700 m in space
    metti(p, 48, std::int32_t{5000});     // north, mm/s
    metti(p, 52, std::int32_t{10000});    // east
    metti(p, 56, std::int32_t{1000});     // down
    metti(p, 68, std::uint32_t{3000});
    metti(p, 76, std::uint16_t{250});
    return p;
}

void controlla_equatore(const Soluzione& s) {
    EXPECT_EQ(s.settimana_ms, 400463250u);
    ASSERT_TRUE(s.utc);
    EXPECT_EQ(s.utc->testo(), "2024-03-28T15:14:05.250Z");
    EXPECT_EQ(s.fix, 3u);
    EXPECT_EQ(s.satelliti, 7u);
    ASSERT_TRUE(s.luogo && s.velocita);
    EXPECT_NEAR(s.luogo->latitudine, 0, 1e-12);
    EXPECT_NEAR(s.luogo->longitudine, 0, 1e-12);
    EXPECT_NEAR(*s.altezza(), 100, 1e-9);
    EXPECT_NEAR(*s.andatura(), std::sqrt(126.0), 1e-12);
    EXPECT_NEAR(*s.rotta(), 63.43494882292201, 1e-9);  // atan(2)
    EXPECT_NEAR(*s.salita(), -1, 1e-12);
    EXPECT_NEAR(*s.accuratezza_posizione, 700, 1e-9);
    EXPECT_NEAR(*s.accuratezza_velocita, 3, 1e-12);
}

TEST(Soluzione, NavSolIsReadInDoublePrecision) {
    controlla_equatore(da_nav_sol(equatore()));
}

TEST(Soluzione, NavPvtGivesTheSame) {
    controlla_equatore(da_nav_pvt(equatore_pvt()));
    const Sol sol = nav_sol_da_pvt(equatore_pvt());
    controlla_equatore(da_nav_sol(sol));
    Sol atteso = equatore();
    metti(atteso, 44, std::uint16_t{250});
    EXPECT_EQ(sol, atteso) << "the packet of the logger, to the byte";
}

// 0 none, 1 dead reckoning, 2 in the plane, 3 in space, 4 with dead reckoning, 5 time alone.
TEST(Soluzione, WithoutAFixThereIsNothing) {
    for (unsigned fix = 0; fix < 256; ++fix) {
        const auto uno = static_cast<std::uint8_t>(fix);
        const bool piano = fix == 2;
        const bool spazio = fix == 3 || fix == 4;
        for (const Soluzione& s : {da_nav_sol(equatore(uno)), da_nav_pvt(equatore_pvt(uno))}) {
            EXPECT_EQ(s.fix, fix);
            EXPECT_EQ(s.luogo.has_value(), piano || spazio) << fix;
            EXPECT_EQ(s.andatura().has_value(), piano || spazio) << fix;
            EXPECT_EQ(s.rotta().has_value(), piano || spazio) << fix;
            EXPECT_EQ(s.accuratezza_posizione.has_value(), piano || spazio) << fix;
            EXPECT_EQ(s.accuratezza_velocita.has_value(), piano || spazio) << fix;
            EXPECT_EQ(s.altezza().has_value(), spazio) << fix;
            EXPECT_EQ(s.salita().has_value(), spazio) << fix;
            EXPECT_TRUE(s.utc) << "the time is known all the same";
        }
    }
}

TEST(Soluzione, StandingStillHasNoHeading) {
    Sol p = equatore();
    metti(p, 32, std::int32_t{0});
    metti(p, 36, std::int32_t{0});
    const Soluzione s = da_nav_sol(p);
    EXPECT_FALSE(s.rotta());
    EXPECT_DOUBLE_EQ(*s.andatura(), 1) << "straight down";
}

TEST(Soluzione, UtcIsNothingUntilWeekAndTimeAreKnown) {
    for (const int note : {0x00, 0x01, 0x05, 0x09}) {
        Sol p = equatore();
        p[11] = static_cast<std::uint8_t>(note);
        EXPECT_FALSE(da_nav_sol(p).utc) << note;
    }
    Sol senza_settimana = equatore();
    metti(senza_settimana, 8, std::int16_t{0});
    EXPECT_FALSE(da_nav_sol(senza_settimana).utc);
    for (const int note : {0x00, 0x01, 0x02, 0x03, 0x06}) {
        Pvt p = equatore_pvt();
        p[11] = static_cast<std::uint8_t>(note);
        EXPECT_FALSE(da_nav_pvt(p).utc) << note;
    }
}

TEST(Soluzione, NumbersThatAreNoPlaceAreNothing) {
    Sol centro = equatore();
    metti(centro, 12, std::int32_t{0});
    EXPECT_FALSE(da_nav_sol(centro).luogo) << "the centre of the earth";
    for (const std::size_t asse : {16u, 20u}) {
        Sol fianco = centro;
        metti(fianco, asse, std::int32_t{637823700});
        EXPECT_TRUE(da_nav_sol(fianco).luogo) << "on another axis";
    }
    Pvt oltre = equatore_pvt();
    metti(oltre, 28, std::int32_t{900000001});
    EXPECT_FALSE(da_nav_pvt(oltre).altezza());
    EXPECT_FALSE(da_nav_pvt(oltre).salita());
    EXPECT_FALSE(da_nav_pvt(oltre).rotta());
    EXPECT_FALSE(da_nav_pvt(oltre).luogo) << "beyond the pole";
    Pvt giro = equatore_pvt();
    metti(giro, 24, std::int32_t{1800000001});
    EXPECT_FALSE(da_nav_pvt(giro).luogo) << "longitudes end at 180 degrees";
}

TEST(Soluzione, AccuraciesAreWholeNotTheirLowByte) {
    Sol p = equatore();
    metti(p, 24, std::uint32_t{0xFFFFFFFF});
    metti(p, 40, std::uint32_t{300});
    EXPECT_DOUBLE_EQ(*da_nav_sol(p).accuratezza_posizione, 42949672.95);
    EXPECT_DOUBLE_EQ(*da_nav_sol(p).accuratezza_velocita, 3.0);
}

// Where the simulator's own ellipsoid puts the kart: the packet's centimetres are all that lies between.
TEST(Soluzione, SimulatedPlacesComeBackWithinTheirCentimetre) {
    const kel::simulatore::PianoLocale piano(kel::simulatore::LUOGO);
    kel::simulatore::Kart kart(1, 5, 3);
    kel::simulatore::Istante istante;
    int con_fix = 0;
    while (kart.prossimo(istante)) {
        const std::string byte = kel::simulatore::payload_nav_sol(istante, piano);
        Sol p{};
        std::copy(byte.begin(), byte.end(), p.begin());
        const Soluzione s = da_nav_sol(p);
        ASSERT_EQ(s.luogo.has_value(), istante.fix >= 2);
        if (!s.luogo)
            continue;
        ++con_fix;
        const kel::simulatore::Geodetiche vero = piano.geodetiche(istante.posizione);
        ASSERT_NEAR(s.luogo->latitudine, vero.latitudine, 1e-7);
        ASSERT_NEAR(s.luogo->longitudine, vero.longitudine, 1.5e-7);
        ASSERT_NEAR(s.luogo->altezza, vero.altezza, 0.01);
        ASSERT_NEAR(s.velocita->est, istante.velocita.x, 0.012);
        ASSERT_NEAR(s.velocita->nord, istante.velocita.y, 0.012);
    }
    EXPECT_GT(con_fix, 200);
}

TEST(Soluzione, AnyBytesGiveNumbers) {
    std::mt19937 caso(5);
    for (int giro = 0; giro < 20000; ++giro) {
        Pvt p;
        for (std::uint8_t& byte : p)
            byte = caso() % 4 == 0 ? (caso() % 2 == 0 ? 0x00 : 0xFF) : static_cast<std::uint8_t>(caso());
        p[20] = static_cast<std::uint8_t>(caso() % 6);
        const Sol sol = nav_sol_da_pvt(p);
        for (const Soluzione& s : {da_nav_pvt(p), da_nav_sol(sol)})
            for (const CampoGps campo : CAMPI_GPS)
                ASSERT_TRUE(std::isfinite(valore_gps(s, campo).value_or(0)));
    }
}

TEST(Soluzione, NavPvtHasItsPlaceInTenMillionthsOfADegree) {
    Pvt p = equatore_pvt();
    metti(p, 24, std::int32_t{-1041070001});
    metti(p, 28, std::int32_t{448231002});
    metti(p, 32, std::int32_t{-12345});
    const Soluzione s = da_nav_pvt(p);
    EXPECT_DOUBLE_EQ(s.luogo->longitudine, -104.1070001);
    EXPECT_DOUBLE_EQ(s.luogo->latitudine, 44.8231002);
    EXPECT_DOUBLE_EQ(s.luogo->altezza, -12.345);
}

TEST(Soluzione, AFieldThatNobodyKnowsIsNothing) {
    const auto nessuno = static_cast<CampoGps>(std::size(CAMPI_GPS));
    EXPECT_EQ(fid_di(nessuno), 0u);
    EXPECT_FALSE(valore_gps(da_nav_sol(equatore()), nessuno));
}

// The greatest numbers that a message holds.
TEST(Soluzione, NavSolHasRoomForWhateverNavPvtHolds) {
    Pvt p = equatore_pvt();
    metti(p, 32, std::int32_t{2147483647});
    metti(p, 40, std::uint32_t{4294967295});
    metti(p, 44, std::uint32_t{4294967295});
    metti(p, 48, std::int32_t{-2147483647});
    metti(p, 52, std::int32_t{2147483647});
    metti(p, 56, std::int32_t{2147483647});
    metti(p, 68, std::uint32_t{4294967295});
    const Sol sol = nav_sol_da_pvt(p);
    EXPECT_EQ(intero<std::int32_t>(sol, 12), 852562065);
    EXPECT_EQ(intero<std::uint32_t>(sol, 24), 607400100u);
    EXPECT_EQ(intero<std::int32_t>(sol, 28), -214748365);
    EXPECT_EQ(intero<std::int32_t>(sol, 32), 214748365);
    EXPECT_EQ(intero<std::int32_t>(sol, 36), -214748365);
    EXPECT_EQ(intero<std::uint32_t>(sol, 40), 429496730u);
}

TEST(LettoreSoluzioni, OneSolutionAnEpochWhereBothMessagesAre) {
    std::string byte;
    for (std::uint32_t ms = 0; ms < 5000; ms += 1000)
        byte += frame(6, equatore(3, ms)) + frame(7, equatore_pvt(3, ms));
    byte += frame(7, equatore_pvt(3, 5000)) + frame(7, equatore_pvt(3, 6000)) + frame(6, equatore(3, 6000));
    LettoreSoluzioni l = lettore(byte);
    std::vector<std::uint32_t> epoche;
    while (l.prossima())
        epoche.push_back(l.soluzione().settimana_ms);
    EXPECT_EQ(epoche, (std::vector<std::uint32_t>{0, 1000, 2000, 3000, 4000, 5000, 6000}));
    EXPECT_EQ(l.conteggi().soluzioni, 7u);
    EXPECT_EQ(l.conteggi().stessa_epoca, 6u);
}

TEST(LettoreSoluzioni, OneMessageTwiceIsTwoSolutions) {
    const std::string byte = frame(6, equatore(3, 1000)) + frame(6, equatore(3, 1000));
    LettoreSoluzioni l = lettore(byte);
    EXPECT_TRUE(l.prossima() && l.prossima());
    EXPECT_FALSE(l.prossima());
    EXPECT_EQ(l.conteggi().stessa_epoca, 0u);
}

TEST(UltimaSoluzione, OnePayloadIsDecodedOnceAndAnyOtherAnew) {
    UltimaSoluzione ultima;
    Sol payload{};  // zeros are a payload too
    EXPECT_EQ(ultima.di(payload).fix, 0u);
    payload = equatore();
    const Soluzione& soluzione = ultima.di(payload);
    controlla_equatore(soluzione);
    EXPECT_EQ(&ultima.di(Sol(payload)), &soluzione);
    for (std::uint8_t& byte : payload) {
        byte ^= 1;
        const Soluzione nuova = ultima.di(payload);
        const Soluzione attesa = da_nav_sol(payload);
        EXPECT_EQ(nuova.settimana_ms, attesa.settimana_ms);
        EXPECT_EQ(nuova.fix, attesa.fix);
        EXPECT_EQ(nuova.satelliti, attesa.satelliti);
        EXPECT_EQ(nuova.utc.has_value(), attesa.utc.has_value());
        EXPECT_EQ(nuova.andatura(), attesa.andatura());
        EXPECT_EQ(nuova.altezza(), attesa.altezza());
        EXPECT_EQ(nuova.accuratezza_posizione, attesa.accuratezza_posizione);
        EXPECT_EQ(nuova.accuratezza_velocita, attesa.accuratezza_velocita);
    }
}

TEST(LettoreSoluzioni, OtherLengthsAreNoSolutions) {
    std::array<std::uint8_t, NAV_PVT_BYTE - 1> corto{};
    const std::string byte = frame(7, corto) + frame(6, equatore_pvt());
    LettoreSoluzioni l = lettore(byte);
    EXPECT_FALSE(l.prossima());
    EXPECT_EQ(l.conteggi().lunghezza_errata, 2u);
    EXPECT_EQ(l.conteggi().per_tipo.size(), 2u);
}

}  // namespace
