// The status text: which text a status word gets, and which sample types have it.
#include <gtest/gtest.h>

#include "comune/tipi_campione.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

TEST(StatusText, TakesTheFirstBitInTheOrderOverMissingInvalidError) {
    const s_kel_converter conv = convertitore(1, {});
    ASSERT_NE(conv.testo_stato, nullptr);
    // clang-format off
    const char* const attesi[16] = {
        nullptr,  // 0: no bit
        "Err",    // 1
        "   ",    // 2
        "   ",    // 2 1
        "---",    // 4
        "---",    // 4 1
        "---",    // 4 2
        "---",    // 4 2 1
        "---",    // 8
        "---",    // 8 1
        "   ",    // 8 2
        "   ",    // 8 2 1
        "---",    // 8 4
        "---",    // 8 4 1
        "---",    // 8 4 2
        "---",    // 8 4 2 1
    };
    // clang-format on
    for (std::uint32_t stato = 1; stato < 16; ++stato) {
        char testo[32];
        std::memset(testo, 'x', sizeof testo);
        conv.testo_stato(stato, testo);
        EXPECT_STREQ(testo, attesi[stato]) << "status " << stato;
        EXPECT_EQ(testo[4], 'x') << "nothing is written after the NUL";
    }
}

TEST(StatusText, LeavesTheOutputAloneWithoutAStatusBit) {
    const s_kel_converter conv = convertitore(1, {});
    for (std::uint32_t stato : {0u, 16u, 0xFFFFFFF0u}) {
        char testo[32];
        std::memset(testo, 'x', sizeof testo);
        conv.testo_stato(stato, testo);
        for (char carattere : testo) {
            ASSERT_EQ(carattere, 'x') << "status " << stato;
        }
    }
}

TEST(StatusText, ExistsForTheNumericTypesTheHalfFloatAndTheCoordinate) {
    for (unsigned tipo = 0; tipo <= kel_test::TIPI_CAMPIONE; ++tipo) {
        const bool atteso = tipo <= 6 || tipo == 20 || tipo == 21;
        EXPECT_EQ(convertitore(tipo, {}).testo_stato != nullptr, atteso) << "sample type " << tipo;
    }
}

}  // namespace
