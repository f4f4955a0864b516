// Solutions as the device shows them, through the packet channel, against sums done here on the message's own numbers.
#include "captures/navsol.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "gps/flusso_ubx.h"
#include "gps/soluzione.h"
#include "messaggi.h"

namespace {

using namespace kel::strumento;
using namespace kel_registrazioni;
using Payload = std::array<std::uint8_t, NAV_SOL_BYTE>;

std::int32_t i32(const Payload& p, std::size_t da) {
    std::uint32_t valore = 0;
    for (std::size_t i = 4; i-- > 0;)
        valore = valore << 8 | p[da + i];
    return static_cast<std::int32_t>(valore);
}

void metti(Payload& p, std::size_t da, std::int32_t valore) {
    for (std::size_t i = 0; i < 4; ++i)
        p[da + i] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(valore) >> (8 * i));
}

double gradi(double radianti) {
    return radianti * 180.0 / 3.14159265358979323846;
}

std::vector<Payload> payload(const std::string& byte) {
    std::size_t da = 0;
    LettoreUbx lettore([&](std::uint8_t* dove, std::size_t quanti) {
        quanti = std::min(quanti, byte.size() - da);
        std::memcpy(dove, byte.data() + da, quanti);
        da += quanti;
        return quanti;
    });
    std::vector<Payload> tutti;
    MessaggioUbx messaggio;
    while (lettore.prossimo(messaggio))
        if (messaggio.classe == NAV_SOL_CLASSE && messaggio.id == NAV_SOL_ID) {
            Payload& p = tutti.emplace_back();
            std::copy_n(messaggio.dati.begin(), NAV_SOL_BYTE, p.begin());
        }
    return tutti;
}

// Fix, satellites, longitude, speed and accuracies of every solution, from the numbers of the message.
void confronta(const std::vector<Payload>& tutti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const CanaleNavSol canale(*catalogo, "km/h", 3);
    for (std::size_t i = 0; i < tutti.size(); ++i) {
        const Payload& p = tutti[i];
        const SoluzioneDispositivo s = canale.leggi(p);
        EXPECT_EQ(s.settimana_ms, static_cast<std::uint32_t>(i32(p, 0)));
        EXPECT_EQ(s.fix, p[10]);
        EXPECT_EQ(s.satelliti, p[47]);
        EXPECT_EQ(s.accuratezza_posizione, p[24]);
        EXPECT_EQ(s.accuratezza_velocita, p[40]);
        const double longitudine = gradi(std::atan2(i32(p, 16), i32(p, 12)));
        EXPECT_NEAR(s.longitudine, longitudine, 4e-6) << "solution " << i;  // half a float's step near 117 degrees
        const double vx = i32(p, 28), vy = i32(p, 32), vz = i32(p, 36);
        const double velocita = p[10] < 3 || p[47] < 4 ? 0.0 : std::sqrt(vx * vx + vy * vy + vz * vz) * 0.036;
        EXPECT_NEAR(s.velocita, velocita, 2e-5 + velocita * 1e-6) << "solution " << i;
    }
}

std::string simulata() {
    std::string byte;
    kel::simulatore::registrazione(2, 5, 3, [&byte](const std::string& pezzo) { byte += pezzo; });
    return byte;
}

TEST(NavSol, SimulatedSolutionsAgreeWithTheirMessages) {
    const std::vector<Payload> tutti = payload(simulata());
    ASSERT_GT(tutti.size(), 300u);
    confronta(tutti);
}

TEST(NavSol, SpeedIsShownInTheUnitAskedFor) {
    Payload p{};
    p[10] = 3;
    p[47] = 4;
    metti(p, 28, 1000);  // 10 m/s = 36 km/h
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(CanaleNavSol(*catalogo, "km/h", 3).leggi(p).testo_velocita, "36.000");
    EXPECT_EQ(CanaleNavSol(*catalogo, "mph", 1).leggi(p).testo_velocita, "22.4");
    p[47] = 3;  // too few satellites
    EXPECT_EQ(CanaleNavSol(*catalogo, "km/h", 3).leggi(p).testo_velocita, "0.000");
}

TEST(NavSol, AnyPayloadGivesFiniteValues) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const CanaleNavSol canale(*catalogo, "km/h", 3);
    std::mt19937 caso(11);
    for (int giro = 0; giro < 20000; ++giro) {
        Payload p;
        for (std::uint8_t& byte : p)  // extremes far more often than chance has them
            byte = caso() % 4 == 0   ? 0x00
                   : caso() % 4 == 0 ? 0xFF
                   : caso() % 8 == 0 ? 0x80
                                     : static_cast<std::uint8_t>(caso());
        const SoluzioneDispositivo s = canale.leggi(p);
        ASSERT_TRUE(std::isfinite(s.longitudine) && std::fabs(s.longitudine) <= 180.0f);
        ASSERT_TRUE(std::isfinite(s.latitudine) && std::fabs(s.latitudine) <= 90.0f);
        ASSERT_TRUE(std::isfinite(s.velocita) && s.velocita >= 0.0f);
    }
}

// The figure that help and documentation give for the latitude: at most 0.19 degrees from WGS 84, near 45 degrees.
TEST(NavSol, LatitudeLiesUpTo019DegreesFromWgs84) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const CanaleNavSol canale(*catalogo, "km/h", 1);
    double massimo = 0;
    double dove = 0;
    for (int decimi = -900; decimi <= 900; ++decimi) {
        const double latitudine = decimi / 10.0;
        const kel::simulatore::Vettore r = kel::simulatore::ecef({latitudine, 11.0, 200.0});
        Payload p{};
        metti(p, 12, static_cast<std::int32_t>(std::lround(r.x * 100)));
        metti(p, 16, static_cast<std::int32_t>(std::lround(r.y * 100)));
        metti(p, 20, static_cast<std::int32_t>(std::lround(r.z * 100)));
        const double scarto = std::fabs(canale.leggi(p).latitudine - latitudine);
        if (scarto > massimo) {
            massimo = scarto;
            dove = std::fabs(latitudine);
        }
        if (decimi == 0 || decimi == 900 || decimi == -900) {
            EXPECT_NEAR(scarto, 0.0, 1e-4) << latitudine;
        }
    }
    EXPECT_NEAR(massimo, 0.1905, 0.0002);
    EXPECT_NEAR(dove, 45.1, 1.0);
}

TEST(NavSol, RecordedSolutionsAgreeWithTheirMessages) {
    const char* cartella = std::getenv("KEL_CAPTURES");
    if (cartella == nullptr)
        GTEST_SKIP() << "KEL_CAPTURES does not name a folder of captures";
    std::ifstream file(std::string(cartella) + "/navisys-gr701w.log", std::ios::binary);
    ASSERT_TRUE(file) << "no navisys-gr701w.log in " << cartella;
    const std::vector<Payload> tutti = payload({std::istreambuf_iterator<char>(file), {}});
    ASSERT_EQ(tutti.size(), 81u);
    confronta(tutti);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const SoluzioneDispositivo prima = CanaleNavSol(*catalogo, "km/h", 3).leggi(tutti[0]);
    EXPECT_NEAR(prima.longitudine, -117.020462, 4e-6);
    EXPECT_EQ(prima.testo_velocita, "1.582");
}

}  // namespace
