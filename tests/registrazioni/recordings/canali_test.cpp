// The channel set of a recording.
#include "recordings/canali.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "common/errore.h"
#include "comune/tipi_campione.h"

namespace {

using namespace kel_registrazioni;

// What becomes of a recording of two channels: one of a sample type, and one that has a sample in any case.
std::string letto(unsigned tipo) {
    std::vector<s_kel_canale> canali(2);
    canali[0].tipo_campione = tipo;
    canali[1].tipo_campione = KEL_TIPO_INT16;
    std::vector<std::uint8_t> byte(canali.size() * CANALE_BYTE);
    std::memcpy(byte.data(), canali.data(), byte.size());
    try {
        const auto lunghezza = dimensione_record(leggi_canali(byte, Disposizione::compatta));
        return std::to_string(lunghezza - 2) + " bytes";
    } catch (const Errore& e) {
        return e.what();
    }
}

TEST(ChannelSet, OfEverySampleTypeIsRead) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo)
        EXPECT_EQ(letto(tipo), std::to_string(kelFunGetSamplSize(tipo)) + " bytes")
            << "sample type " << tipo << ": NUM_TIPI_CAMPIONE in src/registrazioni/recordings/canali.h";
}

TEST(ChannelSet, OfATypeThatNobodyKnowsIsRefused) {
    for (const unsigned tipo : {kel_test::TIPI_CAMPIONE, 255U, 0xFFFFFFFFU})
        EXPECT_NE(letto(tipo).find("has sample type " + std::to_string(tipo) + "; known are 0 to " +
                                   std::to_string(kel_test::TIPI_CAMPIONE - 1)),
                  std::string::npos)
            << letto(tipo);
}

}  // namespace
