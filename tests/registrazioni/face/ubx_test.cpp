// u-blox streams through the C face.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
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

// On the equator at longitude 0, 100 m up: 3 m/s up, 10 east and 5 north. Week 2307, 28 March 2024.
Byte equatore() {
    Byte dati;
    aggiungi(dati, std::uint32_t{400463250});
    aggiungi(dati, std::int32_t{0});
    aggiungi(dati, std::uint16_t{2307});
    dati.push_back(3);
    dati.push_back(0x0D);
    for (const std::int32_t cm : {637823700, 0, 0})
        aggiungi(dati, cm);
    aggiungi(dati, std::uint32_t{70000});
    for (const std::int32_t cm_s : {300, 1000, 500})
        aggiungi(dati, cm_s);
    aggiungi(dati, std::uint32_t{350});
    aggiungi(dati, std::uint16_t{250});
    dati.push_back(0);
    dati.push_back(7);
    aggiungi(dati, std::uint32_t{0});
    return dati;
}

TEST(Ubx, RowsHaveEveryFieldAsNumberAndText) {
    Byte byte;
    messaggio(byte, 1, 6, equatore());
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    ASSERT_EQ(kelRegRighe(reg.get()), 1u);
    struct Attesa {
        double valore;
        const char* testo;
    };
    const Attesa attese[] = {{400463250, "400463250"},
                             {1711638845250000, "2024-03-28T15:14:05.250Z"},
                             {3, "3"},
                             {7, "7"},
                             {0, "0.00000000"},
                             {0, "0.00000000"},
                             {100, "100.000"},
                             {41.673, "41.673"},  // 3.6 times the root of 134
                             {63.43494882292201, "63.43"},
                             {3, "3.000"},
                             {700, "700.000"},
                             {3.5, "3.500"}};
    for (unsigned i = 0; i < 12; ++i) {
        s_kel_descrizione d{};
        kelRegDescrivi(reg.get(), i, &d);
        double numero = 0;
        std::uint32_t intero = 0;
        std::int64_t istante = 0;
        unsigned char valido = 0;
        std::array<char, 32> testo{};
        void* dove = d.valori == KEL_VALORI_UINT32    ? static_cast<void*>(&intero)
                     : d.valori == KEL_VALORI_ISTANTE ? static_cast<void*>(&istante)
                                                      : &numero;
        const s_kel_lettura lettura{i, dove, &valido, testo.data()};
        ASSERT_EQ(kelRegLeggi(reg.get(), 0, 1, &lettura, 1), 1);
        EXPECT_NEAR(numero + intero + static_cast<double>(istante), attese[i].valore, 0.003) << d.nome;
        EXPECT_STREQ(testo.data(), attese[i].testo) << d.nome;
        EXPECT_EQ(valido, 1) << d.nome;
    }
}

TEST(Ubx, MessagesOfOtherClassesAreNoSolutions) {
    Byte byte;
    messaggio(byte, 5, 6, equatore());
    messaggio(byte, 5, 7, nav_pvt());
    messaggio(byte, 1, 8, equatore());
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    EXPECT_EQ(kelRegRighe(reg.get()), 0u);
    s_kel_conteggi conteggi{};
    ASSERT_EQ(kelRegConteggi(reg.get(), &conteggi), 1);
    EXPECT_EQ(conteggi.altri, 3u);
}

TEST(Ubx, TimeGoesOnCountingOverTheEndOfAWeek) {
    const std::uint32_t ms[] = {604799000, 604799500, 0, 500, 302400500, 604799999, 302399999, 302399998, 5};
    Byte byte;
    for (const std::uint32_t uno : ms) {
        Byte dati = equatore();
        for (std::size_t i = 0; i < 4; ++i)
            dati[i] = static_cast<std::uint8_t>(uno >> 8 * i);
        messaggio(byte, 1, 6, dati);
    }
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    std::array<double, 9> tempi{};
    ASSERT_EQ(kelRegTempi(reg.get(), 0, 9, tempi.data()), 1);
    const std::array<double, 9> attesi = {604799,     604799.5, 604800, 604800.5, 907200.5, 1209599.999,
                                          907199.999,  // by half a week, not more: the receiver was wrong
                                          907199.998,  //
                                          604800.005};
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_DOUBLE_EQ(tempi[i], attesi[i]) << i;
    ArrowArrayStream flusso{};
    ASSERT_EQ(kelRegArrow(reg.get(), 0, 6, 0, &flusso, nullptr), 1);
    ArrowArray blocco{};
    ASSERT_EQ(flusso.get_next(&flusso, &blocco), 0);
    const auto* micro = static_cast<const std::int64_t*>(blocco.children[0]->buffers[1]);
    EXPECT_EQ(micro[1], 604799500000);
    EXPECT_EQ(micro[4], 907200500000);
    EXPECT_EQ(micro[5], 1209599999000);
    blocco.release(&blocco);
    flusso.release(&flusso);
}

TEST(Ubx, OnlyTheSpeedHasOtherUnits) {
    Byte byte;
    messaggio(byte, 1, 6, equatore());
    const Registrazione reg(kelRegApriUbx(byte.data(), byte.size(), nullptr));
    const unsigned velocita = colonna(reg.get(), "Speed");
    for (unsigned i = 0; i < 12; ++i)
        EXPECT_EQ(kelRegUnita(reg.get(), i, "mph"), i == velocita ? 1 : 0) << i;
    EXPECT_EQ(kelRegUnita(reg.get(), velocita, "furlong"), 0);
    EXPECT_EQ(kelRegUnita(reg.get(), velocita, ""), 0);
    s_kel_descrizione d{};
    kelRegDescrivi(reg.get(), velocita, &d);
    EXPECT_STREQ(d.udm, "mph") << "as it was before what is none";
    std::array<char, 32> testo{};
    const s_kel_lettura lettura{velocita, nullptr, nullptr, testo.data()};
    ASSERT_EQ(kelRegLeggi(reg.get(), 0, 1, &lettura, 1), 1);
    EXPECT_STREQ(testo.data(), "25.894");
    const s_kel_lettura salita{colonna(reg.get(), "Climb"), nullptr, nullptr, testo.data()};
    ASSERT_EQ(kelRegLeggi(reg.get(), 0, 1, &salita, 1), 1);
    EXPECT_STREQ(testo.data(), "3.000") << "the others stay in theirs";
}

TEST(Ubx, RowsOfAPieceAreAtHandUntilTheNext) {
    Byte byte;
    for (int i = 0; i < 3; ++i)
        messaggio(byte, 1, 6, Pista::nav_sol(i));
    messaggio(byte, 1, 7, nav_pvt());
    const Registrazione reg(kelRegApriUbx(nullptr, 0, nullptr));
    const auto spingi = [&](std::size_t da, std::size_t a) {
        return kelRegSpingi(reg.get(), byte.data() + da, a - da, nullptr);
    };
    const auto righe = [&] { return std::pair(kelRegPrima(reg.get()), kelRegRighe(reg.get())); };
    using Righe = std::pair<std::uint64_t, std::uint64_t>;
    EXPECT_EQ(righe(), Righe(0, 0));
    ASSERT_EQ(spingi(0, 61), 1);
    EXPECT_EQ(righe(), Righe(0, 1));
    EXPECT_EQ(kelRegAvanzo(reg.get()), 1u) << "the first byte of the next message";
    ASSERT_EQ(spingi(61, 62), 1);
    EXPECT_EQ(righe(), Righe(1, 0));
    EXPECT_EQ(kelRegAvanzo(reg.get()), 2u);
    ASSERT_EQ(spingi(62, byte.size()), 1);
    EXPECT_EQ(righe(), Righe(1, 3));
    EXPECT_EQ(kelRegAvanzo(reg.get()), 0u);
    std::array<unsigned char, KEL_NAV_SOL_BYTE> payload{};
    EXPECT_EQ(kelRegNavSol(reg.get(), 0, payload.data()), 0) << "gone";
    for (unsigned i = 1; i < 3; ++i) {
        ASSERT_EQ(kelRegNavSol(reg.get(), i, payload.data()), 1);
        const Byte mandato = Pista::nav_sol(i);
        EXPECT_TRUE(std::equal(mandato.begin(), mandato.end(), payload.begin())) << i;
    }
    ASSERT_EQ(kelRegNavSol(reg.get(), 3, payload.data()), 1);
    EXPECT_EQ(payload[47], 9) << "satellites of the other kind of message";
    std::array<double, 3> tempi{};
    ASSERT_EQ(kelRegTempi(reg.get(), 1, 3, tempi.data()), 1);
    EXPECT_EQ(tempi, (std::array<double, 3>{345601, 345602, 345700}));
    ASSERT_EQ(spingi(0, 33), 1);
    ASSERT_EQ(kelRegSpingi(reg.get(), nullptr, 0, nullptr), 1);
    EXPECT_EQ(righe(), Righe(4, 0));
    EXPECT_EQ(kelRegAvanzo(reg.get()), 33u) << "cut off by the end";
    s_kel_errore errore{};
    EXPECT_EQ(kelRegSpingi(reg.get(), byte.data(), 1, &errore), 0);
    EXPECT_STREQ(errore.testo, "the stream has ended");
    errore = {};
    EXPECT_EQ(kelRegSpingi(reg.get(), nullptr, 0, &errore), 0);
    EXPECT_STREQ(errore.testo, "the stream has ended");
    const Registrazione intero(kelRegApriUbx(byte.data(), 33, nullptr));
    EXPECT_EQ(kelRegAvanzo(intero.get()), 33u);
    EXPECT_EQ(kelRegSpingi(intero.get(), nullptr, 0, &errore), 0);
    EXPECT_STREQ(errore.testo, "the stream has ended");
}

}  // namespace
