// Samples that hold a number and a text: sample types 15 (6 characters) and 16 (30 characters).
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

Byte numero_testo(std::size_t byte, unsigned numero, const std::string& testo, char resto = '\0') {
    Byte campione(byte, static_cast<unsigned char>(resto));
    metti(campione, 0, le16(numero));
    for (std::size_t i = 0; i < testo.size(); ++i) {
        campione.at(2 + i) = static_cast<unsigned char>(testo[i]);
    }
    if (2 + testo.size() < byte) {
        campione[2 + testo.size()] = 0;
    }
    return campione;
}

s_kel_converter con_canale(unsigned tipo, kel_funpos fid_canale, kel_funpos fid,
                           const s_converter_data* dati = &IDENTITA) {
    Impostazione come;
    come.fid_canale = fid_canale;
    come.fid = fid;
    come.dati = dati;
    return convertitore(tipo, come);
}

const kel_funpos MARCIA = kelFidComponi(FID_PHI_GEAR, FID_OBJ_GEAR, FID_POS_GEARBOX);
const kel_funpos MARCIA_GENERICA = kelFidComponi(FID_PHI_GEAR, 0, 0);
const kel_funpos CODICE_MARCIA = kelFidComponi(FID_PHI_CODE, FID_OBJ_GEAR, FID_POS_GEARBOX);
const kel_funpos CODICE_ERRORE = kelFidComponi(FID_PHI_CODE, FID_OBJ_ERROR, FID_POS_ENGINE);
const kel_funpos NUMERO_MARCIA = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_GEAR, 0);

TEST(NumberAndText, GearChannelTakesTheDigitOfItsText) {
    for (kel_funpos fid : {MARCIA, MARCIA_GENERICA, CODICE_MARCIA}) {
        s_kel_converter conv = con_canale(15, fid, fid);
        for (char cifra = '1'; cifra <= '9'; ++cifra) {
            EXPECT_EQ(leggi(conv, numero_testo(8, 1234, std::string(1, cifra))).valore,
                      static_cast<float>(cifra - '0'));
        }
        EXPECT_EQ(leggi(conv, numero_testo(8, 1234, "3rd")).valore, 3.0f);
    }
}

TEST(NumberAndText, GearChannelWithoutADigitTakesTheNumber) {
    s_kel_converter conv = con_canale(15, MARCIA, MARCIA);
    for (const char* testo : {"0", "N", "R", "", "/", ":", " 1"}) {
        EXPECT_EQ(leggi(conv, numero_testo(8, 0xFFFE, testo)).valore, -2.0f) << '"' << testo << '"';
    }
}

TEST(NumberAndText, OtherChannelsTakeTheNumber) {
    for (kel_funpos fid : {FID, CODICE_ERRORE, NUMERO_MARCIA}) {
        s_kel_converter conv = con_canale(15, fid, fid);
        EXPECT_EQ(leggi(conv, numero_testo(8, 1234, "5")).valore, 1234.0f);
        EXPECT_EQ(leggi(conv, numero_testo(8, 0x8000, "5")).valore, -32768.0f);
    }
}

TEST(NumberAndText, GearTestLooksAtTheChannelsOwnIdentifier) {
    s_kel_converter marcia = con_canale(15, MARCIA, FID);
    EXPECT_EQ(leggi(marcia, numero_testo(8, 1234, "5")).valore, 5.0f);
    s_kel_converter giri = con_canale(15, FID, MARCIA);
    EXPECT_EQ(leggi(giri, numero_testo(8, 1234, "5")).valore, 1234.0f);
}

TEST(NumberAndText, LongFormAlwaysTakesTheNumber) {
    s_kel_converter conv = con_canale(16, MARCIA, MARCIA);
    EXPECT_EQ(leggi(conv, numero_testo(32, 1234, "5")).valore, 1234.0f);
    EXPECT_EQ(leggi(conv, numero_testo(32, 0xFFFF, "5")).valore, -1.0f);
}

TEST(NumberAndText, IgnoresGainOffsetAndReciprocal) {
    for (const s_converter_data* dati : {&DOPPIO_PIU_CINQUE, &RECIPROCA}) {
        s_kel_converter corto = con_canale(15, FID, FID, dati);
        EXPECT_EQ(leggi(corto, numero_testo(8, 100, "5")).valore, 100.0f);
        s_kel_converter marcia = con_canale(15, MARCIA, MARCIA, dati);
        EXPECT_EQ(leggi(marcia, numero_testo(8, 100, "5")).valore, 5.0f);
        s_kel_converter lungo = con_canale(16, FID, FID, dati);
        EXPECT_EQ(leggi(lungo, numero_testo(32, 100, "5")).valore, 100.0f);
    }
}

TEST(NumberAndText, HasNoReservedValues) {
    s_kel_converter conv = con_canale(15, FID, FID);
    const Lettura letto = leggi(conv, numero_testo(8, 0xCFFF, "abc"));
    EXPECT_EQ(letto.valore, -12289.0f);
    EXPECT_EQ(letto.stato, 0u);
    EXPECT_EQ(letto.testo, "abc");
}

TEST(NumberAndText, CopiesTheTextUpToItsNul) {
    s_kel_converter corto = con_canale(15, FID, FID);
    EXPECT_EQ(leggi(corto, numero_testo(8, 1, "R", 'x')).testo, "R");
    EXPECT_EQ(leggi(corto, numero_testo(8, 1, "", 'x')).testo, "");
    EXPECT_EQ(leggi(corto, numero_testo(8, 1, "abcde", 'x')).testo, "abcde");
    s_kel_converter lungo = con_canale(16, FID, FID);
    EXPECT_EQ(leggi(lungo, numero_testo(32, 1, "Launch control", 'x')).testo, "Launch control");
    EXPECT_TRUE(leggi(lungo, numero_testo(32, 1, "Launch control", 'x')).pulito);
}

TEST(NumberAndText, TextEndsWithTheSample) {
    Byte corto = numero_testo(8, 1, "abcdef");
    corto.push_back('!');  // belongs to the next sample
    s_kel_converter conv15 = con_canale(15, FID, FID);
    EXPECT_EQ(leggi(conv15, corto).testo, "abcdef");
    Byte lungo = numero_testo(32, 1, "abcdefghijklmnopqrstuvwxyz0123");
    lungo.push_back('!');
    s_kel_converter conv16 = con_canale(16, FID, FID);
    EXPECT_EQ(leggi(conv16, lungo).testo, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_TRUE(leggi(conv16, lungo).pulito);
}

TEST(NumberAndText, IsNotTouchedByWidthAndFormat) {
    s_kel_converter conv = con_canale(16, FID, FID);
    conv.larghezza = 2;
    conv.decimali = 1;
    conv.formato = FORMATO_COMPATTO;
    EXPECT_EQ(leggi(conv, numero_testo(32, 1, "MAP 2")).testo, "MAP 2");
}

TEST(NumberAndText, HasNoStatusText) {
    EXPECT_EQ(con_canale(15, FID, FID).testo_stato, nullptr);
    EXPECT_EQ(con_canale(16, FID, FID).testo_stato, nullptr);
}

}  // namespace
