// Lap times and lap lines as texts.
#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

#include "CLaptimeAndStrings.h"
#include "model/tempi.h"

namespace {

struct Caso {
    int tempo;
    const char* testo;
};

// clang-format off
const Caso kCasi[] = {
    {0,           "0:00.000"},
    {5,           "0:00.005"},
    {999,         "0:00.999"},
    {1000,        "0:01.000"},
    {5000,        "0:05.000"},            // the minutes are not padded
    {59999,       "0:59.999"},
    {60000,       "1:00.000"},
    {83456,       "1:23.456"},
    {600000,      "10:00.000"},
    {3599999,     "59:59.999"},
    {3600000,     "1:00:00"},
    {3660000,     "1:01:00"},             // here they are
    {3661001,     "1:01:01"},
    {3661999,     "1:01:01"},             // the milliseconds are cut
    {3723456,     "1:02:03"},
    {36000000,    "10:00:00"},
    {86399999,    "23:59:59"},
    {2147483647,  "596:31:23"},
    {-1,          "71582:47.295"},        // unsigned from the remainder on
    {-1000,       "71582:46.296"},
    {-83456,      "71581:23.840"},
    {-3600000,    "4294967295:00:00"},
    {-3600001,    "4294967295:71582:47"},
    {INT_MIN,     "4294966700:71551:23"},
};
// clang-format on

TEST(LapTimeText, OfEveryExample) {
    for (const Caso& caso : kCasi) {
        EXPECT_EQ(CLaptimeAndStrings::LapTimeToStringa(caso.tempo), caso.testo) << caso.tempo << " ms";
    }
}

TEST(LapLineText, OfEveryExample) {
    struct Riga {
        int numero, tempo;
        const char* testo;
    };
    // clang-format off
    const Riga righe[] = {
        {0,           83456,   "  0 - 1:23.456"},
        {7,           83456,   "  7 - 1:23.456"},
        {999,         83456,   "999 - 1:23.456"},
        {1000,        83456,   "1000 - 1:23.456"},
        {-1,          83456,   " -1 - 1:23.456"},
        {-99,         83456,   "-99 - 1:23.456"},
        {-100,        83456,   "-100 - 1:23.456"},
        {12,          3723456, " 12 - 1:02:03"},
        {2147483647,  0,       "2147483647 - 0:00.000"},
        {INT_MIN,     -1,      "-2147483648 - 71582:47.295"},
    };
    // clang-format on
    for (const Riga& riga : righe) {
        EXPECT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(riga.numero, riga.tempo), riga.testo);
    }
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
        ASSERT_EQ(CLaptimeAndStrings::LapNumAndTimeToStringa(numero, tempo), modello::rigaGiro(numero, tempo))
            << numero << ", " << tempo << ", seed " << kSeme;
    }
}

}  // namespace
