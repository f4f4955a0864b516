// Laps that a logger has timed: from its packets of both generations and from channels of their own.
#include "laps/giri_registrati.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "common/interi.h"
#include "laps/raccolta.h"

namespace {

using namespace kel_registrazioni;

std::string testo(const std::vector<GiroRegistrato>& giri) {
    std::string tutti;
    for (const GiroRegistrato& giro : giri) {
        tutti += (tutti.empty() ? "" : ", ") + std::to_string(giro.numero) + ": " + std::to_string(giro.ms);
        if (giro.fine)
            tutti += " at " + std::to_string(static_cast<int>(*giro.fine * 1000 + 0.5));
    }
    return tutti;
}

TEST(LoggedLaps, AreTheChangesAndNotWhatStoodThereBefore) {
    GiriRegistrati giri;
    // The first record still shows the last lap of another day.
    giri.aggiungi(0.0, {7, 61000, 9000});
    giri.aggiungi(1.0, {7, 61000, 10000});
    giri.aggiungi(52.0, {8, 60500, 40});
    giri.aggiungi(53.0, {8, 60500, 1040});
    giri.aggiungi(112.5, {9, 60500, 20});  // to the same millisecond
    EXPECT_EQ(testo(giri.chiudi()), "8: 60500 at 51960, 9: 60500 at 112480");
}

TEST(LoggedLaps, WithoutARunningTimeEndAtTheirRecord) {
    GiriRegistrati giri;
    for (const auto& [tempo, numero, ms] :
         std::vector<std::tuple<double, int, int>>{{0, 0, 0}, {10, 0, 0}, {60.2, 1, 60111}, {120, 2, 59900}})
        giri.aggiungi(tempo, {numero, ms, {}});
    EXPECT_EQ(testo(giri.chiudi()), "1: 60111 at 60200, 2: 59900 at 120000");
}

TEST(LoggedLaps, NumberAndTimeMayChangeOneAfterTheOther) {
    for (const bool numero_prima : {true, false}) {
        GiriRegistrati giri;
        int numero = 0;
        int ms = 0;
        for (int i = 0; i < 1300; ++i) {
            if (i == 500)
                (numero_prima ? numero : ms) = numero_prima ? 1 : 50000;
            if (i == 503)
                (numero_prima ? ms : numero) = numero_prima ? 50000 : 1;
            if (i == 1000)
                numero = 2;  // and the time stays: as fast again
            giri.aggiungi(i / 10.0, {numero, ms, {}});
        }
        EXPECT_EQ(testo(giri.chiudi()), "1: 50000 at 50000, 2: 50000 at 100000");
    }
}

TEST(LoggedLaps, ATimerThatIsSetBackIsNoLap) {
    GiriRegistrati giri;
    for (const auto& [tempo, numero, ms] : std::vector<std::tuple<double, int, int>>{
             {0, 4, 60000}, {60, 5, 60001}, {70, 0, 0}, {130, 1, 59000}, {140, 0, 59000}, {150, 0, 0}})
        giri.aggiungi(tempo, {numero, ms, {}});
    EXPECT_EQ(testo(giri.chiudi()), "5: 60001 at 60000, 1: 59000 at 130000");
}

TEST(LoggedLaps, OfNumbersAloneHaveTheNumberThatRunsAndLastFromChangeToChange) {
    GiriRegistrati giri;
    for (const auto& [tempo, numero] : std::vector<std::pair<double, int>>{{0, 0}, {10, 1}, {70, 2}, {129.5, 3}})
        giri.aggiungi(tempo, {numero, {}, {}});
    EXPECT_EQ(testo(giri.chiudi()), "1: 60000 at 70000, 2: 59500 at 129500");
}

TEST(LoggedLaps, OfTimesAloneAreCounted) {
    GiriRegistrati giri;
    for (const auto& [tempo, ms] : std::vector<std::pair<double, int>>{{0, 0}, {60, 60000}, {120, 59000}})
        giri.aggiungi(tempo, {{}, ms, {}});
    EXPECT_EQ(testo(giri.chiudi()), "1: 60000 at 60000, 2: 59000 at 120000");
}

TEST(LoggedLaps, NeedNoTimesOfRecords) {
    GiriRegistrati giri;
    for (const auto& [numero, ms] : std::vector<std::pair<int, int>>{{0, 0}, {1, 60000}, {1, 60000}, {2, 59000}})
        giri.aggiungi({}, {numero, ms, {}});
    EXPECT_EQ(testo(giri.chiudi()), "1: 60000, 2: 59000");
}

TEST(LoggedLaps, OfSessionsThatAreJoinedDoNotReachAcross) {
    GiriRegistrati giri;
    for (const auto& [tempo, numero] :
         std::vector<std::pair<double, int>>{{0, 0}, {10, 1}, {70, 2}, {5, 2}, {20, 3}, {80, 4}})
        giri.aggiungi(tempo, {numero, {}, {}});
    EXPECT_EQ(testo(giri.chiudi()), "1: 60000 at 70000, 3: 60000 at 80000");
}

struct Record {
    std::optional<double> tempo;
    StatoCronometro stato;
};

std::string giri_di(const std::vector<Record>& tutti) {
    GiriRegistrati giri;
    for (const Record& uno : tutti)
        giri.aggiungi(uno.tempo, uno.stato);
    return testo(giri.chiudi());
}

TEST(LoggedLaps, BeginWhereANumberAppears) {
    EXPECT_EQ(giri_di({{0, {}}, {10, {1, {}, {}}}, {70, {2, {}, {}}}, {130, {3, {}, {}}}}),
              "1: 60000 at 70000, 2: 60000 at 130000");
    EXPECT_EQ(giri_di({{0, {5, {}, {}}}, {10, {4, {}, {}}}, {70, {5, {}, {}}}, {130, {4, {}, {}}}}),
              "4: 60000 at 70000")
        << "a number that falls closes none";
}

TEST(LoggedLaps, ANumberThatFallsOrGoesBesideATimeThatStaysIsNone) {
    EXPECT_EQ(giri_di({{0, {5, 60000, {}}}, {10, {0, 60000, {}}}, {12, {0, 60000, {}}}}), "");
    EXPECT_EQ(giri_di({{0, {1, 50000, {}}}, {60, {2, 50000, {}}}, {61.5, {{}, 50000, {}}}}), "");
    EXPECT_EQ(giri_di({{0, {1, 50000, {}}}, {60, {2, 50000, {}}}, {61.5, {2, 50000, {}}}}), "2: 50000 at 60000");
    EXPECT_EQ(giri_di({{0, {1, 50000, {}}}, {60, {2, -1, {}}}}), "") << "a time below 0 is none";
}

TEST(LoggedLaps, ThatWaitForTheirTimeAreClosedWhereTheSessionEnds) {
    EXPECT_EQ(giri_di({{0, {0, 50000, {}}}, {50, {1, 50000, {}}}, {5, {1, 50000, {}}}, {60, {2, 51000, {}}}}),
              "1: 50000 at 50000, 2: 51000 at 60000");
}

TEST(LoggedLaps, BelieveARunningTimeOfUpToAMinute) {
    const auto con = [](int corrente) { return giri_di({{0, {0, 0, {}}}, {100, {1, 60000, corrente}}}); };
    EXPECT_EQ(con(0), "1: 60000 at 100000");
    EXPECT_EQ(con(60000), "1: 60000 at 40000");
    EXPECT_EQ(con(60001), "1: 60000 at 100000");
    EXPECT_EQ(con(-1), "1: 60000 at 100000");
}

TEST(LoggedLaps, WaitASecondOrEightRecordsForTheOtherOfNumberAndTime) {
    // The number changes, and again before or behind the end of the waiting; the time stays.
    const auto con = [](const std::vector<std::optional<double>>& tempi) {
        std::vector<Record> tutti = {{tempi.front(), {0, 50000, {}}}};
        for (std::size_t i = 1; i + 1 < tempi.size(); ++i)
            tutti.push_back({tempi[i], {1, 50000, {}}});
        tutti.push_back({tempi.back(), {2, 50000, {}}});
        return giri_di(tutti);
    };
    EXPECT_EQ(con({0, 50, 50.9, 60}), "2: 50000 at 50000") << "not waited long enough: one change";
    EXPECT_EQ(con({0, 50, 51, 60}), "1: 50000 at 50000, 2: 50000 at 60000");
    EXPECT_EQ(con({{}, {}, {}, {}, {}, {}, {}, {}, {}, {}}), "2: 50000");
    EXPECT_EQ(con({{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}), "1: 50000, 2: 50000");
    EXPECT_EQ(con({0, 50, {}, {}, {}, {}, {}, {}, {}, {}, 60}), "1: 50000 at 50000, 2: 50000 at 60000")
        << "records whose time is not known are counted";
    EXPECT_EQ(con({0, {}, 50, 51, 52, 53, 54, 55, 56, 60}), "2: 50000") << "also where it is known later on";
}

TEST(LoggedLaps, OfNumbersWithoutTimesOfRecordsAreNone) {
    EXPECT_EQ(giri_di({{{}, {0, {}, {}}}, {{}, {1, {}, {}}}, {{}, {2, {}, {}}}}), "");
}

// A recording of one channel of packets.
std::vector<Giro> con_pacchetti(unsigned specie, std::uint32_t tipo,
                                const std::vector<std::vector<std::uint8_t>>& pacchetti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    s_kel_canale canale{};
    canale.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, specie);
    canale.tipo_campione = tipo;
    canale.dim_buffer = kelFunGetSamplSize(tipo);
    RaccoltaRecord raccolta(*catalogo, std::span<const s_kel_canale>(&canale, 1));
    EXPECT_FALSE(raccolta.canale_giri().empty());
    double tempo = 0;
    for (const auto& pacchetto : pacchetti) {
        // In a block of exactly its size.
        const auto campioni = std::make_unique<std::uint8_t[]>(canale.dim_buffer);
        std::copy_n(pacchetto.begin(), canale.dim_buffer, campioni.get());
        raccolta.aggiungi(tempo, campioni.get());
        tempo += 20;
    }
    const Guida guida(raccolta.fix_dei_record());
    auto giri = raccolta.giri_del_registratore(guida);
    misura(giri, guida);
    return giri;
}

std::string testo(const std::vector<Giro>& giri) {
    std::string tutti;
    for (const Giro& giro : giri)
        tutti += (tutti.empty() ? "" : ", ") + std::to_string(giro.numero) +
                 (giro.ms ? ": " + std::to_string(*giro.ms) : " " + std::string(nome(giro.stato))) + " (" +
                 std::to_string(giro.campioni) + ")";
    return tutti;
}

TEST(LapPackets, OfTheSecondGeneration) {
    const auto pacchetto = [](std::uint16_t numero, std::int32_t ms, std::int32_t corrente) {
        std::vector<std::uint8_t> byte(32);
        scrivi_intero<std::uint8_t>(byte, 0, 1);
        scrivi_intero(byte, 2, numero);
        scrivi_intero(byte, 4, ms);
        scrivi_intero(byte, 16, corrente);
        return byte;
    };
    const std::vector<std::vector<std::uint8_t>> tutti = {pacchetto(0, 0, 5000),       pacchetto(0, 0, 25000),
                                                          pacchetto(1, 41000, 4000),   pacchetto(1, 41000, 24000),
                                                          pacchetto(300, 38500, 5500), pacchetto(300, 38500, 25500)};
    // 28 bytes, and the packet of 32 that begins alike.
    for (const std::uint32_t tipo : {KEL_TIPO_LAP_2G, KEL_TIPO_TEMPO_PACCHETTO})
        EXPECT_EQ(testo(con_pacchetti(FID_SPEC_LAPTIME_KEL2G, tipo, tutti)),
                  "1: 41000 (2), 300: 38500 (2), 301 in (2)");
}

TEST(LapPackets, OfTheFirstGenerationShareAWordWithSplits) {
    const auto pacchetto = [](std::int32_t ms, unsigned giro, unsigned intermedio) {
        std::vector<std::uint8_t> byte(8);
        scrivi_intero(byte, 0, ms);
        scrivi_intero(byte, 4, static_cast<std::uint16_t>(giro << 12 | intermedio));
        return byte;
    };
    // Four bits of lap number: after 15 comes 0.
    EXPECT_EQ(testo(con_pacchetti(FID_SPEC_LAPTIME_KEL1G, KEL_TIPO_LAP_1G,
                                  {pacchetto(0, 14, 0), pacchetto(17000, 14, 1), pacchetto(40000, 15, 0),
                                   pacchetto(16000, 15, 1), pacchetto(39000, 0, 0), pacchetto(39000, 0, 0)})),
              "15: 40000 (2), 16: 39000 (1), 17 in (2)");
}

}  // namespace
