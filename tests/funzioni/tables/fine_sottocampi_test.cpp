// The end row of every subfield table has texts, empty ones: a program that shows a whole table need not look for null.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

namespace {

TEST(EndRowOfSubfields, HasEmptyTexts) {
    const s_sottocampo* tabelle[] = {
        kelConvGetSottoCampiGPS(kelFidComponi(0, 0, FID_SPEC_GPS_KELNAVSOL)),
        kelConvGetSottoCampiGPS(kelFidComponi(0, 0, FID_SPEC_GPS_UBXNAVSOL)),
        kelConvGetSottoCampiLapTime(kelFidComponi(0, 0, FID_SPEC_LAPTIME_KEL2G)),
        kelConvGetSottoCampiLapTime(kelFidComponi(0, 0, FID_SPEC_LAPTIME_KEL1G)),
        kelConvGetSottoCampiDataOra(0),
    };
    for (const s_sottocampo* riga : tabelle) {
        ASSERT_NE(riga, nullptr);
        while (riga->fid != 0x000B9D20)
            ++riga;
        EXPECT_STREQ(riga->breve, "");
        EXPECT_STREQ(riga->testo, "");
    }
}

}  // namespace
