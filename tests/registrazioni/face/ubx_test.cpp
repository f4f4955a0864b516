// u-blox streams through the C face.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "gps/navpvt.h"
#include "gps/soluzione.h"
#include "kelregistrazioni.h"
#include "pista.h"
#include "prova.h"

namespace {

using namespace prova;

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

// A solution as today's receivers send it: fix in space, nine satellites.
Byte nav_pvt() {
    Byte dati(92);
    const auto metti = [&dati](std::size_t da, std::uint32_t valore) {
        for (std::size_t i = 0; i < 4; ++i)
            dati[da + i] = static_cast<std::uint8_t>(valore >> 8 * i);
    };
    metti(0, 345700000);
    dati[20] = 3;
    dati[21] = 1;
    dati[23] = 9;
    metti(24, 104107000);
    metti(28, 448231000);
    metti(32, 100000);
    metti(40, 1500);
    metti(48, 20000);  // mm/s to the north
    return dati;
}

TEST(Ubx, GivesThePayloadThatTheLoggersPacketHas) {
    Byte byte;
    messaggio(byte, 1, 6, Pista::nav_sol(3));
    messaggio(byte, 1, 7, nav_pvt());
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    ASSERT_EQ(kelRegRighe(reg.get()), 2u);
    std::array<unsigned char, KEL_NAV_SOL_BYTE + 1> payload{};
    payload.back() = 0xA5;
    ASSERT_EQ(kelRegNavSol(reg.get(), 0, payload.data()), 1);
    const Byte mandato = Pista::nav_sol(3);
    EXPECT_TRUE(std::equal(mandato.begin(), mandato.end(), payload.begin()));
    ASSERT_EQ(kelRegNavSol(reg.get(), 1, payload.data()), 1);
    const Byte pvt = nav_pvt();
    const auto atteso = kel_registrazioni::nav_sol_da_pvt(std::span<const std::uint8_t, 92>(pvt.data(), 92));
    EXPECT_TRUE(std::equal(atteso.begin(), atteso.end(), payload.begin()));
    EXPECT_EQ(payload.back(), 0xA5) << "nothing behind its 52 bytes";
    const auto letta = kel_registrazioni::da_nav_sol(
        std::span<const std::uint8_t, KEL_NAV_SOL_BYTE>(payload.data(), KEL_NAV_SOL_BYTE));
    ASSERT_TRUE(letta.luogo);
    EXPECT_NEAR(letta.luogo->latitudine, 44.8231, 1e-6);
    EXPECT_EQ(letta.satelliti, 9u);
    EXPECT_EQ(kelRegNavSol(reg.get(), 2, payload.data()), 0) << "no such row";
    EXPECT_EQ(kelRegNavSol(reg.get(), UINT64_MAX, payload.data()), 0);
}

TEST(Ubx, CountsEveryByteAndMessage) {
    Byte byte;
    messaggio(byte, 1, 6, Pista::nav_sol(3));
    Byte doppia = nav_pvt();
    const Byte stessa = Pista::nav_sol(3);
    std::copy_n(stessa.begin(), 4, doppia.begin());  // the same epoch
    messaggio(byte, 1, 7, doppia);
    messaggio(byte, 1, 3, Byte(16));
    messaggio(byte, 1, 3, Byte(16));
    messaggio(byte, 1, 6, Byte(40));  // too short for a solution
    const std::size_t buoni = byte.size();
    messaggio(byte, 10, 4, Byte(30));
    byte.back() ^= 1;  // its checksum is wrong
    const std::size_t prima = byte.size();
    messaggio(byte, 1, 6, Pista::nav_sol(4));
    byte.resize(byte.size() - 7);
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    s_kel_conteggi conteggi{};
    ASSERT_EQ(kelRegConteggi(reg.get(), &conteggi), 1);
    EXPECT_EQ(conteggi.byte, byte.size());
    EXPECT_EQ(conteggi.byte_fuori, prima - buoni);
    EXPECT_EQ(conteggi.byte_troncati, byte.size() - prima);
    EXPECT_EQ(conteggi.soluzioni, 1u);
    EXPECT_EQ(conteggi.stessa_epoca, 1u);
    EXPECT_EQ(conteggi.altri, 2u);
    EXPECT_EQ(conteggi.lunghezza_errata, 1u);
    EXPECT_EQ(conteggi.checksum_errati, 1u);
    std::array<s_kel_messaggi, 4> tipi{};
    ASSERT_EQ(kelRegMessaggi(reg.get(), tipi.data(), 4), 3u);
    EXPECT_EQ(tipi[0].classe, 1);
    EXPECT_EQ(tipi[0].id, 3);
    EXPECT_EQ(tipi[0].quanti, 2u);
    EXPECT_EQ(tipi[1].id, 6);
    EXPECT_EQ(tipi[1].quanti, 2u);
    EXPECT_EQ(tipi[2].id, 7);
    EXPECT_EQ(tipi[2].quanti, 1u);
    EXPECT_EQ(tipi[3].quanti, 0u) << "not written";
    EXPECT_EQ(kelRegMessaggi(reg.get(), nullptr, 0), 3u);
    std::array<s_kel_messaggi, 2> pochi{};
    EXPECT_EQ(kelRegMessaggi(reg.get(), pochi.data(), 1), 3u) << "how many there are, not how many there was room for";
    EXPECT_EQ(pochi[0].id, 3);
    EXPECT_EQ(pochi[1].quanti, 0u);
}

TEST(Ubx, HasNoChannelsAndNoRecords) {
    const Byte byte = flusso(3);
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    EXPECT_EQ(kelRegNumCanali(reg.get()), 0u);
    s_kel_canale canale{};
    EXPECT_EQ(kelRegCanale(reg.get(), 0, &canale), nullptr);
    EXPECT_EQ(kelRegPasso(reg.get()), 0u);
    EXPECT_EQ(kelRegOrario(reg.get()), KEL_ORARIO_TROVATO);
    EXPECT_STREQ(kelRegDetto(reg.get()), "");
    EXPECT_STREQ(kelRegAvanzoDetto(reg.get()), "");
    s_kel_errore errore{};
    EXPECT_EQ(kelRegSpingi(reg.get(), byte.data(), 1, &errore), 0);
    EXPECT_STREQ(errore.testo, "the stream was given when it was opened");
    EXPECT_EQ(kelRegUnita(reg.get(), colonna(reg.get(), "Speed"), nullptr), 0);
    EXPECT_EQ(kelRegUnita(reg.get(), UINT32_MAX, "mph"), 0);
}

TEST(Ubx, HasItsTwelveColumns) {
    struct Attesa {
        const char* nome;
        const char* lungo;
        const char* udm;
        kel_funpos fid;
        eKelValori valori;
        int decimali;
        eKelCampo campo;
        int con_unita;
    };
    const Attesa attese[] = {
        {"Time of Week", "", "ms", 0, KEL_VALORI_UINT32, 0, KEL_CAMPO_NESSUNO, 0},
        {"UTC", "", "", 0, KEL_VALORI_ISTANTE, 0, KEL_CAMPO_UTC, 0},
        {"Fix", "Code", "", KEL_FID_GPS_FIX, KEL_VALORI_UINT32, 0, KEL_CAMPO_FIX, 0},
        {"Satellites", "Sat Number", "", KEL_FID_GPS_SATELLITI, KEL_VALORI_UINT32, 0, KEL_CAMPO_SATELLITI, 0},
        {"Latitude", "Latitude", "deg", KEL_FID_GPS_LATITUDINE, KEL_VALORI_DOUBLE, 8, KEL_CAMPO_LATITUDINE, 0},
        {"Longitude", "Longitude", "deg", KEL_FID_GPS_LONGITUDINE, KEL_VALORI_DOUBLE, 8, KEL_CAMPO_LONGITUDINE, 0},
        {"Altitude", "Altitude", "m", KEL_FID_GPS_ALTEZZA, KEL_VALORI_DOUBLE, 3, KEL_CAMPO_ALTEZZA, 0},
        {"Speed", "Speed", "km/h", KEL_FID_GPS_VELOCITA, KEL_VALORI_DOUBLE, 3, KEL_CAMPO_VELOCITA, 1},
        {"Heading", "", "deg", 0, KEL_VALORI_DOUBLE, 2, KEL_CAMPO_ROTTA, 0},
        {"Climb", "", "m/s", 0, KEL_VALORI_DOUBLE, 3, KEL_CAMPO_SALITA, 0},
        {"Position Accuracy", "Position", "m", KEL_FID_GPS_ACCURATEZZA_POSIZIONE, KEL_VALORI_DOUBLE, 3,
         KEL_CAMPO_ACCURATEZZA_POSIZIONE, 0},
        {"Speed Accuracy", "Velocity", "m/s", KEL_FID_GPS_ACCURATEZZA_VELOCITA, KEL_VALORI_DOUBLE, 3,
         KEL_CAMPO_ACCURATEZZA_VELOCITA, 0},
    };
    const Registrazione reg(kelRegApriUbx("", 0, nullptr));
    ASSERT_EQ(kelRegNumColonne(reg.get()), 12u);
    for (unsigned i = 0; i < 12; ++i) {
        s_kel_descrizione d{};
        ASSERT_EQ(kelRegDescrivi(reg.get(), i, &d), 1);
        EXPECT_STREQ(d.nome, attese[i].nome);
        EXPECT_STREQ(d.lungo, attese[i].lungo);
        EXPECT_STREQ(d.udm, attese[i].udm);
        EXPECT_STREQ(d.proprio, attese[i].nome);
        EXPECT_EQ(d.fid, attese[i].fid);
        EXPECT_EQ(d.valori, attese[i].valori);
        EXPECT_EQ(d.decimali, attese[i].decimali);
        EXPECT_EQ(d.campo, attese[i].campo);
        EXPECT_EQ(d.con_unita, attese[i].con_unita);
        EXPECT_EQ(d.canale, 0u);
        EXPECT_EQ(d.interna, 0);
        EXPECT_EQ(d.pacchetto, 0);
    }
    s_kel_descrizione d{};
    EXPECT_EQ(kelRegDescrivi(reg.get(), 12, &d), 0);
}

}  // namespace
