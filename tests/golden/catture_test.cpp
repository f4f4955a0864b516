// Recorded receiver output through the GPS packet's subfields. Set KEL_CAPTURES to the folder that holds
// navisys-gr701w.navsol: 81 NAV-SOL payloads of 52 bytes, one a second, of a u-blox 7 receiver that hardly moves and
// loses its fix for a while. The recording is not part of this tree.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

std::int32_t parola(const Byte& byte, std::size_t posto) {
    std::uint32_t parola = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        parola |= static_cast<std::uint32_t>(byte.at(posto + i)) << (8 * i);
    }
    return static_cast<std::int32_t>(parola);
}

class RecordedNavSol : public ::testing::Test {
protected:
    void SetUp() override {
        const char* cartella = std::getenv("KEL_CAPTURES");
        if (cartella == nullptr || *cartella == '\0') {
            GTEST_SKIP() << "KEL_CAPTURES names no folder with navisys-gr701w.navsol";
        }
        const std::string percorso = std::string(cartella) + "/navisys-gr701w.navsol";
        std::ifstream file(percorso, std::ios::binary);
        ASSERT_TRUE(file.is_open()) << "cannot open " << percorso;
        const std::string tutto((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        ASSERT_EQ(tutto.size(), 81u * 52u) << percorso;
        for (std::size_t i = 0; i < 81; ++i) {
            const auto inizio = tutto.begin() + static_cast<std::ptrdiff_t>(i * 52);
            carichi_.emplace_back(inizio, inizio + 52);
            Byte pacchetto = le32(static_cast<std::uint32_t>(i * 1000));
            pacchetto.insert(pacchetto.end(), carichi_.back().begin(), carichi_.back().end());
            pacchetti_.push_back(pacchetto);
        }
    }

    static float valore(s_kel_converter conv, const Byte& campione) {
        float valore = -1.0f;
        EXPECT_EQ(kelConvGetValFloat(&conv, campione.data(), &valore), 1);
        return valore;
    }

    static double lunghezza_velocita(const Byte& carico) {
        return std::hypot(double{1} * parola(carico, 28), double{1} * parola(carico, 32),
                          double{1} * parola(carico, 36));
    }

    std::vector<Byte> carichi_, pacchetti_;
};

TEST_F(RecordedNavSol, LongitudesAreTheAngleOfXAndY) {
    const s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, 0xA8A87);
    for (std::size_t i = 0; i < pacchetti_.size(); ++i) {
        const double gradi = std::atan2(double{1} * parola(carichi_[i], 16), double{1} * parola(carichi_[i], 12)) *
                             180.0 / std::acos(-1.0);
        // The library rounds to a float: half a unit in the last place at 117 degrees is 3.8e-6.
        EXPECT_EQ(valore(conv, pacchetti_[i]), static_cast<float>(gradi)) << "message " << i;
        EXPECT_NEAR(gradi, -117.02, 0.005) << "message " << i;
        if (i == 0) {
            EXPECT_NEAR(gradi, -117.020462, 5e-7) << "as an independent decoder gives it";
        }
    }
}

TEST_F(RecordedNavSol, SpeedsAreThoseOfMessagesWithAFix) {
    const s_kel_converter conv = sottocampo(PACCHETTO_GPS, 8, 0xA8010);
    double massima = 0.0;
    for (std::size_t i = 0; i < pacchetti_.size(); ++i) {
        const bool buono = carichi_[i][10] >= 3 && carichi_[i][47] >= 4;
        const double attesa = buono ? lunghezza_velocita(carichi_[i]) * 0.036 : 0.0;
        EXPECT_NEAR(valore(conv, pacchetti_[i]), attesa, 1e-5) << "message " << i;
        massima = std::max(massima, attesa);
    }
    EXPECT_NEAR(massima, 6.2, 0.05);
    EXPECT_NEAR(valore(conv, pacchetti_[0]), 1.582, 0.0005) << "38, 22 and 2 cm/s";
    EXPECT_EQ(valore(conv, pacchetti_[27]), 0.0f) << "fix 2";
    EXPECT_EQ(valore(conv, pacchetti_[36]), 0.0f) << "no fix, still moving";
    EXPECT_EQ(valore(conv, pacchetti_[45]), 0.0f) << "no fix, at rest";
    EXPECT_GT(lunghezza_velocita(carichi_[27]), 0.0);
    EXPECT_GT(lunghezza_velocita(carichi_[36]), 0.0);
    EXPECT_EQ(lunghezza_velocita(carichi_[45]), 0.0);
}

TEST_F(RecordedNavSol, PlainSpeedsOfThePayloadNeedNoFix) {
    const s_kel_converter conv = sottocampo(PACCHETTO_UBX, 9, 0xA8010);
    for (std::size_t i = 0; i < carichi_.size(); ++i) {
        EXPECT_FLOAT_EQ(valore(conv, carichi_[i]), static_cast<float>(lunghezza_velocita(carichi_[i])))
            << "message " << i;
    }
    EXPECT_GT(valore(conv, carichi_[36]), 0.0f);
}

TEST_F(RecordedNavSol, FixAndSatellitesAreCountedAsRecorded) {
    const s_kel_converter fix = sottocampo(PACCHETTO_GPS, 8, 0xA9986);
    const s_kel_converter satelliti = sottocampo(PACCHETTO_GPS, 8, 0xA940B);
    int con_fix[4] = {};
    for (std::size_t i = 0; i < pacchetti_.size(); ++i) {
        const float tipo = valore(fix, pacchetti_[i]);
        EXPECT_EQ(tipo, static_cast<float>(carichi_[i][10])) << "message " << i;
        EXPECT_EQ(valore(satelliti, pacchetti_[i]), static_cast<float>(carichi_[i][47])) << "message " << i;
        ASSERT_TRUE(tipo >= 0.0f && tipo <= 3.0f) << "message " << i;
        ++con_fix[static_cast<int>(tipo)];
        if (tipo == 2.0f) {
            EXPECT_EQ(valore(satelliti, pacchetti_[i]), 3.0f) << "message " << i;
        }
        if (tipo == 0.0f) {
            EXPECT_EQ(valore(satelliti, pacchetti_[i]), 0.0f) << "message " << i;
        }
    }
    EXPECT_EQ(con_fix[3], 51);
    EXPECT_EQ(con_fix[2], 4);
    EXPECT_EQ(con_fix[1], 0);
    EXPECT_EQ(con_fix[0], 26);
}

TEST_F(RecordedNavSol, BothPacketsShowTheSameStatus) {
    s_kel_converter kel = sottocampo(PACCHETTO_GPS, 8, PACCHETTO_GPS);
    s_kel_converter ubx = sottocampo(PACCHETTO_UBX, 9, PACCHETTO_UBX);
    for (std::size_t i = 0; i < pacchetti_.size(); ++i) {
        const std::string testo = leggi(kel, pacchetti_[i]).testo;
        EXPECT_EQ(leggi(ubx, carichi_[i]).testo, testo) << "message " << i;
    }
    EXPECT_EQ(leggi(kel, pacchetti_[27]).testo, "GPS low fix");
    EXPECT_EQ(leggi(kel, pacchetti_[36]).testo, "GPS fix missing");
    EXPECT_EQ(leggi(kel, pacchetti_[0]).testo.substr(0, 14), "GPS Fix=3 SVs=");
}

TEST_F(RecordedNavSol, AccuraciesAreTheLowBytesOfTheirFields) {
    const s_kel_converter posizione = sottocampo(PACCHETTO_GPS, 8, 0xA998C);
    const s_kel_converter velocita = sottocampo(PACCHETTO_GPS, 8, 0xA9994);
    for (std::size_t i = 0; i < pacchetti_.size(); ++i) {
        EXPECT_EQ(valore(posizione, pacchetti_[i]), static_cast<float>(carichi_[i][24])) << "message " << i;
        EXPECT_EQ(valore(velocita, pacchetti_[i]), static_cast<float>(carichi_[i][40])) << "message " << i;
    }
}

}  // namespace
