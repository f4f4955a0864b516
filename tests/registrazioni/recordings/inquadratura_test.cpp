// Which framing the samples of a recording have: found from their time stamps and their length.
#include "recordings/inquadratura.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "common/errore.h"

namespace {

using namespace kel_registrazioni;

using Byte = std::vector<std::uint8_t>;

void metti(Byte& byte, std::uint64_t valore, std::size_t quanti) {
    for (std::size_t i = 0; i < quanti; ++i)
        byte.push_back(static_cast<std::uint8_t>(valore >> 8 * i));
}

// Records of samples that change as an engine's do, each behind its time stamp.
Byte registrazione(std::size_t dimensione_record, Orario orario, std::size_t quanti,
                   const std::function<std::uint64_t(std::size_t)>& tempo) {
    std::mt19937 caso(7);
    std::vector<unsigned> valori(dimensione_record, 100);
    Byte byte;
    for (std::size_t i = 0; i < quanti; ++i) {
        if (orario != Orario::nessuno)
            metti(byte, tempo(i), byte_orario(orario));
        for (unsigned& valore : valori) {
            valore += static_cast<unsigned>(caso() % 5) - 2;
            byte.push_back(static_cast<std::uint8_t>(valore));
        }
    }
    return byte;
}

Inquadratura trovata(const Byte& byte, std::size_t dimensione_record) {
    return scegli_inquadratura(byte, dimensione_record, byte.size());
}

std::string rifiuto(const std::function<Inquadratura()>& prova) {
    try {
        return "taken: " + std::string(nome_orario(prova().orario));
    } catch (const Errore& e) {
        return e.what();
    }
}

TEST(Framing, IsFoundFromTheStampsOfAnyRecordLength) {
    for (std::size_t dimensione_record = 1; dimensione_record < 200; dimensione_record += 3)
        for (const Orario orario : {Orario::u32ms, Orario::u64us}) {
            const std::uint64_t passo = orario == Orario::u32ms ? 40 : 40000;
            const auto byte =
                registrazione(dimensione_record, orario, 100, [passo](std::size_t i) { return 123456 + i * passo; });
            const Inquadratura inquadratura = trovata(byte, dimensione_record);
            EXPECT_EQ(inquadratura.orario, orario) << dimensione_record;
            EXPECT_EQ(inquadratura.detto, std::string("time stamps: ") + nome_orario(orario) + ", every 40 ms");
        }
}

TEST(Framing, OfSamplesWithoutStampsIsNone) {
    for (std::size_t dimensione_record = 1; dimensione_record < 200; dimensione_record += 3) {
        const auto byte = registrazione(dimensione_record, Orario::nessuno, 100, {});
        EXPECT_EQ(trovata(byte, dimensione_record).orario, Orario::nessuno) << dimensione_record;
        // A stream whose length is not known yet.
        EXPECT_EQ(scegli_inquadratura(byte, dimensione_record, std::nullopt).orario, Orario::nessuno);
    }
    EXPECT_EQ(trovata(registrazione(10, Orario::nessuno, 7, {}), 10).detto,
              "time stamps: none, as nothing runs forward in even steps");
}

TEST(Framing, StampsMayJitterLoseRecordsAndBeJoinedFromSessions) {
    const auto tremolio = [](std::size_t i) { return 1000 + i * 40 + (i % 3) * 6; };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 50, tremolio), 20).orario, Orario::u32ms);
    const auto buchi = [](std::size_t i) { return 1000 + i * 40 + i / 10 * 60000; };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 50, buchi), 20).orario, Orario::u32ms);
    const auto sessioni = [](std::size_t i) { return 1000 + i % 25 * 40; };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 50, sessioni), 20).orario, Orario::u32ms);
    const auto fitti = [](std::size_t i) { return 1000 + i + (i % 7 == 0 ? 1 : 0); };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 50, fitti), 20).orario, Orario::u32ms);
}

TEST(Framing, ACounterOfMillisecondsMayComeToItsEnd) {
    const auto fine = [](std::size_t i) { return 0xFFFFFF00u + i * 40; };
    const auto byte = registrazione(20, Orario::u32ms, 50, fine);
    const EsameOrario esame = esamina_orario(byte, 20, Orario::u32ms, byte.size());
    EXPECT_TRUE(esame.provato());
    EXPECT_EQ(esame.intervallo, 40u);
    EXPECT_EQ(trovata(byte, 20).orario, Orario::u32ms);
}

TEST(Framing, TimeThatStandsStillOrRunsBackIsNoTime) {
    for (const auto& tempo : std::vector<std::function<std::uint64_t(std::size_t)>>{
             [](std::size_t) { return 5000; }, [](std::size_t i) { return 90000 - i * 40; },
             [](std::size_t i) { return i * i * i * 977; }}) {
        const auto byte = registrazione(21, Orario::u32ms, 50, tempo);  // 1250 bytes: no 21s, no 29s
        const std::string detto = rifiuto([&] { return trovata(byte, 21); });
        EXPECT_NE(
            detto.find("the framing of the samples is not clear: none fits (1250 bytes); orario may be none: 59 "
                       "records of 21 bytes and 11 bytes over; u32ms: 50 records of 25 bytes, its steps not even; "
                       "u64us: 43 records of 29 bytes and 3 bytes over, its steps not even"),
            std::string::npos)
            << detto;
        EXPECT_EQ(verifica_inquadratura(byte, 21, byte.size(), Orario::u32ms).detto,
                  "warning: orario u32ms: the time stamps do not run forward in even steps");
    }
}

TEST(Framing, OfOneRecordIsWhatItsLengthLeaves) {
    const auto uno = [](std::size_t) { return 123456789; };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 1, uno), 20).orario, Orario::u32ms);
    EXPECT_EQ(trovata(registrazione(20, Orario::u64us, 1, uno), 20).orario, Orario::u64us);
    EXPECT_EQ(trovata(registrazione(20, Orario::nessuno, 1, uno), 20).orario, Orario::nessuno);
    // Eight bytes are two records of four, or one with a stamp.
    EXPECT_EQ(trovata(registrazione(4, Orario::u32ms, 1, uno), 4).detto,
              "time stamps: none; but it may be one record with a stamp (orario)");
}

TEST(Framing, OfTwoRecordsIsRefusedWhereTheLengthLeavesTwo) {
    const auto due = [](std::size_t i) { return 1000 + i * 40; };
    EXPECT_EQ(trovata(registrazione(20, Orario::u32ms, 2, due), 20).detto,
              "time stamps: u32ms, every 40 ms, as no other framing fits the length");
    const auto byte = registrazione(4, Orario::u32ms, 2, due);
    EXPECT_NE(
        rifiuto([&] { return trovata(byte, 4); })
            .find("two records are too few to tell (16 bytes); orario may be none: 4 records of 4 bytes; u32ms: 2 "
                  "records of 8 bytes, every 40 ms"),
        std::string::npos);
    EXPECT_EQ(verifica_inquadratura(byte, 4, byte.size(), Orario::nessuno).orario, Orario::nessuno);
    EXPECT_EQ(verifica_inquadratura(byte, 4, byte.size(), Orario::u32ms).orario, Orario::u32ms);
}

TEST(Framing, OfACutRecordingIsToldByItsStamps) {
    auto byte = registrazione(20, Orario::u32ms, 50, [](std::size_t i) { return i * 40; });
    byte.resize(byte.size() - 5);
    EXPECT_EQ(trovata(byte, 20).orario, Orario::u32ms);
    EXPECT_EQ(verifica_inquadratura(byte, 20, byte.size(), Orario::u32ms).detto, "");
}

TEST(Framing, AChoiceThatTheSamplesSpeakAgainstIsTold) {
    const auto byte = registrazione(20, Orario::u32ms, 100, [](std::size_t i) { return i * 40; });  // 2400 bytes
    EXPECT_EQ(verifica_inquadratura(byte, 20, byte.size(), Orario::nessuno).detto,
              "warning: orario none: time stamps seem to be there; orario u32ms: 100 records of 24 bytes, every 40 ms");
    EXPECT_EQ(rifiuto([&] { return verifica_inquadratura(byte, 20, byte.size(), Orario::u64us); }),
              "2400 bytes are no whole number of records of 28 bytes: 85 records and 20 bytes over; orario u32ms: 100 "
              "records of 24 bytes, every 40 ms");
    EXPECT_EQ(verifica_inquadratura(byte, 20, byte.size(), Orario::u32ms).detto, "");
}

// Stamps of both kinds run forward in even steps: milliseconds before records of 104 bytes, microseconds before those of 108.
Byte con_due_orari(std::size_t lunghezza) {
    Byte byte(lunghezza, 0x5A);
    const auto scrivi = [&byte](std::size_t da, std::uint64_t valore, std::size_t quanti) {
        for (std::size_t i = 0; i < quanti && da + i < byte.size(); ++i)
            byte[da + i] = static_cast<std::uint8_t>(valore >> 8 * i);
    };
    for (std::size_t i = 0; i < 4; ++i) {
        scrivi(i * 104, i * 40, 4);
        scrivi(i * 108, i * 1500, 8);
    }
    return byte;
}

TEST(Framing, OfTwoKindsOfStampsIsThatWhichTheLengthFits) {
    EXPECT_EQ(trovata(con_due_orari(4 * 104), 100).detto, "time stamps: u32ms, every 40 ms");
    EXPECT_EQ(trovata(con_due_orari(4 * 108), 100).detto, "time stamps: u64us, every 1500 us");
    EXPECT_EQ(
        rifiuto([] { return trovata(con_due_orari(440), 100); }),
        "the framing of the samples is not clear: time stamps run in even steps under more than one (440 bytes); "
        "orario may be none: 4 records of 100 bytes and 40 bytes over; u32ms: 4 records of 104 bytes and 24 bytes "
        "over, every 40 ms; u64us: 4 records of 108 bytes and 8 bytes over, every 1500 us");
    EXPECT_EQ(
        rifiuto([] { return scegli_inquadratura(con_due_orari(440), 100, std::nullopt); }),
        "the framing of the samples is not clear: time stamps run in even steps under more than one; orario may be "
        "none: records of 100 bytes; u32ms: records of 104 bytes, every 40 ms; u64us: records of 108 bytes, every "
        "1500 us");
}

TEST(Framing, ThatIsProvedHasNoOtherAdvised) {
    const Byte byte = con_due_orari(440);
    EXPECT_EQ(verifica_inquadratura(byte, 100, 27 * 104, Orario::u32ms).detto, "") << "both fit";
    EXPECT_EQ(verifica_inquadratura(byte, 100, 27 * 104, Orario::u64us).detto, "");
    EXPECT_EQ(verifica_inquadratura(byte, 100, 400, Orario::nessuno).detto, "")
        << "stamps under which the length is no whole number of records are no advice";
    EXPECT_EQ(verifica_inquadratura(std::span(byte).first(104), 100, 104, Orario::u32ms).detto, "")
        << "one stamp makes no steps";
}

TEST(Framing, OfAStreamThatBeginsWithTwoRecordsOrOneIsNotTold) {
    const auto tempo = [](std::size_t i) { return 1000 + i * 40; };
    const std::string niente = "time stamps: none, as nothing runs forward in even steps";
    const Byte due = registrazione(21, Orario::u32ms, 2, tempo);
    EXPECT_EQ(scegli_inquadratura(due, 21, std::nullopt).detto, niente);
    EXPECT_EQ(scegli_inquadratura(std::span(due).first(25), 21, std::nullopt).detto, niente);
    EXPECT_NE(rifiuto([&] { return scegli_inquadratura(due, 21, 51); }).find(": none fits (51 bytes)"),
              std::string::npos)
        << "two stamps in even steps, and a byte over";
}

TEST(Framing, SaysNothingOfTheStepsOfOneStamp) {
    const Byte byte = registrazione(21, Orario::u32ms, 2, [](std::size_t) { return 1000; });
    EXPECT_EQ(
        rifiuto([&] { return trovata(Byte(byte.begin(), byte.begin() + 26), 21); }),
        "the framing of the samples is not clear: none fits (26 bytes); orario may be none: 1 record of 21 bytes and "
        "5 bytes over; u32ms: 1 record of 25 bytes and 1 byte over; u64us: 0 records of 29 bytes and 26 bytes over");
}

TEST(Framing, CountsInSingularAndPlural) {
    EXPECT_EQ(lunghezza_errata(1, 2), "1 byte is no whole number of records of 2 bytes: 0 records and 1 byte over");
    EXPECT_EQ(lunghezza_errata(5, 3), "5 bytes are no whole number of records of 3 bytes: 1 record and 2 bytes over");
}

TEST(Framing, OfNoBytesAtAllIsNone) {
    EXPECT_EQ(trovata({}, 4).orario, Orario::nessuno);
}

TEST(Framing, OfRandomBytesIsNeverStamped) {
    std::mt19937 caso(1);
    for (int giro = 0; giro < 2000; ++giro) {
        Byte byte(100 * (1 + caso() % 40));
        for (std::uint8_t& uno : byte)
            uno = static_cast<std::uint8_t>(caso());
        if (byte.size() < 400)
            continue;
        const std::size_t dimensione_record = 1 + caso() % 50;
        const std::string detto = rifiuto([&] { return trovata(byte, dimensione_record); });
        EXPECT_TRUE(detto == "taken: none" || detto.find("none fits") != std::string::npos) << detto;
    }
}

}  // namespace
