// Sizes of the samples.
#include <gtest/gtest.h>

#include "comune/tipi_campione.h"
#include "kelfunzioni.h"
#include "model/tabelle.h"

namespace {

TEST(SampleSize, OfEveryCodeIsThatOfTheTable) {
    const std::vector<unsigned>& attese = modello::tabelle().dimensioni;
    ASSERT_EQ(attese.size(), kel_test::TIPI_CAMPIONE);
    for (unsigned codice = 0; codice < attese.size(); ++codice)
        EXPECT_EQ(kelFunGetSamplSize(codice), attese[codice]) << "sample type " << codice;
}

TEST(SampleSize, OfTheLoggersGpsPacketIs56) {
    EXPECT_EQ(kelFunGetSamplSize(KEL_TIPO_GPS_KEL), 56u);
}

TEST(SampleSize, OfAnyOtherCodeIsZero) {
    for (unsigned codice :
         {kel_test::TIPI_CAMPIONE, kel_test::TIPI_CAMPIONE + 1, 255u, 256u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(kelFunGetSamplSize(codice), 0u) << "sample type " << codice;
}

}  // namespace
