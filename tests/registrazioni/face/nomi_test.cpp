// Names and units of columns through the C face.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "kelregistrazioni.h"

namespace {

std::string chiave(const char* testo) {
    std::array<char, 64> uscita{};
    uscita.fill('x');
    const std::size_t quanti = kelRegChiave(testo, uscita.data(), uscita.size());
    EXPECT_EQ(std::strlen(uscita.data()), quanti) << testo;
    return uscita.data();
}

TEST(Names, OfProgramsHaveSmallLettersDigitsAndOneUnderscoreBetween) {
    EXPECT_EQ(chiave("Lambda 1 (L)"), "lambda_1_l");
    EXPECT_EQ(chiave("AZ az 09"), "az_az_09");
    EXPECT_EQ(chiave("@[`{/:"), "") << "the neighbours of letters and digits";
    EXPECT_EQ(chiave("  a--b  "), "a_b") << "none at the ends";
    EXPECT_EQ(chiave("_a__b_"), "a_b");
    EXPECT_EQ(chiave("caff\xC3\xA8 1"), "caff_1");
    EXPECT_EQ(chiave(""), "");
}

TEST(Names, AreCutToTheRoomThatThereIs) {
    std::array<char, 5> uscita{};
    uscita.fill('x');
    EXPECT_EQ(kelRegChiave("Speed 1", uscita.data(), 4), 7u) << "how many there are, not how many there was room for";
    EXPECT_STREQ(uscita.data(), "spe");
    EXPECT_EQ(uscita[4], 'x');
    EXPECT_EQ(kelRegChiave("Speed 1", uscita.data(), 1), 7u);
    EXPECT_STREQ(uscita.data(), "");
    EXPECT_EQ(uscita[1], 'p');
    EXPECT_EQ(kelRegChiave("Speed 1", nullptr, 0), 7u);
    EXPECT_EQ(kelRegChiave("abc", uscita.data(), 4), 3u);
    EXPECT_STREQ(uscita.data(), "abc");
}

TEST(Names, UnitsAreNoneWhereTheCatalogueHasAWordInstead) {
    for (const char* nessuna : {"", "#", "gear", "Pckt", "Date", "Coord"})
        EXPECT_STREQ(kelRegMisura(nessuna), "") << nessuna;
    EXPECT_STREQ(kelRegMisura("time"), "ms");
    EXPECT_STREQ(kelRegMisura("%"), "%");
    const char* const udm = "km/h";
    EXPECT_EQ(kelRegMisura(udm), udm);
}

}  // namespace
