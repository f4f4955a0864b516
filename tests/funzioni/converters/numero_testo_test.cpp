// Samples that hold a number and a text: sample types 15 (6 characters) and 16 (30 characters).
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

Byte NumeroTesto(std::size_t byte, unsigned numero, const std::string& testo, char resto = '\0') {
    Byte campione(byte, static_cast<unsigned char>(resto));
    Metti(campione, 0, Le16(numero));
    for (std::size_t i = 0; i < testo.size(); ++i) {
        campione.at(2 + i) = static_cast<unsigned char>(testo[i]);
    }
    if (2 + testo.size() < byte) {
        campione[2 + testo.size()] = 0;
    }
    return campione;
}

s_kel_converter ConCanale(unsigned tipo, kel_funpos fid_canale, kel_funpos fid,
                          const s_converter_data* dati = &kIdentita) {
    Impostazione come;
    come.fid_canale = fid_canale;
    come.fid = fid;
    come.dati = dati;
    return Convertitore(tipo, come);
}

const kel_funpos kMarcia = kelFidComponi(FID_PHI_GEAR, FID_OBJ_GEAR, FID_POS_GEARBOX);
const kel_funpos kMarciaGenerica = kelFidComponi(FID_PHI_GEAR, 0, 0);
const kel_funpos kCodiceMarcia = kelFidComponi(FID_PHI_CODE, FID_OBJ_GEAR, FID_POS_GEARBOX);
const kel_funpos kCodiceErrore = kelFidComponi(FID_PHI_CODE, FID_OBJ_ERROR, FID_POS_ENGINE);
const kel_funpos kNumeroMarcia = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_GEAR, 0);

TEST(NumberAndText, GearChannelTakesTheDigitOfItsText) {
    for (kel_funpos fid : {kMarcia, kMarciaGenerica, kCodiceMarcia}) {
        s_kel_converter conv = ConCanale(15, fid, fid);
        for (char cifra = '1'; cifra <= '9'; ++cifra) {
            EXPECT_EQ(Leggi(conv, NumeroTesto(8, 1234, std::string(1, cifra))).valore, static_cast<float>(cifra - '0'));
        }
        EXPECT_EQ(Leggi(conv, NumeroTesto(8, 1234, "3rd")).valore, 3.0f);
    }
}

TEST(NumberAndText, GearChannelWithoutADigitTakesTheNumber) {
    s_kel_converter conv = ConCanale(15, kMarcia, kMarcia);
    for (const char* testo : {"0", "N", "R", "", "/", ":", " 1"}) {
        EXPECT_EQ(Leggi(conv, NumeroTesto(8, 0xFFFE, testo)).valore, -2.0f) << '"' << testo << '"';
    }
}

TEST(NumberAndText, OtherChannelsTakeTheNumber) {
    for (kel_funpos fid : {kFid, kCodiceErrore, kNumeroMarcia}) {
        s_kel_converter conv = ConCanale(15, fid, fid);
        EXPECT_EQ(Leggi(conv, NumeroTesto(8, 1234, "5")).valore, 1234.0f);
        EXPECT_EQ(Leggi(conv, NumeroTesto(8, 0x8000, "5")).valore, -32768.0f);
    }
}

TEST(NumberAndText, GearTestLooksAtTheChannelsOwnIdentifier) {
    s_kel_converter marcia = ConCanale(15, kMarcia, kFid);
    EXPECT_EQ(Leggi(marcia, NumeroTesto(8, 1234, "5")).valore, 5.0f);
    s_kel_converter giri = ConCanale(15, kFid, kMarcia);
    EXPECT_EQ(Leggi(giri, NumeroTesto(8, 1234, "5")).valore, 1234.0f);
}

TEST(NumberAndText, LongFormAlwaysTakesTheNumber) {
    s_kel_converter conv = ConCanale(16, kMarcia, kMarcia);
    EXPECT_EQ(Leggi(conv, NumeroTesto(32, 1234, "5")).valore, 1234.0f);
    EXPECT_EQ(Leggi(conv, NumeroTesto(32, 0xFFFF, "5")).valore, -1.0f);
}

TEST(NumberAndText, IgnoresGainOffsetAndReciprocal) {
    for (const s_converter_data* dati : {&kDoppioPiuCinque, &kReciproca}) {
        s_kel_converter corto = ConCanale(15, kFid, kFid, dati);
        EXPECT_EQ(Leggi(corto, NumeroTesto(8, 100, "5")).valore, 100.0f);
        s_kel_converter marcia = ConCanale(15, kMarcia, kMarcia, dati);
        EXPECT_EQ(Leggi(marcia, NumeroTesto(8, 100, "5")).valore, 5.0f);
        s_kel_converter lungo = ConCanale(16, kFid, kFid, dati);
        EXPECT_EQ(Leggi(lungo, NumeroTesto(32, 100, "5")).valore, 100.0f);
    }
}

TEST(NumberAndText, HasNoReservedValues) {
    s_kel_converter conv = ConCanale(15, kFid, kFid);
    const Lettura letto = Leggi(conv, NumeroTesto(8, 0xCFFF, "abc"));
    EXPECT_EQ(letto.valore, -12289.0f);
    EXPECT_EQ(letto.stato, 0u);
    EXPECT_EQ(letto.testo, "abc");
}

TEST(NumberAndText, CopiesTheTextUpToItsNul) {
    s_kel_converter corto = ConCanale(15, kFid, kFid);
    EXPECT_EQ(Leggi(corto, NumeroTesto(8, 1, "R", 'x')).testo, "R");
    EXPECT_EQ(Leggi(corto, NumeroTesto(8, 1, "", 'x')).testo, "");
    EXPECT_EQ(Leggi(corto, NumeroTesto(8, 1, "abcde", 'x')).testo, "abcde");
    s_kel_converter lungo = ConCanale(16, kFid, kFid);
    EXPECT_EQ(Leggi(lungo, NumeroTesto(32, 1, "Launch control", 'x')).testo, "Launch control");
    EXPECT_TRUE(Leggi(lungo, NumeroTesto(32, 1, "Launch control", 'x')).pulito);
}

TEST(NumberAndText, TextEndsWithTheSample) {
    Byte corto = NumeroTesto(8, 1, "abcdef");
    corto.push_back('!');  // belongs to the next sample
    s_kel_converter conv15 = ConCanale(15, kFid, kFid);
    EXPECT_EQ(Leggi(conv15, corto).testo, "abcdef");
    Byte lungo = NumeroTesto(32, 1, "abcdefghijklmnopqrstuvwxyz0123");
    lungo.push_back('!');
    s_kel_converter conv16 = ConCanale(16, kFid, kFid);
    EXPECT_EQ(Leggi(conv16, lungo).testo, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_TRUE(Leggi(conv16, lungo).pulito);
}

TEST(NumberAndText, IsNotTouchedByWidthAndFormat) {
    s_kel_converter conv = ConCanale(16, kFid, kFid);
    conv.larghezza = 2;
    conv.decimali = 1;
    conv.formato = FORMATO_COMPATTO;
    EXPECT_EQ(Leggi(conv, NumeroTesto(32, 1, "MAP 2")).testo, "MAP 2");
}

TEST(NumberAndText, HasNoStatusText) {
    EXPECT_EQ(ConCanale(15, kFid, kFid).testo_stato, nullptr);
    EXPECT_EQ(ConCanale(16, kFid, kFid).testo_stato, nullptr);
}

}  // namespace
