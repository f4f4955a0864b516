// kelColLeggi against one call a sample.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "kelregistrazioni.h"

namespace {

TEST(Columns, ReadValuesStatusesAndValidityOfAChannel) {
    s_kel_canale canale{};
    canale.tipo_campione = KEL_TIPO_INT16;
    s_converter_data dati{"", 1.5f, 0.25f, 0};
    s_kel_converter conv{};
    kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
    const std::array<std::uint16_t, 3> campioni{8, 0xCFFF, 0xFFFE};
    std::array<float, 3> valori{};
    std::array<unsigned char, 3> stati{};
    unsigned char validi = 0xFF;
    s_kel_colonna colonna{&conv, valori.data(), stati.data(), &validi, nullptr};
    kelColLeggi(campioni.data(), 2, campioni.size(), &colonna, 1);
    EXPECT_EQ((std::array<float, 3>{3.5f, 0.0f, 1.0f}), valori);
    EXPECT_EQ((std::array<unsigned char, 3>{0, KEL_STATO_FUORI_SCALA, 0}), stati);
    EXPECT_EQ(5, validi);
}

}  // namespace
