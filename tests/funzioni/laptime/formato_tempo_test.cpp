// Lap times and lap lines as texts.
#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

#include "CLaptimeAndStrings.h"
#include "model/tempi.h"

namespace {

// More cases of each: tests/golden/tempi_scrittura.txt and righe_scrittura.txt.

TEST(LapTimeText, BelowOneHourShowsMinutesSecondsAndThousandths) {
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(83456), "1:23.456");
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(5000), "0:05.000") << "the minutes are not padded";
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(3599999), "59:59.999");
}

TEST(LapTimeText, FromOneHourOnShowsHoursAndCutsTheMilliseconds) {
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(3600000), "1:00:00");
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(3661999), "1:01:01");
}

TEST(LapTimeText, OfANegativeTimeIsUnsignedFromTheRemainderOn) {
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(-1), "71582:47.295");
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(-3600001), "4294967295:71582:47");
    EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(INT_MIN), "4294966700:71551:23");
}

TEST(LapLineText, IsTheNumberInThreePlacesAndTheTime) {
    EXPECT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(7, 83456), "  7 - 1:23.456");
    EXPECT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(1000, 83456), "1000 - 1:23.456") << "or in more";
    EXPECT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(-1, 3723456), " -1 - 1:02:03");
}

TEST(LapLineText, PutsTheTimeOfLapsUpTo999AtPositionSix) {
    for (int numero = 0; numero <= 999; ++numero) {
        const std::string riga = CLaptimeAndStrings::LapNumAndTimeToStringa(numero, 83456);
        ASSERT_EQ(riga.substr(6), "1:23.456") << numero;
        ASSERT_EQ(riga.substr(3, 3), " - ") << numero;
    }
}

TEST(LapTimeText, AgreesWithAStreamAtEveryChangeOfForm) {
    for (int bordo : {0, 1000, 60000, 600000, 3600000, 36000000, 360000000, INT_MAX - 5, INT_MIN + 5}) {
        for (int scarto = -5; scarto <= 5; ++scarto) {
            for (int segno : {1, -1}) {
                const int tempo = static_cast<int>(static_cast<unsigned>(bordo) * static_cast<unsigned>(segno) +
                                                   static_cast<unsigned>(scarto));
                ASSERT_EQ(CLaptimeAndStrings::LapTimeToStringa(tempo), modello::tempo(tempo)) << tempo;
            }
        }
    }
}

TEST(LapTimeText, AgreesWithAStreamOnRandomTimes) {
    constexpr unsigned kSeme = 83456;
    std::mt19937 caso(kSeme);
    for (int i = 0; i < 60000; ++i) {
        const int tempo = static_cast<int>(static_cast<std::uint32_t>(caso())) >> caso() % 32;
        const int numero = static_cast<int>(static_cast<std::uint32_t>(caso())) >> caso() % 32;
        ASSERT_EQ(CLaptimeAndStrings::LapTimeToStringa(tempo), modello::tempo(tempo)) << tempo << ", seed " << kSeme;
        ASSERT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(numero, tempo), modello::riga_giro(numero, tempo))
            << numero << ", " << tempo << ", seed " << kSeme;
    }
}

}  // namespace
