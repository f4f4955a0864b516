// Unit texts and their codes.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

namespace {

TEST(UnitCode, OfATextIsItsPlace) {
    EXPECT_EQ(kelFunGetUdmCode("rpm"), 0);
    EXPECT_EQ(kelFunGetUdmCode("km/h"), 1);
    EXPECT_EQ(kelFunGetUdmCode("a/f"), 23);
    EXPECT_EQ(kelFunGetUdmCode("mV"), 32);
}

TEST(UnitCode, IsMinusOneForTextsOfOtherVocabularies) {
    EXPECT_EQ(kelFunGetUdmCode("AFR"), -1);
    EXPECT_EQ(kelFunGetUdmCode("min/km"), -1);
    EXPECT_EQ(kelFunGetUdmCode(""), -1);
}

TEST(UnitCode, ComparesWholeTextsByteForByte) {
    EXPECT_EQ(kelFunGetUdmCode("KM/H"), -1);
    EXPECT_EQ(kelFunGetUdmCode("km/h "), -1);
    EXPECT_EQ(kelFunGetUdmCode(" km/h"), -1);
    EXPECT_EQ(kelFunGetUdmCode("km/"), -1);
    EXPECT_EQ(kelFunGetUdmCode("km/hh"), -1);
    EXPECT_EQ(kelFunGetUdmCode("km"), 21);
    EXPECT_EQ(kelFunGetUdmCode("m"), 18);
    EXPECT_EQ(kelFunGetUdmCode("mv"), -1);
}

TEST(UnitText, OfACodeIsInTheTable) {
    EXPECT_STREQ(kelFunGetUdmTxt(0), "rpm");
    EXPECT_STREQ(kelFunGetUdmTxt(13), "lambda");
    EXPECT_STREQ(kelFunGetUdmTxt(15), "m/s2");
    EXPECT_STREQ(kelFunGetUdmTxt(30), "mA");
    EXPECT_STREQ(kelFunGetUdmTxt(32), "mV");
    EXPECT_EQ(kelFunGetUdmTxt(7), udm_codici[7].testo);
}

TEST(UnitText, IsNullAboveTheLastCode) {
    EXPECT_EQ(kelFunGetUdmTxt(33), nullptr);
    EXPECT_EQ(kelFunGetUdmTxt(0x7FFFFFFF), nullptr);
    EXPECT_EQ(kelFunGetUdmTxt(0x80000000), nullptr);
    EXPECT_EQ(kelFunGetUdmTxt(static_cast<unsigned>(-1)), nullptr);
}

TEST(UnitCodesAndTexts, AreInverse) {
    for (unsigned codice = 0; codice <= 32; ++codice)
        EXPECT_EQ(kelFunGetUdmCode(kelFunGetUdmTxt(codice)), static_cast<int>(codice));
}

}  // namespace
