// A converter object that is made without unit data shows samples as they are.
#include <gtest/gtest.h>

#include <string>

#include "CConverter.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

TEST(ObjectConverterWithoutUnitData, ReadsTheSampleItself) {
    const s_kel_canale canale = Canale(kFid, KEL_TIPO_INT16);
    CConverter conv(&canale, kFid, nullptr, true, 1, FORMATO_DESTRA, 5);
    const Byte campione = Le16(1234);
    float valore = -1.0f;
    EXPECT_TRUE(conv.GetVal(campione.data(), &valore));
    EXPECT_EQ(valore, 1234.0f);
    std::string testo;
    EXPECT_TRUE(conv.GetString(campione.data(), testo));
    EXPECT_EQ(testo, std::string("1234.0\0", 7));
}

}  // namespace
