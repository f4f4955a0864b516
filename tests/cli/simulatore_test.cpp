// What the simulator writes against sums done here on its bytes: solutions, lap times, the sign of a corner.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "centralina.h"
#include "messaggi.h"
#include "orologio.h"
#include "traguardo.h"

namespace {

using namespace kel::simulatore;

std::uint64_t intero(const std::string& byte, std::size_t da, int quanti) {
    std::uint64_t valore = 0;
    for (int i = quanti; i-- > 0;)
        valore = valore << 8 | static_cast<unsigned char>(byte.at(da + static_cast<std::size_t>(i)));
    return valore;
}

double i32(const std::string& byte, std::size_t da) {
    return static_cast<std::int32_t>(intero(byte, da, 4));
}

// Payloads by class and id, every checksum right and nothing but whole messages and sentences in the stream.
std::map<unsigned, std::vector<std::string>> messaggi(const std::string& byte) {
    std::map<unsigned, std::vector<std::string>> tutti;
    for (std::size_t da = 0; da < byte.size();) {
        if (byte[da] == '$') {
            da = byte.find('\n', da) + 1;
            continue;
        }
        EXPECT_EQ(byte.substr(da, 2), "\xB5\x62") << "at byte " << da;
        const auto lunghezza = static_cast<std::size_t>(intero(byte, da + 4, 2));
        unsigned a = 0, b = 0;
        for (std::size_t i = da + 2; i < da + 6 + lunghezza; ++i) {
            a = (a + intero(byte, i, 1)) % 256;
            b = (b + a) % 256;
        }
        EXPECT_EQ(intero(byte, da + 6 + lunghezza, 1), a) << "at byte " << da;
        EXPECT_EQ(intero(byte, da + 7 + lunghezza, 1), b) << "at byte " << da;
        tutti[static_cast<unsigned>(intero(byte, da + 2, 1) << 8 | intero(byte, da + 3, 1))].push_back(
            byte.substr(da + 6, lunghezza));
        da += lunghezza + 8;
    }
    return tutti;
}

std::map<unsigned, std::vector<std::string>> cattura(unsigned giri, unsigned frequenza, Soluzioni soluzioni) {
    std::string byte;
    registrazione(
        giri, frequenza, 5, [&byte](const std::string& pezzo) { byte += pezzo; }, soluzioni);
    return messaggi(byte);
}

constexpr double RADIANTI = 3.14159265358979323846 / 180.0;
constexpr unsigned SOL = 0x0106;
constexpr unsigned PVT = 0x0107;

struct Assi {
    double est[3], nord[3], su[3];
};

// East, north and up at a place, in the axes of ECEF.
Assi assi(double lat, double lon) {
    const double sf = std::sin(lat * RADIANTI), cf = std::cos(lat * RADIANTI);
    const double sl = std::sin(lon * RADIANTI), cl = std::cos(lon * RADIANTI);
    return {{-sl, cl, 0}, {-sf * cl, -sf * sl, cf}, {cf * cl, cf * sl, sf}};
}

// WGS 84, a = 6378137 m and b = 6356752.314245 m.
void ecef_di(double lat, double lon, double altezza, double (&r)[3]) {
    const double a2 = 6378137.0 * 6378137.0, b2 = 6356752.314245 * 6356752.314245;
    const Assi a = assi(lat, lon);
    const double cf = std::cos(lat * RADIANTI), sf = std::sin(lat * RADIANTI);
    const double n = a2 / std::sqrt(a2 * cf * cf + b2 * sf * sf);
    r[0] = (n + altezza) * a.su[0];
    r[1] = (n + altezza) * a.su[1];
    r[2] = (n * b2 / a2 + altezza) * a.su[2];
}

TEST(Simulator, TheOptionChoosesTheSolutionsMessages) {
    auto sol = cattura(1, 2, Soluzioni::sol);
    auto pvt = cattura(1, 2, Soluzioni::pvt);
    auto entrambe = cattura(1, 2, Soluzioni::entrambe);
    EXPECT_GT(sol[SOL].size(), 60u);
    EXPECT_TRUE(sol[PVT].empty());
    EXPECT_TRUE(pvt[SOL].empty());
    EXPECT_EQ(pvt[PVT], entrambe[PVT]);
    EXPECT_EQ(sol[SOL], entrambe[SOL]);
    EXPECT_EQ(sol[SOL].size(), pvt[PVT].size());
}

TEST(Simulator, NavPvtSaysWhatNavSolSays) {
    auto tutti = cattura(3, 10, Soluzioni::entrambe);
    ASSERT_EQ(tutti[SOL].size(), tutti[PVT].size());
    bool senza_fix = false;
    for (std::size_t i = 0; i < tutti[PVT].size(); ++i) {
        const std::string &p = tutti[PVT][i], &s = tutti[SOL][i];
        SCOPED_TRACE("solution " + std::to_string(i));
        ASSERT_EQ(p.size(), 92u);
        EXPECT_EQ(p.substr(0, 4), s.substr(0, 4));      // time of week
        EXPECT_EQ(p[20], s[10]);                        // fix
        EXPECT_EQ(p[23], s[47]);                        // satellites
        EXPECT_EQ(p[21] & 1, s[11] & 1);                // the fix is good
        EXPECT_EQ(intero(p, 76, 2), intero(s, 44, 2));  // position DOP
        EXPECT_EQ(i32(p, 72 - 4), i32(s, 40) * 10);     // speed's accuracy, mm/s and cm/s
        EXPECT_NEAR(std::hypot(i32(p, 40), i32(p, 44)), i32(s, 24) * 10, 1e-6);
        senza_fix = senza_fix || p[20] == 0;

        const double lon = i32(p, 24) * 1e-7, lat = i32(p, 28) * 1e-7;
        double r[3];
        ecef_di(lat, lon, i32(p, 32) / 1000, r);
        for (std::size_t asse = 0; asse < 3; ++asse)
            EXPECT_NEAR(r[asse], i32(s, 12 + 4 * asse) / 100, 0.015) << "axis " << asse;
        EXPECT_EQ(i32(p, 36), i32(p, 32) - 42000);

        const Assi a = assi(lat, lon);
        const double nord = i32(p, 48) / 1000, est = i32(p, 52) / 1000, giu = i32(p, 56) / 1000;
        for (std::size_t asse = 0; asse < 3; ++asse)
            EXPECT_NEAR(nord * a.nord[asse] + est * a.est[asse] - giu * a.su[asse], i32(s, 28 + 4 * asse) / 100, 0.0061)
                << "axis " << asse;
        const double al_suolo = std::hypot(nord, est);
        EXPECT_NEAR(i32(p, 60) / 1000, al_suolo, 0.0013);
        const double rotta = i32(p, 64) * 1e-5;
        EXPECT_GE(rotta, 0);
        EXPECT_LE(rotta, 360);
        EXPECT_NEAR(al_suolo * std::sin(rotta * RADIANTI), est, 0.0013);
        EXPECT_NEAR(al_suolo * std::cos(rotta * RADIANTI), nord, 0.0013);
    }
    EXPECT_TRUE(senza_fix) << "the middle lap loses it";
}

TEST(Simulator, NavPvtBearsTheDate) {
    const auto pvt = cattura(1, 4, Soluzioni::pvt)[PVT];
    const std::string& primo = pvt.front();
    EXPECT_EQ(intero(primo, 0, 4), 554400000u);  // Saturday 10:00, GPS time
    EXPECT_EQ(intero(primo, 4, 2), 2025u);
    const unsigned voluti[] = {6, 28, 9, 59, 42};  // 18 leap seconds before
    for (std::size_t i = 0; i < std::size(voluti); ++i)
        EXPECT_EQ(intero(primo, 6 + i, 1), voluti[i]) << "byte " << 6 + i;
    EXPECT_EQ(intero(primo, 11, 1) & 7, 7u);  // date, time, fully resolved
    EXPECT_EQ(intero(primo, 16, 4), 0u);
    EXPECT_EQ(intero(pvt[3], 10, 1), 42u);
    EXPECT_EQ(intero(pvt[3], 16, 4), 750000000u);
    EXPECT_EQ(intero(pvt[4], 10, 1), 43u);
}

TEST(Simulator, TheWeekTurnsOnSaturdayNight) {
    const Utc prima = utc(2372, 604799999);
    EXPECT_EQ(prima.giorno, 28u);
    EXPECT_EQ(prima.ore * 10000 + prima.minuti * 100 + prima.secondi, 235941u);
    EXPECT_EQ(prima.millesimi, 999u);
    const Utc dopo = utc(2373, 18000);
    EXPECT_EQ(dopo.giorno, 29u);
    EXPECT_EQ(dopo.ore + dopo.minuti + dopo.secondi, 0u);
}

// A recording's samples, one by one, with what a reader finds in its channel records.
struct Registrazione {
    Registrazione(unsigned giri, unsigned frequenza, std::uint64_t seme) {
        Kart kart(giri, frequenza, seme);
        Centralina centralina(kart.lunghezza_giro());
        const std::string canali = centralina.canali();
        for (std::size_t da = 0; da < canali.size(); da += sizeof(s_kel_canale)) {
            s_kel_canale canale;
            std::memcpy(&canale, canali.data() + da, sizeof canale);
            dove[canale.breve] = 4 + canale.offset_campione;  // behind the record's time
        }
        const PianoLocale piano(LUOGO);
        for (Istante istante; kart.prossimo(istante);)
            record.push_back(centralina.record(istante, piano));
    }
    std::map<std::string, std::size_t> dove;
    std::vector<std::string> record;
};

struct Giro {
    unsigned numero;
    double secondi;
};

// From the lap packets: a new one where the number of laps done changes.
std::vector<Giro> giri_dei_pacchetti(const Registrazione& registrazione) {
    std::vector<Giro> giri;
    const std::size_t da = registrazione.dove.at("Lap");
    for (const std::string& record : registrazione.record)
        if (const auto numero = static_cast<unsigned>(intero(record, da + 2, 2));
            numero != (giri.empty() ? 0 : giri.back().numero))
            giri.push_back({numero, i32(record, da + 4) / 1000});
    return giri;
}

// When the positions of the GPS packets pass the line that the simulator names, s, in proportion between two of them.
std::vector<double> passaggi(const Registrazione& registrazione) {
    const std::string linea = testo(traguardo());
    char* resto = nullptr;
    const double lat = std::strtod(linea.c_str(), &resto);
    const double lon = std::strtod(resto + 1, &resto);
    const double rotta = std::strtod(resto + 1, nullptr) * RADIANTI;
    const Assi a = assi(lat, lon);
    double origine[3];
    ecef_di(lat, lon, 63, origine);
    std::vector<double> tempi;
    double davanti_prima = 0, ora_prima = 0;
    for (const std::string& record : registrazione.record) {
        const std::size_t da = registrazione.dove.at("GPS") + 4;
        double est = 0, nord = 0;
        for (std::size_t asse = 0; asse < 3; ++asse) {
            const double d = i32(record, da + 12 + 4 * asse) / 100 - origine[asse];
            est += d * a.est[asse];
            nord += d * a.nord[asse];
        }
        const double davanti = est * std::sin(rotta) + nord * std::cos(rotta);
        const double di_lato = est * std::cos(rotta) - nord * std::sin(rotta);
        const double ora = static_cast<double>(intero(record, 0, 4)) / 1000;
        if (davanti_prima < 0 && davanti >= 0 && std::abs(di_lato) < 15)
            tempi.push_back(ora_prima + (ora - ora_prima) * davanti_prima / (davanti_prima - davanti));
        davanti_prima = davanti;
        ora_prima = ora;
    }
    return tempi;
}

TEST(Simulator, LapPacketsAgreeWithTheTrackAtTheLine) {
    for (const unsigned frequenza : {5u, 10u, 25u})
        for (std::uint64_t seme = 1; seme <= 8; ++seme) {
            SCOPED_TRACE("rate " + std::to_string(frequenza) + ", seed " + std::to_string(seme));
            const Registrazione registrazione(12, frequenza, seme);
            const std::vector<Giro> giri = giri_dei_pacchetti(registrazione);
            const std::vector<double> linea = passaggi(registrazione);
            ASSERT_EQ(giri.size(), 12u);
            ASSERT_EQ(linea.size(), 13u) << "the first crossing begins the first lap";
            for (std::size_t i = 0; i < giri.size(); ++i) {
                EXPECT_EQ(giri[i].numero, i + 1);
                EXPECT_NEAR(giri[i].secondi, linea[i + 1] - linea[i], 0.02) << "lap " << i + 1;
            }
        }
}

TEST(Simulator, NoTwoLapsAreEquallyFast) {
    std::vector<Giro> giri = giri_dei_pacchetti(Registrazione(6, 10, 1));
    std::sort(giri.begin(), giri.end(), [](const Giro& a, const Giro& b) { return a.secondi < b.secondi; });
    for (std::size_t i = 1; i < giri.size(); ++i)
        EXPECT_GT(giri[i].secondi - giri[i - 1].secondi, 0.005);
    EXPECT_LT(giri.back().secondi - giri.front().secondi, 6);
}

TEST(Simulator, LateralAccelerationIsPositiveToTheLeft) {
    const Registrazione registrazione(1, 10, 1);
    const Assi a = assi(LUOGO.latitudine, LUOGO.longitudine);
    int sinistra = 0, destra = 0;
    double est_prima = 0, nord_prima = 0;
    for (const std::string& record : registrazione.record) {
        const std::size_t gps = registrazione.dove.at("GPS") + 4;
        double est = 0, nord = 0;
        for (std::size_t asse = 0; asse < 3; ++asse) {
            est += i32(record, gps + 28 + 4 * asse) * a.est[asse];
            nord += i32(record, gps + 28 + 4 * asse) * a.nord[asse];
        }
        // How fast the velocity turns, radians in a tenth of a second; to the left above 0.
        const double giro = std::atan2(est_prima * nord - nord_prima * est, est_prima * est + nord_prima * nord);
        const bool negativa = (intero(record, registrazione.dove.at("LatA"), 2) & 0x8000) != 0;
        // Slower than 5 m/s the direction is mostly noise.
        if (intero(record, gps + 10, 1) == 3 && std::hypot(est, nord) > 500 && std::abs(giro) > 0.04) {
            EXPECT_EQ(negativa, giro < 0) << "at " << intero(record, 0, 4) << " ms";
            ++(giro > 0 ? sinistra : destra);
        }
        est_prima = est;
        nord_prima = nord;
    }
    EXPECT_GT(sinistra, 20);
    EXPECT_GT(destra, 20);
}

}  // namespace
