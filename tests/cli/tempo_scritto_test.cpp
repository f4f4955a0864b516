// Lap times as people write them, and what is said of those that are read otherwise.
#include "domain/tempo_scritto.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "CLaptimeAndStrings.h"

namespace {

using namespace kel::strumento;

TEST(TempoScritto, MeansWhatPeopleMean) {
    const struct {
        const char* testo;
        std::int64_t millisecondi;
    } tempi[] = {
        {"83.456", 83456},       {"83", 83000},         {"1:23", 83000},       {"1:23.4", 83400},
        {"1:23.45", 83450},      {"1:23.456", 83456},   {"1:23.4567", 83457},  {"1:23.4564", 83456},
        {"1:23,456", 83456},     {"1:23:456", 83456},   {"1'23.456", 83456},   {"1'23\"456", 83456},
        {"1'23''456", 83456},    {"1.23.456", 83456},   {"1:02:03", 3723000},  {"1:02:03.5", 3723500},
        {"0:75.000", 75000},     {"-1:30.000", -90000}, {" 1:23.456 ", 83456}, {"1:23.", 83000},
        {"59:59.9996", 3600000},
    };
    for (const auto& tempo : tempi)
        EXPECT_EQ(tempo_inteso(tempo.testo), tempo.millisecondi) << tempo.testo;
}

TEST(TempoScritto, IsNoneOfWhatPeopleDoNotWrite) {
    for (const char* testo : {"", "abc", "1-23x456", ":", "1:2:3:4:5", "1::::2", "--1", "1 23.456", ".5", "1e3",
                              "12345678901:00.000", "\xFF"})
        EXPECT_EQ(tempo_inteso(testo), std::nullopt) << testo;
}

TEST(TempoScritto, NothingIsSaidOfTheLibrarysOwnTexts) {
    std::mt19937 caso(11);
    for (int giro = 0; giro < 100000; ++giro) {
        const int ms = static_cast<int>(caso() % 3600000);
        const std::string testo = CLaptimeAndStrings::LapTimeToStringa(ms);
        EXPECT_EQ(tempo_inteso(testo), ms) << testo;
        EXPECT_EQ(avviso_lettura(testo, CLaptimeAndStrings::StringaToLapTime(testo)), std::nullopt) << testo;
        EXPECT_EQ(avviso_scrittura(ms), std::nullopt);
        const int numero = static_cast<int>(caso() % 1000);
        const std::string riga = CLaptimeAndStrings::LapNumAndTimeToStringa(numero, ms);
        EXPECT_EQ(avviso_riga(riga, numero, ms), std::nullopt) << riga;
        const int ore = static_cast<int>(3600000 + caso() % 100000 * 1000);
        const std::string lungo = CLaptimeAndStrings::LapTimeToStringa(ore);
        EXPECT_EQ(avviso_lettura(lungo, CLaptimeAndStrings::StringaToLapTime(lungo)), std::nullopt) << lungo;
        EXPECT_EQ(avviso_scrittura(ore), std::nullopt);
    }
}

// What is proposed in the place of a time is read as that time.
TEST(TempoScritto, WhatIsProposedIsRead) {
    std::mt19937 caso(12);
    const std::string segni = "0123456789:.,'\"- ";
    int detti = 0;
    for (int giro = 0; giro < 200000; ++giro) {
        std::string testo;
        for (std::size_t n = caso() % 10; n > 0; --n)
            testo += segni[caso() % segni.size()];
        const int letto = CLaptimeAndStrings::StringaToLapTime(testo);
        const auto avviso = avviso_lettura(testo, letto);
        const std::size_t scrivi = avviso ? avviso->find(", write '") : std::string::npos;
        if (scrivi == std::string::npos)
            continue;
        ++detti;
        const std::string proposto = avviso->substr(scrivi + 9, avviso->size() - scrivi - 10);
        EXPECT_EQ(CLaptimeAndStrings::StringaToLapTime(proposto), tempo_inteso(testo)) << testo << ": " << *avviso;
    }
    EXPECT_GT(detti, 1000);
}

TEST(TempoScritto, SaysWhatATextLeavesOut) {
    EXPECT_NE(avviso_scrittura(3600001), std::nullopt);
    EXPECT_NE(avviso_scrittura(-1), std::nullopt);
    EXPECT_EQ(avviso_scrittura(0), std::nullopt);
}

TEST(TempoScritto, LinesOfALapList) {
    EXPECT_EQ(avviso_riga("  7 - 1:23.456", 7, 83456), std::nullopt);
    EXPECT_EQ(avviso_riga("1000 - 1:23.456", 1000, 83456), std::nullopt);
    EXPECT_NE(avviso_riga("12345 - 1:23.456", 12345, 0), std::nullopt);
    EXPECT_NE(avviso_riga("  7 - 1:23.4", 7, 83004), std::nullopt);
    EXPECT_NE(avviso_riga("abcdefgh", 0, 0), std::nullopt);
}

}  // namespace
