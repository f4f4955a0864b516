// Lap times and lap lines read back from texts.
#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

#include "CLaptimeAndStrings.h"
#include "model/tempi.h"

namespace {

int leggi(const std::string& testo) {
    return CLaptimeAndStrings::StringaToLapTime(testo);
}

struct Caso {
    const char* testo;
    int tempo;
};

// More cases of each: tests/golden/tempi_lettura.txt and righe_lettura.txt.

TEST(LapTimeReading, WithAPointIsMinutesSecondsAndThousandths) {
    EXPECT_EQ(leggi("1:23.456"), 83456);
    EXPECT_EQ(leggi("1:23.4"), 83004) << "thousandths as written";
    EXPECT_EQ(leggi("0:75.000"), 75000) << "ranges are not checked";
    EXPECT_EQ(leggi("1:23.4567"), 87567) << "a longer text of the usual shape's first characters";
    EXPECT_EQ(leggi("1:02:03.5"), 62003) << "a point anywhere";
}

TEST(LapTimeReading, WithoutAPointIsHoursMinutesAndSeconds) {
    EXPECT_EQ(leggi("1:02:03"), 3723000);
    EXPECT_EQ(leggi("1-23x456"), 5436000) << "any one character separates";
}

TEST(LapTimeReading, RepeatsTheLastFieldForThoseMissing) {
    EXPECT_EQ(leggi("1:23."), 83023);
    EXPECT_EQ(leggi("1:23"), 5003000) << "no point: hours, minutes, and the minutes again";
    EXPECT_EQ(leggi("83"), 303863000) << "one number for all three fields";
}

TEST(LapTimeReading, OfAnEmptyOrBlankTextIsZero) {
    for (const char* testo : {"", " ", "      ", "\t", "\n\v\f\r "}) {
        EXPECT_EQ(leggi(testo), 0) << '"' << testo << '"';
    }
}

TEST(LapTimeReading, FieldWithoutDigitsIsZeroAndEndsTheReading) {
    // clang-format off
    const Caso casi[] = {
        {"x",          0},
        {"-",          0},
        {"+",          0},
        {":",          0},
        {"1:-.5",      60000},
        {"2:3.x",      123000},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(leggi(caso.testo), caso.tempo) << '"' << caso.testo << '"';
    }
}

TEST(LapTimeReading, FieldAboveThirtyTwoBitsIsTheLargestAndEndsTheReading) {
    // 4294967295 is -1 modulo 2^32.
    // clang-format off
    const Caso casi[] = {
        {"4294967295.0.0",    -60000},
        {"4294967296.5.6",    -60000 - 1000 - 1},        // the later fields repeat it
        {"99999999999999999999999999:1.0", -60000 - 1000 - 1},
        {"0:4294967296.7",    -1000 - 1},
        {"0:0.4294967296",    -1},
        {"4294967296:1:1",    -3600000 - 60000 - 1000},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(leggi(caso.testo), caso.tempo) << '"' << caso.testo << '"';
    }
}

TEST(LapTimeReading, SignsAreTakenModulo) {
    // clang-format off
    const Caso casi[] = {
        {"+1:+23.+456",       83456},
        {"-1.-1.-1",          -61001},
        {"1:-1.0",            59000},
        {"0:00.-1",           -1},
        {"-1:00:00",          -3600000},
        {"+-1.0.0",           0},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(leggi(caso.testo), caso.tempo) << '"' << caso.testo << '"';
    }
}

TEST(LapTimeReading, SumsWrapModulo) {
    EXPECT_EQ(leggi("71582:47.295"), -1);
    EXPECT_EQ(leggi("4294967295:00:00"), -3600000);
    EXPECT_EQ(leggi("1193:02:47"), static_cast<int>(1193u * 3600000u + 2u * 60000u + 47u * 1000u));
}

TEST(LapTimeReading, BlanksBeforeFieldsAreSkippedButASeparatorIsOneCharacter) {
    // clang-format off
    const Caso casi[] = {
        {"  1:  23.  456", 83456},
        {"1 23.456",       83456},     // the blank is the separator
        {"1 :23.456",      60000},     // the blank is the separator, and ":" no digit
        {"1\n23\t456.",    83456},
        {"1:\n\t23.456",   83456},
    };
    // clang-format on
    for (const Caso& caso : casi) {
        EXPECT_EQ(leggi(caso.testo), caso.tempo) << '"' << caso.testo << '"';
    }
}

TEST(LapTimeReading, OtherBasesAndGroupedDigitsAreNotRead) {
    EXPECT_EQ(leggi("0x10:20.30"), 10020);  // 0, "x", 10, ":", 20
    EXPECT_EQ(leggi("010:00.000"), 600000);
    EXPECT_EQ(leggi("1,234.5"), 294005);  // 1, ",", 234, ".", 5
    EXPECT_EQ(leggi("1e3.0"), 63000);     // 1, "e", 3, ".", 0
}

TEST(LapTimeReading, BytesOfAnyValueSeparate) {
    using namespace std::string_literals;
    EXPECT_EQ(leggi("1\0"s + "23.456"), 83456);
    EXPECT_EQ(leggi("1\xFF"s + "23\x80"s + "456."), 83456);
    EXPECT_EQ(leggi("\0"s + "1:23.456"), 0);
    EXPECT_EQ(leggi("1:23\0."s), 60000 + 23000 + 0) << "the field after the NUL is the point, which is no digit";
}

TEST(LapTimeReading, RoundTripsEveryShortTime) {
    for (int tempo = 0; tempo < 3600000; tempo += 7) {
        ASSERT_EQ(leggi(CLaptimeAndStrings::LapTimeToStringa(tempo)), tempo);
    }
    for (int tempo : {0, 1, 999, 1000, 59999, 60000, 3599999}) {
        EXPECT_EQ(leggi(CLaptimeAndStrings::LapTimeToStringa(tempo)), tempo);
    }
}

TEST(LapTimeReading, RoundTripsLongTimesToTheWholeSecond) {
    for (int tempo = 3600000; tempo < 2146000000; tempo += 999983) {
        ASSERT_EQ(leggi(CLaptimeAndStrings::LapTimeToStringa(tempo)), tempo / 1000 * 1000);
    }
}

// --- lap lines ------------------------------------------------------------------------------------------------------

void leggi_riga(const std::string& riga, int numero_atteso, int tempo_atteso) {
    int numero = -77;
    int tempo = -77;
    CLaptimeAndStrings::StringaToLapNumAndTime(riga, numero, tempo);
    EXPECT_EQ(numero, numero_atteso) << '"' << riga << '"';
    EXPECT_EQ(tempo, tempo_atteso) << '"' << riga << '"';
}

TEST(LapLineReading, TakesTheTimeFromTheSeventhCharacterOn) {
    leggi_riga("  7 - 1:23.456", 7, 83456);
    leggi_riga("12345 - 1:23.456", 12345, 0);  // the time begins with the hyphen
    leggi_riga("123456", 123456, 0);           // six characters: an empty time
}

TEST(LapLineReading, TakesTheLargestOrSmallestNumberForOneBeyond) {
    leggi_riga("99999999999 1:2.3", INT_MAX, 1704973706);
    leggi_riga("-9999999999 1:2.3", INT_MIN, 1704973706);
}

TEST(LapLineReading, OfALineWithoutANumberIsZero) {
    leggi_riga("x     1:23.456", 0, 83456);
    leggi_riga("-      1:00.000", 0, 60000);
}

TEST(LapLineReading, OfATextBelowSixCharactersThrowsAfterTheNumber) {
    struct Riga {
        const char* testo;
        int numero;
    };
    for (const Riga& riga : {Riga{"  7", 7}, Riga{"", 0}, Riga{"12345", 12345}, Riga{"  -12", -12}, Riga{"x", 0}}) {
        int numero = -77;
        int tempo = -77;
        try {
            CLaptimeAndStrings::StringaToLapNumAndTime(riga.testo, numero, tempo);
            ADD_FAILURE() << "no exception for \"" << riga.testo << '"';
        } catch (const std::out_of_range& errore) {
            EXPECT_STREQ(errore.what(), "basic_string::substr");
        }
        EXPECT_EQ(numero, riga.numero) << "the number is stored first";
        EXPECT_EQ(tempo, -77) << "the time is left alone";
    }
}

TEST(LapLineReading, RoundTripsLapsUpTo999) {
    for (int numero = 0; numero <= 999; ++numero) {
        const int giro = 60000 + numero * 3491;
        const std::string riga = CLaptimeAndStrings::LapNumAndTimeToStringa(numero, giro);
        int letto = -77;
        int tempo = -77;
        CLaptimeAndStrings::StringaToLapNumAndTime(riga, letto, tempo);
        ASSERT_EQ(letto, numero);
        ASSERT_EQ(tempo, giro < 3600000 ? giro : giro / 1000 * 1000);
    }
}

// --- against a stream -----------------------------------------------------------------------------------------------

void confronta(const std::string& testo, unsigned seme) {
    const auto dettaglio = [&] {
        std::string cifre;
        for (char byte : testo) {
            cifre += std::to_string(static_cast<unsigned char>(byte)) + ' ';
        }
        return "bytes " + cifre + "of \"" + testo + "\", seed " + std::to_string(seme);
    };
    ASSERT_EQ(CLaptimeAndStrings::StringaToLapTime(testo), modello::leggi_tempo(testo)) << dettaglio();
    int numero = -77;
    int tempo = -77;
    bool lanciata = false;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(testo, numero, tempo);
    } catch (const std::out_of_range&) {
        lanciata = true;
    }
    const modello::Giro giro = modello::leggi_giro(testo);
    ASSERT_EQ(numero, giro.numero) << dettaglio();
    ASSERT_EQ(lanciata, !giro.tempo) << dettaglio();
    ASSERT_EQ(tempo, giro.tempo.value_or(-77)) << dettaglio();
}

TEST(LapTimeReading, AgreesWithAStreamOnRandomTexts) {
    constexpr unsigned kSeme = 123456;
    std::mt19937 caso(kSeme);
    const std::string alfabeti[] = {"0123456789:.", "0123456789:.-+ x", "01:. -", "9876543210", " \t\n\v\f\r1:.",
                                    "-+12.",        "0123456789,':.eE"};
    for (int i = 0; i < 60000; ++i) {
        const std::string& alfabeto = alfabeti[caso() % std::size(alfabeti)];
        std::string testo(caso() % 24, ' ');
        for (char& carattere : testo) {
            carattere = alfabeto[caso() % alfabeto.size()];
        }
        confronta(testo, kSeme);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(LapTimeReading, AgreesWithAStreamOnRandomBytes) {
    constexpr unsigned kSeme = 654321;
    std::mt19937 caso(kSeme);
    for (int i = 0; i < 30000; ++i) {
        std::string testo(caso() % 40, ' ');
        for (char& carattere : testo) {
            carattere = static_cast<char>(caso() % 256);
        }
        confronta(testo, kSeme);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(LapTimeReading, AgreesWithAStreamOnDamagedLapLines) {
    constexpr unsigned kSeme = 83456;
    std::mt19937 caso(kSeme);
    const char rubato[] =
        " \t\n-+:.x\0\xA0"
        "09";
    for (int i = 0; i < 30000; ++i) {
        const int numero = static_cast<int>(static_cast<std::uint32_t>(caso())) >> caso() % 32;
        const int giro = static_cast<int>(static_cast<std::uint32_t>(caso())) >> caso() % 32;
        std::string riga = modello::riga_giro(numero, giro);
        for (unsigned colpi = static_cast<unsigned>(caso() % 4); colpi > 0; --colpi) {
            const std::size_t posto = caso() % (riga.size() + 1);
            const char carattere = rubato[caso() % (sizeof rubato - 1)];
            switch (caso() % 3) {
                case 0:
                    riga.insert(riga.begin() + static_cast<std::ptrdiff_t>(posto), carattere);
                    break;
                case 1:
                    riga.resize(posto);
                    break;
                default:
                    if (posto < riga.size()) {
                        riga[posto] = carattere;
                    }
            }
        }
        confronta(riga, kSeme);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(LapTimeReading, AgreesWithAStreamOnVeryLongNumbers) {
    for (std::size_t cifre : {9u, 10u, 11u, 20u, 100u, 100000u}) {
        for (const char* segno : {"", "-", "+"}) {
            for (char cifra : {'0', '4', '9'}) {
                confronta(segno + std::string(cifre, cifra) + ":1.2", 0);
                confronta("1:" + (segno + std::string(cifre, cifra)) + ".2", 0);
                confronta(segno + ("4294967295" + std::string(cifre - 9, '0')), 0);
                confronta(segno + (std::string(cifre, '0') + "4294967295:1:2"), 0);
                confronta(segno + (std::string(cifre, '0') + "4294967296:1:2"), 0);
                confronta(segno + (std::string(cifre, '0') + "2147483647:1:2"), 0);
                confronta(segno + (std::string(cifre, '0') + "2147483648:1:2"), 0);
                confronta(segno + (std::string(cifre, '0') + "2147483649:1:2"), 0);
            }
        }
    }
}

}  // namespace
