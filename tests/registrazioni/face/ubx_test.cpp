// u-blox streams through the C face.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "kelregistrazioni.h"
#include "prova.h"

namespace {

using namespace prova;

void messaggio(Byte& flusso, std::uint8_t classe, std::uint8_t id, const Byte& dati) {
    Byte corpo = {classe, id};
    aggiungi(corpo, static_cast<std::uint16_t>(dati.size()));
    corpo.insert(corpo.end(), dati.begin(), dati.end());
    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t uno : corpo)
        b += a += uno;
    flusso.insert(flusso.end(), {0xB5, 0x62});
    flusso.insert(flusso.end(), corpo.begin(), corpo.end());
    flusso.insert(flusso.end(), {static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b)});
}

// The payloads of the kart's GPS packets as a receiver sends them, other bytes and messages between.
Byte flusso(std::size_t quante) {
    const Kart kart;
    const Byte campioni = kart.campioni(quante);
    Byte byte;
    for (std::size_t i = 0; i < quante; ++i) {
        const auto da = campioni.begin() + static_cast<std::ptrdiff_t>(i * 100 + 4 + 12 + 4);
        if (i % 3 == 1)
            byte.insert(byte.end(), {'$', 'G', 0xB5, 0x62, 0xB5});
        messaggio(byte, 1, 6, Byte(da, da + 52));
        messaggio(byte, 1, 3, Byte(16));
    }
    return byte;
}

std::vector<double> latitudini(s_kel_registrazione* reg) {
    std::vector<double> valori(static_cast<std::size_t>(kelRegRighe(reg)));
    const s_kel_lettura lettura{colonna(reg, "Latitude"), valori.data(), nullptr, nullptr};
    EXPECT_EQ(kelRegLeggi(reg, kelRegPrima(reg), valori.size(), &lettura, 1), 1);
    return valori;
}

TEST(Ubx, SolutionsAreRows) {
    const Byte byte = flusso(100);
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    ASSERT_TRUE(reg);
    ASSERT_EQ(kelRegRighe(reg.get()), 100u);
    std::vector<std::uint32_t> settimana(100);
    std::vector<unsigned char> validi(13);
    std::vector<char> utc(3200);
    const s_kel_lettura letture[] = {{0, settimana.data(), nullptr, nullptr},
                                     {colonna(reg.get(), "Latitude"), nullptr, validi.data(), nullptr},
                                     {colonna(reg.get(), "UTC"), nullptr, nullptr, utc.data()}};
    ASSERT_EQ(kelRegLeggi(reg.get(), 0, 100, letture, 3), 1);
    EXPECT_EQ(settimana[25], 345600000u + 1000);
    EXPECT_EQ(validi[0], 0xEF) << "the fifth has no fix";
    EXPECT_EQ(validi[12], 0x07) << "spare bits are 0";
    EXPECT_STREQ(utc.data() + 25 * 32, "2025-06-11T23:59:43.000Z");
    double tempo = 0;
    ASSERT_EQ(kelRegTempi(reg.get(), 25, 1, &tempo), 1);
    EXPECT_DOUBLE_EQ(tempo, 345601.0);
    const unsigned velocita = colonna(reg.get(), "Speed");
    double kmh = 0;
    double mph = 0;
    const s_kel_lettura una{velocita, &kmh, nullptr, nullptr};
    const s_kel_lettura altra{velocita, &mph, nullptr, nullptr};
    kelRegLeggi(reg.get(), 0, 1, &una, 1);
    EXPECT_EQ(kelRegUnita(reg.get(), velocita, "mph"), 1);
    EXPECT_EQ(kelRegUnita(reg.get(), 0, "mph"), 0);
    kelRegLeggi(reg.get(), 0, 1, &altra, 1);
    EXPECT_NEAR(kmh, 17.9, 0.1);
    EXPECT_NEAR(mph, kmh * 0.621371, 1e-6);
}

TEST(Ubx, PushedInPiecesIsWhatItIsInMemory) {
    Byte byte = flusso(60);
    byte.resize(byte.size() - 10);
    const Registrazione intero(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    const std::vector<double> attese = latitudini(intero.get());
    ASSERT_EQ(attese.size(), 60u);
    for (const std::size_t pezzo : {1U, 5U, 61U, 1000U, 1U << 20}) {
        const Registrazione reg(kelRegApriUbx(nullptr, 0, nullptr));
        std::vector<double> lette;
        const auto prendi = [&] {
            const std::vector<double> sue = latitudini(reg.get());
            lette.insert(lette.end(), sue.begin(), sue.end());
        };
        for (std::size_t da = 0; da < byte.size(); da += pezzo) {
            ASSERT_EQ(kelRegSpingi(reg.get(), byte.data() + da, std::min(pezzo, byte.size() - da), nullptr), 1);
            prendi();
        }
        ASSERT_EQ(kelRegSpingi(reg.get(), nullptr, 0, nullptr), 1);
        prendi();
        EXPECT_EQ(lette, attese) << pezzo;
        EXPECT_EQ(kelRegAvanzo(reg.get()), kelRegAvanzo(intero.get()));
        EXPECT_EQ(kelRegSpingi(reg.get(), nullptr, 0, nullptr), 0);
    }
}

TEST(Ubx, WithoutSolutionsIsATableWithoutRows) {
    const Byte rumore(10000, 0xB5);
    const Registrazione reg(kelRegApriUbx(rumore.data(), rumore.size(), nullptr));
    ASSERT_TRUE(reg);
    EXPECT_EQ(kelRegRighe(reg.get()), 0u);
    EXPECT_EQ(kelRegNumColonne(reg.get()), 12u);
}

}  // namespace
