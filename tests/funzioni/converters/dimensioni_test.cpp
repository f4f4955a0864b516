// Sizes of the samples.
#include <gtest/gtest.h>

#include "kelfunzioni.h"

namespace {

TEST(SampleSize, OfEveryCode) {
    // clang-format off
    const unsigned attese[25] = {
    //  0   1   2   3   4   5   6   7   8   9   10  11  12
        4,  2,  1,  4,  2,  1,  4,  28, 56, 52, 44, 2,  4,
    //  13  14  15  16  17  18  19  20  21  22  23  24
        1,  0,  8,  32, 8,  64, 8,  2,  4,  32, 0,  4,
    };
    // clang-format on
    for (unsigned codice = 0; codice < 25; ++codice) {
        EXPECT_EQ(kelFunGetSamplSize(codice), attese[codice]) << "sample type " << codice;
    }
}

TEST(SampleSize, OfAnyOtherCodeIsZero) {
    for (unsigned codice : {25u, 26u, 32u, 255u, 256u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(kelFunGetSamplSize(codice), 0u) << "sample type " << codice;
    }
}

}  // namespace
