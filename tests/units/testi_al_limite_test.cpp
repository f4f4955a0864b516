// Unit texts are read up to their NUL and no further: they may end where the caller's memory ends.
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
    const char* InFondo(const std::string& testo) {
        unsigned char* dove = recinto_.InFondo(testo.size() + 1);
        std::memcpy(dove, testo.c_str(), testo.size() + 1);
        return reinterpret_cast<const char*>(dove);
    }

private:
    kel_test::Recinto recinto_;
};

TEST_F(UnitTextAtTheEndOfMemory, IsFoundAmongTheUnitsOfItsQuantity) {
    constexpr kel_funpos distanza = kelFidComponi(FID_PHI_DISTANCE, 0, 0);
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo("m"))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo("ft"))->udm, "ft");
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo("km"))->udm, "km");
    EXPECT_STREQ(kelFunGetConvData(kelFidComponi(FID_PHI_VELOCITY, 0, 0), InFondo("min/km"))->udm, "min/km");
}

TEST_F(UnitTextAtTheEndOfMemory, WithoutACharacterOrUnknownIsTheBaseUnit) {
    constexpr kel_funpos distanza = kelFidComponi(FID_PHI_DISTANCE, 0, 0);
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo(""))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo("f"))->udm, "m");
    EXPECT_STREQ(kelFunGetConvData(distanza, InFondo("V"))->udm, "m");
    EXPECT_EQ(kelFunGetNumDecimaliDefault(distanza, InFondo("")), 0);
}

}  // namespace
