// The list of sample types that need a unit, which other tests take the place of a pointer that leads nowhere by: a type
// that is missing there ends them in a crash, here in a sentence.
#include "comune/unita_necessaria.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>

#include "comune/tipi_campione.h"
#include "kelfunzioni.h"

namespace {

constexpr kel_funpos FID = 0x10;

s_kel_converter impostato(unsigned tipo, const s_converter_data& dati) {
    s_kel_canale canale = {};
    canale.fid = FID;
    canale.tipo_campione = tipo;
    s_kel_converter conv = {};
    kelConvInit(&conv, &canale, FID, &dati, 0, 0, 1);
    return conv;
}

// Whether a unit has anything to do with the type: another unit gives another value, or the reciprocal flag another decoder.
bool legge_unita(unsigned tipo) {
    const s_converter_data uno = {"", 0, 1, 0};
    const s_converter_data doppio = {"", 5, 2, 0};
    const s_converter_data reciproco = {"", 0, 1, 1};
    std::array<unsigned char, 64> campione = {};
    campione[0] = 3;
    const auto valore = [&campione, tipo](const s_converter_data& dati) {
        const s_kel_converter conv = impostato(tipo, dati);
        float letto = 0;
        kelConvGetValFloat(&conv, campione.data(), &letto);
        return std::bit_cast<std::uint32_t>(letto);
    };
    return valore(uno) != valore(doppio) || impostato(tipo, uno).valore != impostato(tipo, reciproco).valore;
}

TEST(UnitNeeded, IsKnownOfEverySampleType) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo)
        EXPECT_EQ(kel_test::unita_necessaria(FID, tipo, FID), legge_unita(tipo))
            << "sample type " << tipo << " in tests/comune/unita_necessaria.h";
}

}  // namespace
