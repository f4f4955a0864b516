// The stream reader and the solutions shown from it survive anything, and lose nothing that is good.
#include "gps/flusso_ubx.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "gps/soluzione.h"
#include "messaggi.h"

namespace {

using namespace kel_registrazioni;
using Byte = std::vector<std::uint8_t>;

// The frame of a message, checksum computed the plain way (RFC 1145), unlike the reader's running sums.
Byte telaio(std::uint8_t classe, std::uint8_t id, const Byte& dati) {
    Byte corpo = {classe, id, static_cast<std::uint8_t>(dati.size() & 0xFF),
                  static_cast<std::uint8_t>(dati.size() >> 8)};
    std::copy(dati.begin(), dati.end(), std::back_inserter(corpo));
    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t byte : corpo) {
        a = (a + byte) % 256;
        b = (b + a) % 256;
    }
    Byte tutto = {0xB5, 0x62};
    std::copy(corpo.begin(), corpo.end(), std::back_inserter(tutto));
    tutto.push_back(static_cast<std::uint8_t>(a));
    tutto.push_back(static_cast<std::uint8_t>(b));
    return tutto;
}

Byte operator+(Byte a, const Byte& b) {
    std::copy(b.begin(), b.end(), std::back_inserter(a));
    return a;
}

// Reads in pieces of at most `pezzo` bytes.
LettoreUbx lettore(const std::uint8_t* byte, std::size_t quanti, std::size_t pezzo) {
    return LettoreUbx([byte, quanti, pezzo, da = std::size_t{0}](std::uint8_t* dove, std::size_t spazio) mutable {
        const std::size_t n = std::min({spazio, pezzo, quanti - da});
        std::copy_n(byte + da, n, dove);
        da += n;
        return n;
    });
}

struct Trovato {
    std::vector<Byte> navsol;
    std::size_t altri = 0;
    ConteggiUbx conteggi;
};

Trovato leggi(const Byte& byte, std::size_t quanti, std::size_t pezzo = 4096) {
    LettoreUbx l = lettore(byte.data(), quanti, pezzo);
    Trovato trovato;
    MessaggioUbx messaggio;
    while (l.prossimo(messaggio)) {
        if (messaggio.classe == NAV_SOL_CLASSE && messaggio.id == NAV_SOL_ID && messaggio.dati.size() == NAV_SOL_BYTE)
            trovato.navsol.push_back(messaggio.dati);
        else
            ++trovato.altri;
    }
    trovato.conteggi = l.conteggi();
    // Every byte is accounted for once.
    const ConteggiUbx& c = trovato.conteggi;
    EXPECT_EQ(c.byte, quanti);
    EXPECT_EQ(c.byte_messaggi + c.byte_fuori + c.byte_troncati, c.byte);
    return trovato;
}

Byte simulata() {
    Byte byte;
    kel::simulatore::registrazione(
        1, 2, 5, [&byte](const std::string& pezzo) { byte.insert(byte.end(), pezzo.begin(), pezzo.end()); });
    return byte;
}

// Where each NAV-SOL frame of a good capture ends, found by its bytes alone.
std::vector<std::size_t> fini_nav_sol(const Byte& byte) {
    const Byte inizio = {0xB5, 0x62, 0x01, 0x06, 52, 0};
    std::vector<std::size_t> fini;
    for (auto da = byte.begin();;) {
        da = std::search(da, byte.end(), inizio.begin(), inizio.end());
        if (da == byte.end() || byte.end() - da < 60)
            return fini;
        da += 60;
        fini.push_back(static_cast<std::size_t>(da - byte.begin()));
    }
}

// What a capture must survive. Emulated machines take steps: the whole would be minutes of the same.
class Cattura {
public:
    explicit Cattura(Byte byte)
        : byte_(std::move(byte)), intera_(leggi(byte_, byte_.size())), fini_(fini_nav_sol(byte_)) {
        const char* passo = std::getenv("KEL_PASSO_ROBUSTEZZA");
        passo_ = passo == nullptr ? 1 : static_cast<std::size_t>(std::max(1, std::atoi(passo)));
    }

    const Trovato& intera() const { return intera_; }

    void troncata() const {
        for (std::size_t n = 0; n < byte_.size(); n += passo_) {
            const auto attese =
                static_cast<std::size_t>(std::upper_bound(fini_.begin(), fini_.end(), n) - fini_.begin());
            const Trovato trovato = leggi(byte_, n);
            ASSERT_EQ(trovato.navsol.size(), attese) << "cut after " << n << " bytes";
            ASSERT_TRUE(std::equal(trovato.navsol.begin(), trovato.navsol.end(), intera_.navsol.begin())) << n;
        }
    }

    void guastata() const {
        Byte byte = byte_;
        for (std::size_t i = 0; i < byte.size(); i += passo_) {
            for (const int maschera : {0xFF, 0x01}) {
                byte[i] = static_cast<std::uint8_t>(byte[i] ^ maschera);
                // A checksum of 8-bit sums notices every change of one byte, so that only the message that holds it goes.
                std::vector<Byte> attese = intera_.navsol;
                const auto sua = std::upper_bound(fini_.begin(), fini_.end(), i);
                if (sua != fini_.end() && i + 60 >= *sua)
                    attese.erase(attese.begin() + (sua - fini_.begin()));
                ASSERT_EQ(leggi(byte, byte.size()).navsol, attese) << "byte " << i << " changed by " << maschera;
                byte[i] = byte_[i];
            }
        }
    }

private:
    Byte byte_;
    Trovato intera_;
    std::vector<std::size_t> fini_;
    std::size_t passo_ = 1;
};

Byte dati52(std::uint8_t seme) {
    Byte dati(52);
    for (std::size_t i = 0; i < dati.size(); ++i)
        dati[i] = static_cast<std::uint8_t>(seme + 7 * i);
    return dati;
}

TEST(FlussoUbx, EmptyStreamHasNoMessages) {
    const Trovato trovato = leggi({}, 0);
    EXPECT_EQ(trovato.navsol.size() + trovato.altri, 0u);
}

TEST(FlussoUbx, MessageOfEveryLengthIsReadInPiecesOfEverySize) {
    for (const std::size_t lunghezza : {0u, 1u, 52u, 255u, 256u, 4096u, 65535u}) {
        const Byte byte = telaio(0x02, 0x10, Byte(lunghezza, 0xA5)) + telaio(0x01, 0x06, dati52(1));
        for (const std::size_t pezzo : {1u, 2u, 7u, 1000u, 200000u}) {
            const Trovato trovato = leggi(byte, byte.size(), pezzo);
            EXPECT_EQ(trovato.altri, 1u) << lunghezza;
            EXPECT_EQ(trovato.navsol, std::vector<Byte>{dati52(1)}) << lunghezza;
            EXPECT_EQ(trovato.conteggi.byte_fuori, 0u);
        }
    }
}

TEST(FlussoUbx, AMessageThatThePiecesCutInTwoIsWholeAlsoWhereTheBufferIsFull) {
    Byte byte;
    for (int i = 0; i < 5000; ++i) {
        const Byte uno = telaio(0x01, 0x06, dati52(static_cast<std::uint8_t>(i)));
        byte.insert(byte.end(), uno.begin(), uno.end());
    }
    for (const std::size_t pezzo : {66030u, 65570u, 131000u}) {
        const Trovato trovato = leggi(byte, byte.size(), pezzo);
        EXPECT_EQ(trovato.navsol.size(), 5000u) << pezzo;
        EXPECT_EQ(trovato.conteggi.byte_fuori, 0u);
    }
}

TEST(FlussoUbx, WrongChecksumDoesNotSwallowTheMessageInsideIt) {
    // A damaged length makes the first message reach over the second one.
    Byte guasta = telaio(0x01, 0x06, dati52(3));
    guasta[4] = 100;
    const Trovato trovato = leggi(guasta + telaio(0x01, 0x06, dati52(9)) + Byte(40, 0), guasta.size() + 100);
    EXPECT_EQ(trovato.navsol, std::vector<Byte>{dati52(9)});
    EXPECT_EQ(trovato.conteggi.checksum_errati, 1u);
    EXPECT_EQ(trovato.conteggi.byte_fuori, 60u + 40u);
}

TEST(FlussoUbx, LengthBeyondTheEndDoesNotSwallowTheMessagesAfterIt) {
    const Byte falsa = {0xB5, 0x62, 0x01, 0x06, 0xFF, 0xFF};
    const Byte byte = falsa + telaio(0x01, 0x06, dati52(4)) + telaio(0x01, 0x06, dati52(5));
    const Trovato trovato = leggi(byte, byte.size());
    EXPECT_EQ(trovato.navsol, (std::vector<Byte>{dati52(4), dati52(5)}));
    EXPECT_EQ(trovato.conteggi.byte_fuori, 6u);
    EXPECT_EQ(trovato.conteggi.byte_troncati, 0u);
}

TEST(FlussoUbx, SyncAfterALoneFirstSyncByteIsFound) {
    const Byte byte = Byte{0xB5, 0xB5, 0xB5} + telaio(0x01, 0x06, dati52(4));
    EXPECT_EQ(leggi(byte, byte.size()).navsol.size(), 1u);
}

TEST(FlussoUbx, BothChecksumBytesCount) {
    for (const std::size_t quale : {1u, 2u}) {
        Byte byte = telaio(0x01, 0x06, dati52(4));
        byte[byte.size() - quale] ^= 0x10;
        EXPECT_TRUE(leggi(byte, byte.size()).navsol.empty());
    }
}

TEST(FlussoUbx, TruncatedMessageIsCountedAsSuch) {
    const Byte byte = Byte(10, 'x') + telaio(0x01, 0x06, dati52(4));
    const Trovato trovato = leggi(byte, byte.size() - 1);
    EXPECT_EQ(trovato.conteggi.byte_fuori, 10u);
    EXPECT_EQ(trovato.conteggi.byte_troncati, 59u);
}

TEST(FlussoUbx, NavSolOfAnotherLengthIsNoSolutionButAMessage) {
    const Byte byte = telaio(0x01, 0x06, Byte(51, 1)) + telaio(0x01, 0x06, dati52(1));
    const Trovato trovato = leggi(byte, byte.size());
    EXPECT_EQ(trovato.altri, 1u);
    EXPECT_EQ(trovato.navsol.size(), 1u);
}

TEST(FlussoUbx, RandomBytesAreSurvivedAndAccountedFor) {
    std::mt19937 caso(7);
    for (int giro = 0; giro < 50; ++giro) {
        Byte byte(20000);
        for (std::uint8_t& b : byte)  // sync bytes far more often than chance has it
            b = caso() % 8 == 0 ? 0xB5 : caso() % 8 == 0 ? 0x62 : static_cast<std::uint8_t>(caso());
        leggi(byte, byte.size(), 1 + caso() % 5000);
    }
}

TEST(FlussoUbx, NothingButSyncBytesTakesLinearTime) {
    // Every second byte begins a message of 25269 bytes: summed up one by one that would be 50 thousand million bytes.
    Byte byte;
    for (int i = 0; i < 2000000; ++i)
        byte.push_back(i % 2 == 0 ? 0xB5 : 0x62);
    const Trovato trovato = leggi(byte, byte.size());
    EXPECT_TRUE(trovato.navsol.empty());
    EXPECT_GT(trovato.conteggi.checksum_errati, 900000u);
}

TEST(CatturaSimulata, HoldsSolutionsWithAndWithoutFix) {
    const Cattura cattura(simulata());
    ASSERT_GT(cattura.intera().navsol.size(), 80u);
    std::size_t per_fix[4] = {};
    for (const Byte& dati : cattura.intera().navsol)
        ++per_fix[dati[10] & 3];
    EXPECT_GT(per_fix[0], 2u);
    EXPECT_GT(per_fix[2], 1u);
    EXPECT_GT(per_fix[3], 70u);
    EXPECT_GT(cattura.intera().conteggi.byte_fuori, 1000u) << "sentences of another protocol stand between";
}

TEST(CatturaSimulata, SurvivesTruncationAtAnyByte) {
    Cattura(simulata()).troncata();
}

TEST(CatturaSimulata, SurvivesDamageToAnyByte) {
    Cattura(simulata()).guastata();
}

TEST(CatturaSimulata, IsTheSameEveryTime) {
    EXPECT_EQ(simulata(), simulata());
}

class CatturaVera : public ::testing::Test {
protected:
    void SetUp() override {
        const char* cartella = std::getenv("KEL_CAPTURES");
        if (cartella == nullptr)
            GTEST_SKIP() << "KEL_CAPTURES does not name a folder of captures";
        std::ifstream file(std::string(cartella) + "/navisys-gr701w.log", std::ios::binary);
        ASSERT_TRUE(file) << "no navisys-gr701w.log in " << cartella;
        byte_.assign(std::istreambuf_iterator<char>(file), {});
    }
    Byte byte_;
};

TEST_F(CatturaVera, Has81Solutions) {
    EXPECT_EQ(Cattura(byte_).intera().navsol.size(), 81u);
}

TEST_F(CatturaVera, SurvivesTruncationAtAnyByte) {
    Cattura(byte_).troncata();
}

TEST_F(CatturaVera, SurvivesDamageToAnyByte) {
    Cattura(byte_).guastata();
}

}  // namespace
