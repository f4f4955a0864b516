// The unit code table.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <iterator>
#include <set>
#include <string>

namespace {

struct Codice {
    int codice;
    const char* testo;
};

// clang-format off
constexpr Codice attesi[] = {
    {0,  "rpm"},
    {1,  "km/h"},
    {2,  "mph"},
    {3,  "m/s"},
    {4,  "cm/s"},
    {5,  "ft/s"},
    {6,  "#"},
    {7,  "C"},
    {8,  "F"},
    {9,  "kPa"},
    {10, "bar"},
    {11, "psi"},
    {12, "%"},
    {13, "lambda"},
    {14, "g"},
    {15, "m/s2"},
    {16, "V"},
    {17, "%/s"},
    {18, "m"},
    {19, "ft"},
    {20, "deg"},
    {21, "km"},
    {22, "mi"},
    {23, "a/f"},
    {24, "deg/s"},
    {25, "Hz"},
    {26, "kW"},
    {27, "s"},
    {28, "Nm"},
    {29, "l"},
    {30, "mA"},
    {31, "A"},
    {32, "mV"},
};
// clang-format on

TEST(UnitCodeTable, HoldsEveryCell) {
    ASSERT_EQ(std::size(udm_codici), 33u);
    ASSERT_EQ(std::size(attesi), 33u);
    for (std::size_t i = 0; i < std::size(udm_codici); ++i) {
        EXPECT_STREQ(udm_codici[i].testo, attesi[i].testo) << "row " << i;
        EXPECT_EQ(udm_codici[i].codice, attesi[i].codice) << "row " << i;
    }
}

TEST(UnitCodeTable, RowIndexIsTheCode) {
    for (std::size_t i = 0; i < std::size(udm_codici); ++i)
        EXPECT_EQ(udm_codici[i].codice, static_cast<int>(i));
}

TEST(UnitCodeTable, NamesEachUnitOnce) {
    std::set<std::string> unita;
    for (const s_codice_udm& riga : udm_codici)
        EXPECT_TRUE(unita.insert(riga.testo).second) << riga.testo << " stands twice";
}

}  // namespace
