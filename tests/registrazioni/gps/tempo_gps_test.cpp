// GPS time and UTC: dates that are known, every leap second, and the list of them that the machine has.
#include "gps/tempo_gps.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using namespace kel_registrazioni;

std::string utc(int settimana, std::uint32_t ms) {
    const auto ora = utc_da_gps(settimana, ms);
    return ora ? ora->testo() : "";
}

TEST(TempoGps, WeekAndTimeOfWeekGiveUtc) {
    EXPECT_EQ(utc(1, 0), "1980-01-13T00:00:00.000Z") << "a week after the beginning there were no leap seconds";
    EXPECT_EQ(utc(1024, 0), "1999-08-21T23:59:47.000Z") << "the first roll-over of the week: 13 seconds";
    EXPECT_EQ(utc(2048, 0), "2019-04-06T23:59:42.000Z") << "the second: 18 seconds";
    EXPECT_EQ(utc(2307, 400463250), "2024-03-28T15:14:05.250Z");
    EXPECT_EQ(utc(2307, 604799999), "2024-03-30T23:59:41.999Z") << "the week's last millisecond";
}

TEST(TempoGps, WithoutAWeekThereIsNoUtc) {
    EXPECT_EQ(utc(0, 1000), "");
    EXPECT_EQ(utc(-1, 1000), "");
    EXPECT_EQ(utc(2307, 604800000), "") << "behind the end of a week";
    EXPECT_NE(utc(32767, 0), "") << "the greatest that the message holds";
}

// The leap second at the end of 2016 is 23:59:60: week 1930, 17 and then 18 seconds behind.
TEST(TempoGps, LeapSecondIsTheSixtieth) {
    EXPECT_EQ(utc(1930, 16000), "2016-12-31T23:59:59.000Z");
    EXPECT_EQ(utc(1930, 17000), "2016-12-31T23:59:60.000Z");
    EXPECT_EQ(utc(1930, 17999), "2016-12-31T23:59:60.999Z");
    EXPECT_EQ(utc(1930, 18000), "2017-01-01T00:00:00.000Z");
}

// The list of Debian's tzdata, which follows Bulletin C: seconds since 1900, and TAI less UTC.
TEST(TempoGps, LeapSecondsAreThoseOfTheMachinesList) {
    constexpr std::int64_t GPS_DA_1900 = 2524953600;  // 6 January 1980
    constexpr int TAI_MENO_GPS = 19;
    std::ifstream file("/usr/share/zoneinfo/leap-seconds.list");
    if (!file)
        GTEST_SKIP() << "no list of leap seconds on this machine; Debian's package tzdata has it";
    int righe = 0;
    for (std::string riga; std::getline(file, riga);) {
        std::int64_t da = 0;
        int tai = 0;
        if (riga.starts_with('#') || !(std::istringstream(riga) >> da >> tai) || da < GPS_DA_1900)
            continue;
        ++righe;
        const std::int64_t gps_s = da - GPS_DA_1900 + tai - TAI_MENO_GPS;
        EXPECT_EQ(secondi_intercalari(gps_s), tai - TAI_MENO_GPS) << riga;
        EXPECT_EQ(secondi_intercalari(gps_s - 1), tai - TAI_MENO_GPS - 1) << riga;
        EXPECT_EQ(secondi_intercalari(gps_s + 1), tai - TAI_MENO_GPS) << riga;
    }
    EXPECT_GE(righe, 18);
    EXPECT_EQ(secondi_intercalari(std::int64_t{1} << 40), righe) << "a row is missing in the table";
}

TEST(TempoGps, DateOfAMessageIsRoundedToItsMilliseconds) {
    const auto testo = [](std::int32_t nano, unsigned secondo = 5) {
        const auto ora = utc_da_data(2024, 2, 29, 23, 59, secondo, nano);
        return ora ? ora->testo() : "";
    };
    EXPECT_EQ(testo(0), "2024-02-29T23:59:05.000Z");
    EXPECT_EQ(testo(250000400), "2024-02-29T23:59:05.250Z");
    EXPECT_EQ(testo(999499999), "2024-02-29T23:59:05.999Z");
    EXPECT_EQ(testo(-400000), "2024-02-29T23:59:05.000Z");
    EXPECT_EQ(testo(-50000000), "2024-02-29T23:59:04.950Z");
    EXPECT_EQ(testo(999600000, 59), "2024-03-01T00:00:00.000Z");
    EXPECT_EQ(testo(-1000000, 0), "2024-02-29T23:58:59.999Z");
    EXPECT_EQ(testo(0, 60), "2024-02-29T23:59:60.000Z");
}

TEST(TempoGps, WhatIsNoDateIsNoTime) {
    EXPECT_FALSE(utc_da_data(2023, 2, 29, 0, 0, 0, 0)) << "no leap year";
    EXPECT_FALSE(utc_da_data(2024, 0, 1, 0, 0, 0, 0));
    EXPECT_FALSE(utc_da_data(2024, 13, 1, 0, 0, 0, 0));
    EXPECT_FALSE(utc_da_data(2024, 1, 1, 24, 0, 0, 0));
    EXPECT_FALSE(utc_da_data(2024, 1, 1, 0, 60, 0, 0));
    EXPECT_FALSE(utc_da_data(2024, 1, 1, 0, 0, 61, 0));
    EXPECT_FALSE(utc_da_data(2024, 1, 1, 0, 0, 0, 1000000001));
    EXPECT_FALSE(utc_da_data(2024, 1, 1, 0, 0, 0, -1000000001));
    EXPECT_TRUE(utc_da_data(2024, 1, 1, 0, 0, 0, 1000000000)) << "a second more is one";
    EXPECT_TRUE(utc_da_data(2024, 1, 1, 0, 0, 0, -1000000000));
    EXPECT_FALSE(utc_da_data(1979, 12, 31, 0, 0, 0, 0)) << "there was no GPS";
    EXPECT_FALSE(utc_da_data(1980, 1, 6, 0, 0, 0, -50000000)) << "nor before its first second";
    EXPECT_TRUE(utc_da_data(1980, 1, 6, 0, 0, 0, -400000)) << "which this is";
    EXPECT_FALSE(utc_da_data(0, 1, 1, 0, 0, 0, 0)) << "a receiver that does not know yet";
}

TEST(TempoGps, WeekIsFoundFromUtcAndTheTimeOfWeek) {
    for (const auto& [settimana, ms] : {std::pair{2307, 400463000u}, std::pair{2307, 0u}, std::pair{2307, 604799999u},
                                        std::pair{1, 0u}, std::pair{1930, 17000u}, std::pair{32767, 5u}})
        EXPECT_EQ(settimana_gps(*utc_da_gps(settimana, ms), ms), settimana) << ms;
}

}  // namespace
