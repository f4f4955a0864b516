// Texts as long as a lap time of minutes that are none: each character counts, not only that it is near a digit or a sign.
#include <CLaptimeAndStrings.h>
#include <gtest/gtest.h>

namespace {

struct Testo {
    const char* testo;
    int millisecondi;
    const char* perche;
};

constexpr Testo testi[] = {
    {"1:23.456", 83456, "a lap time"},
    {"99:59.999", 5999999, "the longest of two places"},
    {"/:23.456", 0, "the character before '0' is no digit: nothing can be read"},
    {"&:23.456", 0, "no digit: nothing can be read"},
    {":1:23.456", 0, "the character behind '9' is no digit: nothing can be read"},
    {"@@@@@@@@", 0, "no digits at all"},
    {"5@@@@@@@@", 18000000, "5 hours, and nothing behind them"},
    // 6566 hours, 666 minutes, and as the text ends, 666 seconds again, modulo 2^32.
    {"6566!666", -2091577776, "no point: hours, minutes and seconds"},
};

TEST(LapTimeReading, OfTextsThatResembleATimeFollowsTheCharacters) {
    for (const Testo& testo : testi)
        EXPECT_EQ(CLaptimeAndStrings::StringaToLapTime(testo.testo), testo.millisecondi)
            << '"' << testo.testo << "\": " << testo.perche;
}

}  // namespace
