// The computed subfields of the GPS packets: speed, latitude and longitude.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

#include "converters/lettura.h"
#include "model/campioni.h"

using namespace kel_test;

namespace {

constexpr kel_funpos kVelocita = 0xA8010;
constexpr kel_funpos kLatitudine = 0xA8A07;
constexpr kel_funpos kLongitudine = 0xA8A87;

struct Soluzione {
    std::int32_t x = 0, y = 0, z = 0;
    std::int32_t vx = 0, vy = 0, vz = 0;
    unsigned char fix = 3;
    unsigned char satelliti = 8;
};

// The NAV-SOL payload: 52 bytes.
Byte NavSol(const Soluzione& s) {
    Byte p(52, 0);
    p[10] = s.fix;
    Metti(p, 12, LeI32(s.x));
    Metti(p, 16, LeI32(s.y));
    Metti(p, 20, LeI32(s.z));
    Metti(p, 28, LeI32(s.vx));
    Metti(p, 32, LeI32(s.vy));
    Metti(p, 36, LeI32(s.vz));
    p[47] = s.satelliti;
    return p;
}

// The logger's packet: a 32-bit time and the payload.
Byte PacchettoGps(const Soluzione& s) {
    Byte p(4, 0);
    const Byte carico = NavSol(s);
    p.insert(p.end(), carico.begin(), carico.end());
    return p;
}

float LeggiGps(const Soluzione& s, kel_funpos fid, const s_converter_data* dati = &kIdentita) {
    s_kel_converter conv = Sottocampo(kPacchettoGps, 8, fid, dati);
    const Lettura letto = Leggi(conv, PacchettoGps(s));
    EXPECT_EQ(letto.ha_valore, 1);
    EXPECT_EQ(letto.stato, 0u);
    return letto.valore;
}

float LeggiUbx(const Soluzione& s, kel_funpos fid, const s_converter_data* dati = &kIdentita) {
    s_kel_converter conv = Sottocampo(kPacchettoUbx, 9, fid, dati);
    const Lettura letto = Leggi(conv, NavSol(s));
    EXPECT_EQ(letto.ha_valore, 1);
    EXPECT_EQ(letto.stato, 0u);
    return letto.valore;
}

Soluzione Moto(std::int32_t vx, std::int32_t vy, std::int32_t vz, unsigned char fix = 3, unsigned char satelliti = 8) {
    Soluzione s;
    s.vx = vx;
    s.vy = vy;
    s.vz = vz;
    s.fix = fix;
    s.satelliti = satelliti;
    return s;
}

Soluzione Punto(std::int32_t x, std::int32_t y, std::int32_t z) {
    Soluzione s;
    s.x = x;
    s.y = y;
    s.z = z;
    return s;
}

TEST(GpsSpeed, IsTheLengthOfTheVelocityInKilometresPerHour) {
    EXPECT_FLOAT_EQ(LeggiGps(Moto(100, 0, 0), kVelocita), 3.6f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(0, -100, 0), kVelocita), 3.6f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(0, 0, 100), kVelocita), 3.6f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(3000, 4000, 0), kVelocita), 180.0f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(-200, 300, -600), kVelocita), 25.2f);
    EXPECT_EQ(LeggiGps(Moto(0, 0, 0), kVelocita), 0.0f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(INT_MIN, INT_MIN, INT_MIN), kVelocita), 133903828.0f);
}

TEST(GpsSpeed, IsZeroWithoutAThreeDimensionalFixOfFourSatellites) {
    for (unsigned fix : {0u, 1u, 2u}) {
        EXPECT_EQ(LeggiGps(Moto(100, 0, 0, static_cast<unsigned char>(fix), 12), kVelocita), 0.0f) << "fix " << fix;
    }
    for (unsigned satelliti : {0u, 1u, 2u, 3u}) {
        EXPECT_EQ(LeggiGps(Moto(100, 0, 0, 3, static_cast<unsigned char>(satelliti)), kVelocita), 0.0f)
            << satelliti << " satellites";
    }
    EXPECT_FLOAT_EQ(LeggiGps(Moto(100, 0, 0, 3, 4), kVelocita), 3.6f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(100, 0, 0, 255, 255), kVelocita), 3.6f);
}

TEST(GpsSpeed, WithoutAFixIsZeroWithoutTheOffset) {
    EXPECT_EQ(LeggiGps(Moto(100, 0, 0, 2, 8), kVelocita, &kDoppioPiuCinque), 0.0f);
    EXPECT_EQ(LeggiGps(Moto(100, 0, 0, 3, 3), kVelocita, &kDoppioPiuCinque), 0.0f);
    EXPECT_EQ(LeggiGps(Moto(100, 0, 0, 2, 8), kVelocita, &kReciproca), 0.0f);
    EXPECT_EQ(LeggiGps(Moto(100, 0, 0, 3, 3), kVelocita, &kReciproca), 0.0f);
}

TEST(GpsSpeed, IsScaledByGainAndOffset) {
    EXPECT_FLOAT_EQ(LeggiGps(Moto(100, 0, 0), kVelocita, &kDoppioPiuCinque), 12.2f);
    EXPECT_EQ(LeggiGps(Moto(0, 0, 0), kVelocita, &kDoppioPiuCinque), 5.0f);
    EXPECT_FLOAT_EQ(LeggiGps(Moto(3000, 4000, 0), kVelocita, kelFunGetConvData(kVelocita, "mph")), 111.84678f);
}

TEST(GpsSpeed, ReciprocalFormDividesBeforeScaling) {
    EXPECT_FLOAT_EQ(LeggiGps(Moto(100, 0, 0), kVelocita, &kReciproca), 1.0f / 3.6f * 2.0f + 5.0f);
    EXPECT_EQ(LeggiGps(Moto(0, 0, 0), kVelocita, &kReciproca), 0.0f);
}

TEST(GpsSpeed, ShowsAsNumericText) {
    s_kel_converter conv = Sottocampo(kPacchettoGps, 8, kVelocita);
    conv.larghezza = 4;
    conv.decimali = 1;
    EXPECT_EQ(Leggi(conv, PacchettoGps(Moto(3000, 4000, 0))).testo, "180.0");
    EXPECT_EQ(Leggi(conv, PacchettoGps(Moto(100, 0, 0))).testo, "  3.6");
    EXPECT_EQ(Leggi(conv, PacchettoGps(Moto(100, 0, 0, 0, 0))).testo, "  0.0");
}

TEST(PlainSpeed, IsTheLengthOfTheVelocityInCentimetresPerSecond) {
    EXPECT_EQ(LeggiUbx(Moto(100, 0, 0), kVelocita), 100.0f);
    EXPECT_EQ(LeggiUbx(Moto(0, 100, 0), kVelocita), 100.0f);
    EXPECT_EQ(LeggiUbx(Moto(0, 0, -100), kVelocita), 100.0f);
    EXPECT_EQ(LeggiUbx(Moto(3000, 4000, 0), kVelocita), 5000.0f);
    EXPECT_EQ(LeggiUbx(Moto(-200, 300, -600), kVelocita), 700.0f);
    EXPECT_EQ(LeggiUbx(Moto(0, 0, 0), kVelocita), 0.0f);
}

TEST(PlainSpeed, LooksAtNeitherFixNorSatellites) {
    EXPECT_EQ(LeggiUbx(Moto(100, 0, 0, 0, 0), kVelocita), 100.0f);
    EXPECT_EQ(LeggiUbx(Moto(100, 0, 0, 2, 3), kVelocita), 100.0f);
}

TEST(PlainSpeed, IsScaledAndHasAReciprocalForm) {
    EXPECT_EQ(LeggiUbx(Moto(100, 0, 0), kVelocita, &kDoppioPiuCinque), 205.0f);
    EXPECT_EQ(LeggiUbx(Moto(0, 0, 0), kVelocita, &kDoppioPiuCinque), 5.0f);
    EXPECT_EQ(LeggiUbx(Moto(4, 0, 0), kVelocita, &kReciproca), 5.5f);
    EXPECT_EQ(LeggiUbx(Moto(0, 0, 0), kVelocita, &kReciproca), 0.0f);
}

TEST(Longitude, IsTheAngleOfXAndY) {
    // clang-format off
    EXPECT_EQ(LeggiGps(Punto(0, 0, 0), kLongitudine), 0.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, 6356752), kLongitudine), 0.0f);
    EXPECT_EQ(LeggiGps(Punto(1, 0, 0), kLongitudine), 0.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 1, 0), kLongitudine), 90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, -5, 0), kLongitudine), -90.0f);
    EXPECT_EQ(LeggiGps(Punto(-6378137, 0, 0), kLongitudine), 180.0f);
    EXPECT_EQ(LeggiGps(Punto(4510731, 4510731, 0), kLongitudine), 45.0f);
    EXPECT_EQ(LeggiGps(Punto(INT_MIN, INT_MIN, 0), kLongitudine), -135.0f);
    EXPECT_EQ(LeggiGps(Punto(100, -200, 300), kLongitudine), -63.4349480f);
    EXPECT_EQ(LeggiGps(Punto(4201790, 172470, 4780130), kLongitudine), 2.35048842f);
    EXPECT_EQ(LeggiGps(Punto(-217300000, -425700000, 424000000), kLongitudine), -117.042191f);
    // clang-format on
}

TEST(Latitude, OnTheAxisIsAPole) {
    EXPECT_EQ(LeggiGps(Punto(0, 0, 1), kLatitudine), 90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, 6356752), kLatitudine), 90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, INT_MAX), kLatitudine), 90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, -1), kLatitudine), -90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, INT_MIN), kLatitudine), -90.0f);
}

TEST(Latitude, InTheCentreIsZero) {
    EXPECT_EQ(LeggiGps(Punto(0, 0, 0), kLatitudine), 0.0f);
}

TEST(Latitude, FollowsItsIterationOnTheNumbersAsTheyAre) {
    // clang-format off
    EXPECT_EQ(LeggiGps(Punto(6378137, 0, 0), kLatitudine), 0.0f);
    EXPECT_EQ(LeggiGps(Punto(-6378137, 0, 0), kLatitudine), 0.0f);
    EXPECT_EQ(LeggiGps(Punto(4510731, 0, 4510731), kLatitudine), 45.1920700f);
    EXPECT_EQ(LeggiGps(Punto(4510731, 4510731, -4510731), kLatitudine), -35.4124336f);
    EXPECT_EQ(LeggiGps(Punto(4201790, 172470, 4780130), kLatitudine), 48.8509903f);    // metres: Paris
    EXPECT_EQ(LeggiGps(Punto(451073100, 0, 451073100), kLatitudine), 45.0019226f);     // centimetres
    EXPECT_EQ(LeggiGps(Punto(-217300000, -425700000, 424000000), kLatitudine), 41.5786209f);
    EXPECT_EQ(LeggiGps(Punto(1, 0, 1), kLatitudine), 89.9986649f);
    EXPECT_EQ(LeggiGps(Punto(100, -200, 300), kLatitudine), 89.7030258f);
    EXPECT_EQ(LeggiGps(Punto(INT_MAX, INT_MIN, INT_MIN), kLatitudine), -35.2647018f);
    // clang-format on
}

float Modello(modello::Valore quale, const Byte& pacchetto) {
    return modello::leggiValore(quale, false, {"", 0, 1, 0, 0, 0, 0}, {}, pacchetto.data()).valore;
}

// The same float, to the last bit: recorded data are compared by it.
template <typename Genera>
void ConfrontaConIlModello(int punti, Genera genera) {
    s_kel_converter latitudine = Sottocampo(kPacchettoGps, 8, kLatitudine);
    s_kel_converter longitudine = Sottocampo(kPacchettoGps, 8, kLongitudine);
    for (int i = 0; i < punti; ++i) {
        const Soluzione s = genera();
        const Byte pacchetto = PacchettoGps(s);
        float lat = -1.0f;
        float lon = -1.0f;
        kelConvGetValFloat(&latitudine, pacchetto.data(), &lat);
        kelConvGetValFloat(&longitudine, pacchetto.data(), &lon);
        ASSERT_EQ(lat, Modello(modello::Valore::latitudine, pacchetto)) << s.x << ' ' << s.y << ' ' << s.z;
        ASSERT_EQ(lon, Modello(modello::Valore::longitudine, pacchetto)) << s.x << ' ' << s.y;
    }
}

TEST(LatitudeAndLongitude, AgreeWithTheirModelAtRandomPoints) {
    std::mt19937 caso(6378137);
    ConfrontaConIlModello(20000, [&caso] {
        const unsigned scala = static_cast<unsigned>(caso() % 31);
        const auto numero = [&] { return static_cast<std::int32_t>(static_cast<std::uint32_t>(caso())) >> scala; };
        return Punto(numero(), numero(), numero());
    });
}

// Where receivers are: within some kilometres of the ellipsoid, everywhere.
TEST(LatitudeAndLongitude, AgreeWithTheirModelOnTheEarth) {
    std::mt19937 caso(1984);
    std::uniform_real_distribution<double> unita(-1.0, 1.0);
    ConfrontaConIlModello(200000, [&] {
        const double raggio = 637000000.0 + 1500000.0 * unita(caso);
        const double seno = unita(caso);
        const double lontano = raggio * std::sqrt(1.0 - seno * seno);
        const double angolo = 3.141592653589793 * unita(caso);
        return Punto(static_cast<std::int32_t>(lontano * std::cos(angolo)),
                     static_cast<std::int32_t>(lontano * std::sin(angolo)), static_cast<std::int32_t>(raggio * seno));
    });
}

// Near the equator the iteration's last step is not small beside z, and near the centre not beside the radius.
TEST(LatitudeAndLongitude, AgreeWithTheirModelNearTheEquatorTheAxisAndTheCentre) {
    std::mt19937 caso(10000);
    const auto fino = [&caso](std::int32_t massimo) {
        return static_cast<std::int32_t>(caso() % (2u * static_cast<unsigned>(massimo) + 1)) - massimo;
    };
    ConfrontaConIlModello(50000, [&] { return Punto(fino(640000000), fino(640000000), fino(20000)); });
    ConfrontaConIlModello(50000, [&] { return Punto(fino(20), fino(20), fino(640000000)); });
    ConfrontaConIlModello(50000, [&] {
        return Punto(353553391 + fino(1000000), fino(1000000), 353553391 + fino(1000000));  // 5000 km from the centre
    });
}

TEST(LatitudeAndLongitude, LookAtNeitherFixNorSatellites) {
    Soluzione s = Punto(4510731, 4510731, 0);
    s.fix = 0;
    s.satelliti = 0;
    EXPECT_EQ(LeggiGps(s, kLongitudine), 45.0f);
    EXPECT_EQ(LeggiGps(s, kLatitudine), 0.0f);
}

TEST(LatitudeAndLongitude, AreNotScaled) {
    EXPECT_EQ(LeggiGps(Punto(0, 1, 0), kLongitudine, &kDoppioPiuCinque), 90.0f);
    EXPECT_EQ(LeggiGps(Punto(0, 0, 1), kLatitudine, &kDoppioPiuCinque), 90.0f);
}

TEST(LatitudeAndLongitude, HaveNoReciprocalForm) {
    // A reciprocal unit asks for the row's reciprocal function, and there is none.
    for (kel_funpos fid : {kLatitudine, kLongitudine}) {
        s_kel_converter conv = Sottocampo(kPacchettoGps, 8, fid, &kReciproca);
        const Lettura letto = Leggi(conv, PacchettoGps(Punto(1, 1, 1)));
        EXPECT_EQ(letto.ha_valore, 0);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.testo, "?") << "a numeric text without a value and without a status text";
    }
}

TEST(LatitudeAndLongitude, ShowWithAsManyDecimalsAsANumericTextHas) {
    s_kel_converter conv = Sottocampo(kPacchettoGps, 8, kLongitudine);
    conv.larghezza = 7;
    conv.decimali = 5;
    EXPECT_EQ(Leggi(conv, PacchettoGps(Punto(-217300000, -425700000, 424000000))).testo, "-117.042");
    conv.decimali = 1;
    EXPECT_EQ(Leggi(conv, PacchettoGps(Punto(0, 1, 0))).testo, "    90.0");
}

TEST(ComputedSubfield, HasNoStatusText) {
    for (kel_funpos fid : {kVelocita, kLatitudine, kLongitudine}) {
        EXPECT_EQ(Sottocampo(kPacchettoGps, 8, fid).testo_stato, nullptr);
    }
}

}  // namespace
