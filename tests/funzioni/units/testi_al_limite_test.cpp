// Unit texts are read up to their NUL and no further: they may end where the caller's memory ends, or begin where it begins.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>
#include <string>

#include "comune/recinto.h"

namespace {

class UnitTextAtTheEndOfMemory : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(recinto_.pronto()) << "mmap or mprotect failed"; }

    // The text, its NUL in the last byte that may be read.
    const char* in_fondo(const std::string& testo) {
        unsigned char* dove = recinto_.in_fondo(testo.size() + 1);
        std::memcpy(dove, testo.c_str(), testo.size() + 1);
        return reinterpret_cast<const char*>(dove);
    }

    // The text, its first character in the first byte that may be read.
    const char* in_testa(const std::string& testo) {
        std::memcpy(recinto_.in_testa(), testo.c_str(), testo.size() + 1);
        return reinterpret_cast<const char*>(recinto_.in_testa());
    }

private:
    kel_test::Recinto recinto_;
};

TEST_F(UnitTextAtTheEndOfMemory, IsFoundAmongTheUnitsOfItsQuantity) {
    constexpr kel_funpos distanza = kelFidComponi(FID_PHI_DISTANCE, 0, 0);
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo("m"))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo("ft"))->udm, "ft");
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo("km"))->udm, "km");
    EXPECT_STREQ(kelFunGetConvData(kelFidComponi(FID_PHI_VELOCITY, 0, 0), in_fondo("min/km"))->udm, "min/km");
}

TEST_F(UnitTextAtTheEndOfMemory, WithoutACharacterOrUnknownIsTheBaseUnit) {
    constexpr kel_funpos distanza = kelFidComponi(FID_PHI_DISTANCE, 0, 0);
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo(""))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo("f"))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, in_fondo("V"))->udm, "m");
    EXPECT_EQ(kelFunGetNumDecimaliDefault(distanza, in_fondo("")), 0);
}

TEST_F(UnitTextAtTheEndOfMemory, OrAtItsBeginningIsReadFromItsFirstCharacterOn) {
    constexpr kel_funpos distanza = kelFidComponi(FID_PHI_DISTANCE, 0, 0);
    for (const char* testo : {"", "m", "f", "ft", "furlong"}) {
        const std::string atteso = std::string(testo) == "ft" ? "ft" : "m";
        EXPECT_EQ(kelFunGetConvData(distanza, in_testa(testo))->udm, atteso) << '"' << testo << '"';
    }
}

// Units whose places are taken by others of their quantity.
TEST(UnitsThatBeginAlike, AreToldApart) {
    constexpr kel_funpos portata = kelFidComponi(FID_PHI_VOLUME_SEC_RATIO, 0, 0);
    constexpr kel_funpos rotazione = kelFidComponi(FID_PHI_ANGLE_SEC_RATIO, 0, 0);
    EXPECT_STREQ(kelFunGetConvData(portata, "gal/s")->udm, "gal/s");
    EXPECT_STREQ(kelFunGetConvData(portata, "gal/h")->udm, "gal/h");
    EXPECT_STREQ(kelFunGetConvData(portata, "gal")->udm, "l/s");
    EXPECT_STREQ(kelFunGetConvData(rotazione, "rpm")->udm, "rpm");
    EXPECT_STREQ(kelFunGetConvData(rotazione, "rpm/100")->udm, "rpm/100");
    EXPECT_STREQ(kelFunGetConvData(rotazione, "rpm/")->udm, "deg/s");
}

}  // namespace
