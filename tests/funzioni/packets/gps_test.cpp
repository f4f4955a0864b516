// The computed subfields of the GPS packets: speed, latitude and longitude.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

#include "converters/lettura.h"
#include "model/campioni.h"

using namespace kel_test;

namespace {

constexpr kel_funpos VELOCITA = 0xA8010;
constexpr kel_funpos LATITUDINE = 0xA8A07;
constexpr kel_funpos LONGITUDINE = 0xA8A87;

struct Soluzione {
    std::int32_t x = 0, y = 0, z = 0;
    std::int32_t vx = 0, vy = 0, vz = 0;
    unsigned char fix = 3;
    unsigned char satelliti = 8;
};

// The NAV-SOL payload: 52 bytes.
Byte nav_sol(const Soluzione& s) {
    Byte p(52, 0);
    p[10] = s.fix;
    metti(p, 12, le_i32(s.x));
    metti(p, 16, le_i32(s.y));
    metti(p, 20, le_i32(s.z));
    metti(p, 28, le_i32(s.vx));
    metti(p, 32, le_i32(s.vy));
    metti(p, 36, le_i32(s.vz));
    p[47] = s.satelliti;
    return p;
}

// The logger's packet: a 32-bit time and the payload.
Byte pacchetto_gps(const Soluzione& s) {
    Byte p(4, 0);
    const Byte carico = nav_sol(s);
    p.insert(p.end(), carico.begin(), carico.end());
    return p;
}

float leggi_gps(const Soluzione& s, kel_funpos fid, const s_converter_data* dati = &IDENTITA) {
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, fid, dati);
    const Lettura letto = leggi(conv, pacchetto_gps(s));
    EXPECT_EQ(letto.ha_valore, 1);
    EXPECT_EQ(letto.stato, 0u);
    return letto.valore;
}

float leggi_ubx(const Soluzione& s, kel_funpos fid, const s_converter_data* dati = &IDENTITA) {
    s_kel_converter conv = sottocampo(PACCHETTO_UBX, 9, fid, dati);
    const Lettura letto = leggi(conv, nav_sol(s));
    EXPECT_EQ(letto.ha_valore, 1);
    EXPECT_EQ(letto.stato, 0u);
    return letto.valore;
}

Soluzione moto(std::int32_t vx, std::int32_t vy, std::int32_t vz, unsigned char fix = 3, unsigned char satelliti = 8) {
    Soluzione s;
    s.vx = vx;
    s.vy = vy;
    s.vz = vz;
    s.fix = fix;
    s.satelliti = satelliti;
    return s;
}

Soluzione punto(std::int32_t x, std::int32_t y, std::int32_t z) {
    Soluzione s;
    s.x = x;
    s.y = y;
    s.z = z;
    return s;
}

TEST(GpsSpeed, IsTheLengthOfTheVelocityInKilometresPerHour) {
    EXPECT_FLOAT_EQ(leggi_gps(moto(100, 0, 0), VELOCITA), 3.6f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(0, -100, 0), VELOCITA), 3.6f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(0, 0, 100), VELOCITA), 3.6f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(3000, 4000, 0), VELOCITA), 180.0f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(-200, 300, -600), VELOCITA), 25.2f);
    EXPECT_EQ(leggi_gps(moto(0, 0, 0), VELOCITA), 0.0f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(INT_MIN, INT_MIN, INT_MIN), VELOCITA), 133903828.0f);
}

TEST(GpsSpeed, IsZeroWithoutAThreeDimensionalFixOfFourSatellites) {
    for (unsigned fix : {0u, 1u, 2u}) {
        EXPECT_EQ(leggi_gps(moto(100, 0, 0, static_cast<unsigned char>(fix), 12), VELOCITA), 0.0f) << "fix " << fix;
    }
    for (unsigned satelliti : {0u, 1u, 2u, 3u}) {
        EXPECT_EQ(leggi_gps(moto(100, 0, 0, 3, static_cast<unsigned char>(satelliti)), VELOCITA), 0.0f)
            << satelliti << " satellites";
    }
    EXPECT_FLOAT_EQ(leggi_gps(moto(100, 0, 0, 3, 4), VELOCITA), 3.6f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(100, 0, 0, 255, 255), VELOCITA), 3.6f);
}

TEST(GpsSpeed, WithoutAFixIsZeroWithoutTheOffset) {
    EXPECT_EQ(leggi_gps(moto(100, 0, 0, 2, 8), VELOCITA, &DOPPIO_PIU_CINQUE), 0.0f);
    EXPECT_EQ(leggi_gps(moto(100, 0, 0, 3, 3), VELOCITA, &DOPPIO_PIU_CINQUE), 0.0f);
    EXPECT_EQ(leggi_gps(moto(100, 0, 0, 2, 8), VELOCITA, &RECIPROCA), 0.0f);
    EXPECT_EQ(leggi_gps(moto(100, 0, 0, 3, 3), VELOCITA, &RECIPROCA), 0.0f);
}

TEST(GpsSpeed, IsScaledByGainAndOffset) {
    EXPECT_FLOAT_EQ(leggi_gps(moto(100, 0, 0), VELOCITA, &DOPPIO_PIU_CINQUE), 12.2f);
    EXPECT_EQ(leggi_gps(moto(0, 0, 0), VELOCITA, &DOPPIO_PIU_CINQUE), 5.0f);
    EXPECT_FLOAT_EQ(leggi_gps(moto(3000, 4000, 0), VELOCITA, kelFunGetConvData(VELOCITA, "mph")), 111.84678f);
}

TEST(GpsSpeed, ReciprocalFormDividesBeforeScaling) {
    EXPECT_FLOAT_EQ(leggi_gps(moto(100, 0, 0), VELOCITA, &RECIPROCA), 1.0f / 3.6f * 2.0f + 5.0f);
    EXPECT_EQ(leggi_gps(moto(0, 0, 0), VELOCITA, &RECIPROCA), 0.0f);
}

TEST(GpsSpeed, ShowsAsNumericText) {
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, VELOCITA);
    conv.larghezza = 4;
    conv.decimali = 1;
    EXPECT_EQ(leggi(conv, pacchetto_gps(moto(3000, 4000, 0))).testo, "180.0");
    EXPECT_EQ(leggi(conv, pacchetto_gps(moto(100, 0, 0))).testo, "  3.6");
    EXPECT_EQ(leggi(conv, pacchetto_gps(moto(100, 0, 0, 0, 0))).testo, "  0.0");
}

TEST(PlainSpeed, IsTheLengthOfTheVelocityInCentimetresPerSecond) {
    EXPECT_EQ(leggi_ubx(moto(100, 0, 0), VELOCITA), 100.0f);
    EXPECT_EQ(leggi_ubx(moto(0, 100, 0), VELOCITA), 100.0f);
    EXPECT_EQ(leggi_ubx(moto(0, 0, -100), VELOCITA), 100.0f);
    EXPECT_EQ(leggi_ubx(moto(3000, 4000, 0), VELOCITA), 5000.0f);
    EXPECT_EQ(leggi_ubx(moto(-200, 300, -600), VELOCITA), 700.0f);
    EXPECT_EQ(leggi_ubx(moto(0, 0, 0), VELOCITA), 0.0f);
}

TEST(PlainSpeed, LooksAtNeitherFixNorSatellites) {
    EXPECT_EQ(leggi_ubx(moto(100, 0, 0, 0, 0), VELOCITA), 100.0f);
    EXPECT_EQ(leggi_ubx(moto(100, 0, 0, 2, 3), VELOCITA), 100.0f);
}

TEST(PlainSpeed, IsScaledAndHasAReciprocalForm) {
    EXPECT_EQ(leggi_ubx(moto(100, 0, 0), VELOCITA, &DOPPIO_PIU_CINQUE), 205.0f);
    EXPECT_EQ(leggi_ubx(moto(0, 0, 0), VELOCITA, &DOPPIO_PIU_CINQUE), 5.0f);
    EXPECT_EQ(leggi_ubx(moto(4, 0, 0), VELOCITA, &RECIPROCA), 5.5f);
    EXPECT_EQ(leggi_ubx(moto(0, 0, 0), VELOCITA, &RECIPROCA), 0.0f);
}

TEST(Longitude, IsTheAngleOfXAndY) {
    // clang-format off
    EXPECT_EQ(leggi_gps(punto(0, 0, 0), LONGITUDINE), 0.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, 6356752), LONGITUDINE), 0.0f);
    EXPECT_EQ(leggi_gps(punto(1, 0, 0), LONGITUDINE), 0.0f);
    EXPECT_EQ(leggi_gps(punto(0, 1, 0), LONGITUDINE), 90.0f);
    EXPECT_EQ(leggi_gps(punto(0, -5, 0), LONGITUDINE), -90.0f);
    EXPECT_EQ(leggi_gps(punto(-6378137, 0, 0), LONGITUDINE), 180.0f);
    EXPECT_EQ(leggi_gps(punto(4510731, 4510731, 0), LONGITUDINE), 45.0f);
    EXPECT_EQ(leggi_gps(punto(INT_MIN, INT_MIN, 0), LONGITUDINE), -135.0f);
    EXPECT_EQ(leggi_gps(punto(100, -200, 300), LONGITUDINE), -63.4349480f);
    EXPECT_EQ(leggi_gps(punto(4201790, 172470, 4780130), LONGITUDINE), 2.35048842f);
    EXPECT_EQ(leggi_gps(punto(-217300000, -425700000, 424000000), LONGITUDINE), -117.042191f);
    // clang-format on
}

TEST(Latitude, OnTheAxisIsAPole) {
    EXPECT_EQ(leggi_gps(punto(0, 0, 1), LATITUDINE), 90.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, 6356752), LATITUDINE), 90.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, INT_MAX), LATITUDINE), 90.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, -1), LATITUDINE), -90.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, INT_MIN), LATITUDINE), -90.0f);
}

TEST(Latitude, InTheCentreIsZero) {
    EXPECT_EQ(leggi_gps(punto(0, 0, 0), LATITUDINE), 0.0f);
}

TEST(Latitude, FollowsItsIterationOnTheNumbersAsTheyAre) {
    // clang-format off
    EXPECT_EQ(leggi_gps(punto(6378137, 0, 0), LATITUDINE), 0.0f);
    EXPECT_EQ(leggi_gps(punto(-6378137, 0, 0), LATITUDINE), 0.0f);
    EXPECT_EQ(leggi_gps(punto(4510731, 0, 4510731), LATITUDINE), 45.1920700f);
    EXPECT_EQ(leggi_gps(punto(4510731, 4510731, -4510731), LATITUDINE), -35.4124336f);
    EXPECT_EQ(leggi_gps(punto(4201790, 172470, 4780130), LATITUDINE), 48.8509903f);    // metres: Paris
    EXPECT_EQ(leggi_gps(punto(451073100, 0, 451073100), LATITUDINE), 45.0019226f);     // centimetres
    EXPECT_EQ(leggi_gps(punto(-217300000, -425700000, 424000000), LATITUDINE), 41.5786209f);
    EXPECT_EQ(leggi_gps(punto(1, 0, 1), LATITUDINE), 89.9986649f);
    EXPECT_EQ(leggi_gps(punto(100, -200, 300), LATITUDINE), 89.7030258f);
    EXPECT_EQ(leggi_gps(punto(INT_MAX, INT_MIN, INT_MIN), LATITUDINE), -35.2647018f);
    // clang-format on
}

float modello(modello::Valore quale, const Byte& pacchetto) {
    return modello::leggi_valore(quale, false, {"", 0, 1, 0, 0, 0, 0}, {}, pacchetto.data()).valore;
}

// The same float, to the last bit: recorded data are compared by it.
template <typename Genera>
void confronta_con_il_modello(int punti, Genera genera) {
    s_kel_converter latitudine = sottocampo(PACCHETTO_GPS, 8, LATITUDINE);
    s_kel_converter longitudine = sottocampo(PACCHETTO_GPS, 8, LONGITUDINE);
    for (int i = 0; i < punti; ++i) {
        const Soluzione s = genera();
        const Byte pacchetto = pacchetto_gps(s);
        float lat = -1.0f;
        float lon = -1.0f;
        kelConvGetValFloat(&latitudine, pacchetto.data(), &lat);
        kelConvGetValFloat(&longitudine, pacchetto.data(), &lon);
        ASSERT_EQ(lat, modello(modello::Valore::latitudine, pacchetto)) << s.x << ' ' << s.y << ' ' << s.z;
        ASSERT_EQ(lon, modello(modello::Valore::longitudine, pacchetto)) << s.x << ' ' << s.y;
    }
}

TEST(LatitudeAndLongitude, AgreeWithTheirModelAtRandomPoints) {
    std::mt19937 caso(6378137);
    confronta_con_il_modello(20000, [&caso] {
        const unsigned scala = static_cast<unsigned>(caso() % 31);
        const auto numero = [&] { return static_cast<std::int32_t>(static_cast<std::uint32_t>(caso())) >> scala; };
        return punto(numero(), numero(), numero());
    });
}

// Where receivers are: within some kilometres of the ellipsoid, everywhere.
TEST(LatitudeAndLongitude, AgreeWithTheirModelOnTheEarth) {
    std::mt19937 caso(1984);
    std::uniform_real_distribution<double> unita(-1.0, 1.0);
    confronta_con_il_modello(200000, [&] {
        const double raggio = 637000000.0 + 1500000.0 * unita(caso);
        const double seno = unita(caso);
        const double lontano = raggio * std::sqrt(1.0 - seno * seno);
        const double angolo = 3.141592653589793 * unita(caso);
        return punto(static_cast<std::int32_t>(lontano * std::cos(angolo)),
                     static_cast<std::int32_t>(lontano * std::sin(angolo)), static_cast<std::int32_t>(raggio * seno));
    });
}

// Near the equator the iteration's last step is not small beside z, and near the centre not beside the radius.
TEST(LatitudeAndLongitude, AgreeWithTheirModelNearTheEquatorTheAxisAndTheCentre) {
    std::mt19937 caso(10000);
    const auto fino = [&caso](std::int32_t massimo) {
        return static_cast<std::int32_t>(caso() % (2u * static_cast<unsigned>(massimo) + 1)) - massimo;
    };
    confronta_con_il_modello(50000, [&] { return punto(fino(640000000), fino(640000000), fino(20000)); });
    confronta_con_il_modello(50000, [&] { return punto(fino(20), fino(20), fino(640000000)); });
    confronta_con_il_modello(50000, [&] {
        return punto(353553391 + fino(1000000), fino(1000000), 353553391 + fino(1000000));  // 5000 km from the centre
    });
}

TEST(LatitudeAndLongitude, LookAtNeitherFixNorSatellites) {
    Soluzione s = punto(4510731, 4510731, 0);
    s.fix = 0;
    s.satelliti = 0;
    EXPECT_EQ(leggi_gps(s, LONGITUDINE), 45.0f);
    EXPECT_EQ(leggi_gps(s, LATITUDINE), 0.0f);
}

TEST(LatitudeAndLongitude, AreNotScaled) {
    EXPECT_EQ(leggi_gps(punto(0, 1, 0), LONGITUDINE, &DOPPIO_PIU_CINQUE), 90.0f);
    EXPECT_EQ(leggi_gps(punto(0, 0, 1), LATITUDINE, &DOPPIO_PIU_CINQUE), 90.0f);
}

TEST(LatitudeAndLongitude, HaveNoReciprocalForm) {
    // A reciprocal unit asks for the row's reciprocal function, and there is none.
    for (kel_funpos fid : {LATITUDINE, LONGITUDINE}) {
        s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, fid, &RECIPROCA);
        const Lettura letto = leggi(conv, pacchetto_gps(punto(1, 1, 1)));
        EXPECT_EQ(letto.ha_valore, 0);
        EXPECT_EQ(letto.valore, 0.0f);
        EXPECT_EQ(letto.testo, "?") << "a numeric text without a value and without a status text";
    }
}

TEST(LatitudeAndLongitude, ShowWithAsManyDecimalsAsANumericTextHas) {
    s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, LONGITUDINE);
    conv.larghezza = 7;
    conv.decimali = 5;
    EXPECT_EQ(leggi(conv, pacchetto_gps(punto(-217300000, -425700000, 424000000))).testo, "-117.042");
    conv.decimali = 1;
    EXPECT_EQ(leggi(conv, pacchetto_gps(punto(0, 1, 0))).testo, "    90.0");
}

TEST(ComputedSubfield, HasNoStatusText) {
    for (kel_funpos fid : {VELOCITA, LATITUDINE, LONGITUDINE}) {
        EXPECT_EQ(sottocampo(PACCHETTO_GPS, 8, fid).testo_stato, nullptr);
    }
}

}  // namespace
