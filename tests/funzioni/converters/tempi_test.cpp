// Times as texts: lap times (sample type 12), time differences (24) and the lap packets (7 and 22).
#include <gtest/gtest.h>

#include <climits>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

const kel_funpos GIRO = kelFidComponi(FID_PHI_TIME, FID_OBJ_LAP, 0);

std::string testo(unsigned tipo, std::int32_t ms, std::uint32_t larghezza, std::uint32_t decimali) {
    Impostazione come;
    come.fid_canale = GIRO;
    come.fid = GIRO;
    come.larghezza = larghezza;
    come.decimali = decimali;
    s_kel_converter conv = convertitore(tipo, come);
    const Lettura letto = leggi(conv, le_i32(ms));
    EXPECT_EQ(letto.ha_testo, 1);
    EXPECT_TRUE(letto.pulito);
    return letto.testo;
}

struct Caso {
    std::int32_t ms;
    const char* testo;
};

TEST(LapTimeSample, ShowsHundredthsAndFromOneHourSeconds) {
    // clang-format off
    const Caso casi[] = {
        {0,          " 0:00.00"},
        {9,          " 0:00.00"},      // cut, not rounded
        {10,         " 0:00.01"},
        {1000,       " 0:01.00"},
        {83456,      " 1:23.45"},
        {3599999,    "59:59.99"},
        {3600000,    " 1:00:00"},
        {3723999,    " 1:02:03"},
        {359999999,  "99:59:59"},
        {360000000,  " 0:00:00"},      // hours modulo 100
        {2147483647, "96:31:23"},      // 596 hours
        {-1230,      " 0:-1.-23"},     // every part carries the sign
        {-3723000,   "-62:-3.00"},     // no hours below zero
    };
    // clang-format on
    for (const Caso& caso : casi) {
        for (std::uint32_t decimali : {0u, 2u, 3u, 7u}) {
            EXPECT_EQ(testo(12, caso.ms, 8, decimali), caso.testo) << caso.ms << " ms, decimals " << decimali;
        }
    }
}

TEST(LapTimeSample, ShowsTenthsWithOneDecimal) {
    // clang-format off
    const Caso casi[] = {
        {0,          " 0:00.0"},
        {99,         " 0:00.0"},
        {100,        " 0:00.1"},
        {3600000,    " 1:00:00"},
        {360000000,  "100:00:00"},     // hours not modulo 100 in this form
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(testo(12, caso.ms, 8, 1), caso.testo) << caso.ms << " ms";
    }
}

TEST(LapTimeSample, CompactFormFitsWhatItCan) {
    // clang-format off
    const Caso casi[] = {
        {0,          "0:00.00"},
        {83456,      "1:23.45"},
        {599999,     "9:59.99"},
        {3599999,    "59:59.9"},
        {3600000,    "1:00.00"},
        {3723000,    "1:02.03"},       // hours, minutes and seconds, with a point before the seconds
        {36000000,   " 10:00"},
        {359999999,  " 99:59"},
        {360000000,  "100:00"},
        {-754321,    "-12:-34.-32"},   // minutes are not above 9
    };
    // clang-format on
    for (const Caso& caso : casi) {
        for (std::uint32_t decimali : {0u, 2u, 3u}) {
            EXPECT_EQ(testo(12, caso.ms, 5, decimali), caso.testo) << caso.ms << " ms, decimals " << decimali;
        }
    }
}

TEST(LapTimeSample, CompactFormShowsTenthsWithOneDecimal) {
    // clang-format off
    const Caso casi[] = {
        {0,          " 0:00.0"},
        {83456,      " 1:23.4"},
        {754321,     "12:34.3"},
        {2147483647, "596:31"},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(testo(12, caso.ms, 5, 1), caso.testo) << caso.ms << " ms";
    }
}

TEST(LapTimeSample, OnlyWidthFiveIsCompact) {
    for (std::uint32_t larghezza : {0u, 4u, 6u, 7u, 31u, 40u}) {
        EXPECT_EQ(testo(12, 3723000, larghezza, 2), " 1:02:03") << "width " << larghezza;
        EXPECT_EQ(testo(24, -1230, larghezza, 2), " - 1.23") << "width " << larghezza;
    }
}

TEST(LapTimeSample, ChoosesTheFormAtEveryRead) {
    s_kel_converter conv = convertitore(12, {});
    EXPECT_EQ(leggi(conv, le_i32(83456)).testo, " 1:23.45");
    conv.larghezza = 5;
    EXPECT_EQ(leggi(conv, le_i32(83456)).testo, "1:23.45");
    conv.decimali = 1;
    EXPECT_EQ(leggi(conv, le_i32(83456)).testo, " 1:23.4");
}

TEST(LapTimeSample, HasReservedValuesButNoStatusText) {
    for (unsigned tipo : {12u, 24u}) {
        s_kel_converter conv = convertitore(tipo, {});
        EXPECT_EQ(conv.testo_stato, nullptr);
        EXPECT_EQ(leggi(conv, le32(0xFFFFCFFF)).stato, 4u);
        EXPECT_EQ(leggi(conv, le32(0xFFFFCFFE)).stato, 2u);
        EXPECT_EQ(leggi(conv, le32(0xFFFFCFFD)).stato, 8u);
        EXPECT_EQ(leggi(conv, le32(0xFFFFCFFF)).valore, 0.0f);
        EXPECT_EQ(leggi(conv, le32(83456)).valore, 83456.0f);
        EXPECT_EQ(leggi(conv, le_i32(-5)).valore, -5.0f);
    }
    // -12289 ms as a text: the split looks at the number alone.
    EXPECT_EQ(testo(12, -12289, 8, 2), " 0:-12.-28");
    EXPECT_EQ(testo(24, -12289, 8, 2), " -12.28");
}

TEST(LapTimeSample, ValueIsLinearEvenWithAReciprocalUnit) {
    for (unsigned tipo : {12u, 24u}) {
        Impostazione come;
        come.dati = &RECIPROCA;
        s_kel_converter conv = convertitore(tipo, come);
        EXPECT_EQ(leggi(conv, le32(4)).valore, 13.0f);
        EXPECT_EQ(leggi(conv, le32(0)).valore, 5.0f);
    }
}

TEST(LapTimeSample, TextIgnoresTheUnit) {
    Impostazione come;
    come.dati = &DOPPIO_PIU_CINQUE;
    s_kel_converter conv = convertitore(12, come);
    EXPECT_EQ(leggi(conv, le_i32(83456)).testo, " 1:23.45");
}

TEST(TimeDifference, ShowsSignSecondsAndHundredths) {
    // clang-format off
    const Caso casi[] = {
        {0,          " + 0.00"},
        {9,          " + 0.00"},
        {1230,       " + 1.23"},
        {61230,      " + 1.23"},       // the minute is dropped
        {3661230,    " + 1.23"},
        {-10,        " - 0.01"},
        {-12340,     " -12.34"},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        for (std::uint32_t decimali : {0u, 1u, 2u, 3u}) {
            EXPECT_EQ(testo(24, caso.ms, 8, decimali), caso.testo) << caso.ms << " ms";
        }
    }
}

TEST(TimeDifference, CompactFormLeavesTheBlankAndThePlusOut) {
    // clang-format off
    const Caso casi[] = {
        {0,      "  0.00"},
        {1230,   "  1.23"},
        {12340,  " 12.34"},
        {61230,  "  1.23"},
        {INT_MIN, "-23.64"},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(testo(24, caso.ms, 5, 2), caso.testo) << caso.ms << " ms";
        EXPECT_EQ(testo(24, caso.ms, 5, 1), caso.testo) << caso.ms << " ms";
    }
}

TEST(LapPacket, ShowsItsTimeWithHundredthsInThreePlaces) {
    // clang-format off
    const Caso casi[] = {
        {0,          " 0:00.000"},
        {83456,      " 1:23.450"},
        {754321,     "12:34.320"},
        {3723000,    " 1:02:03"},
        {2147483647, "96:31:23"},
        {INT_MIN,    "-35791:-23.-640"},
    };
    // clang-format on
    const std::pair<unsigned, std::size_t> pacchetti[] = {{7, 28}, {22, 32}};
    for (const auto& [tipo, byte] : pacchetti) {
        for (const Caso& caso : casi) {
            for (std::uint32_t larghezza : {5u, 8u}) {
                Byte pacchetto(byte, 0xAA);
                metti(pacchetto, 4, le_i32(caso.ms));
                Impostazione come;
                come.fid_canale = PACCHETTO_GIRO2_G;
                come.fid = PACCHETTO_GIRO2_G;
                come.larghezza = larghezza;
                come.decimali = 1;
                s_kel_converter conv = convertitore(tipo, come);
                const Lettura letto = leggi(conv, pacchetto);
                EXPECT_EQ(letto.testo, caso.testo) << caso.ms << " ms, sample type " << tipo;
                EXPECT_EQ(letto.ha_valore, 1);
                EXPECT_EQ(letto.valore, 0.0f);
                EXPECT_EQ(letto.stato, 0u);
            }
        }
    }
}

}  // namespace
