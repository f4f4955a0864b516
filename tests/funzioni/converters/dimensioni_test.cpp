// Sizes of the samples.
#include <gtest/gtest.h>

#include "kelfunzioni.h"
#include "model/tabelle.h"

namespace {

TEST(SampleSize, OfEveryCodeIsThatOfTheTable) {
    unsigned codice = 0;
    for (const unsigned attesa : modello::tabelle().dimensioni)
        EXPECT_EQ(kelFunGetSamplSize(codice++), attesa) << "sample type " << codice - 1;
    EXPECT_EQ(codice, 25u);
}

TEST(SampleSize, OfTheLoggersGpsPacketIs56) {
    EXPECT_EQ(kelFunGetSamplSize(KEL_TIPO_GPS_KEL), 56u);
}

TEST(SampleSize, OfAnyOtherCodeIsZero) {
    for (unsigned codice : {25u, 26u, 32u, 255u, 256u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(kelFunGetSamplSize(codice), 0u) << "sample type " << codice;
    }
}

}  // namespace
