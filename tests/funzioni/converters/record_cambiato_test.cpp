// A converter record is its caller's: fields that he changes after the set-up count, and what an earlier set-up left is gone.
#include <gtest/gtest.h>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

constexpr kel_funpos VELOCITA_GPS = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);

s_kel_converter imposta(unsigned tipo, kel_funpos fid, unsigned short pos_bit, unsigned short num_bit) {
    const s_kel_canale canale = un_canale(fid, tipo);
    s_kel_converter conv{};
    conv.larghezza = 8;
    kelConvInit(&conv, &canale, fid, &IDENTITA, pos_bit, num_bit, 1);
    return conv;
}

TEST(ChangedRecord, BitFieldMayBeginAtTheHighestBit) {
    s_kel_converter conv = imposta(KEL_TIPO_UINT32, FID, 0, 31);
    ASSERT_EQ(conv.maschera, 0x80000000u);
    conv.pos_bit = 31;
    EXPECT_EQ(leggi(conv, le32(0xFFFFFFFFu)).valore, 1.0f);
    conv.pos_bit = 32;
    EXPECT_EQ(leggi(conv, le32(0xFFFFFFFFu)).valore, 0.0f) << "no bit lies there";
}

TEST(ChangedRecord, MaskedBitListHasAPlaceForEachBit) {
    s_kel_converter conv = imposta(KEL_TIPO_LISTA_BIT, FID, 0, 7);
    conv.maschera = 0xFF;
    conv.num_bit = 8;
    EXPECT_EQ(leggi(conv, Byte{0x80}).valore, 70000000.0f) << "bit 7, counted from 0, in the eighth place";
    EXPECT_EQ(leggi(conv, Byte{0x05}).valore, 200.0f) << "bits 0 and 2";
    EXPECT_EQ(leggi(conv, Byte{0x05}).testo, "     200");
}

TEST(ChangedRecord, DecodersWithoutAStatusSetItToZero) {
    s_kel_converter lista = imposta(KEL_TIPO_LISTA_BIT, FID, 0, 7);
    uint32_t stato = 0xFFFFFFFFu;
    const unsigned char bit = 0x80;
    lista.valore(&lista, &bit, &stato);
    EXPECT_EQ(stato, 0u) << "masked bit list";

    constexpr kel_funpos marcia = kelFidComponi(FID_PHI_GEAR, 0, 0);
    s_kel_converter cifra = imposta(KEL_TIPO_NUMERO_TESTO_6, marcia, 0, 0);
    stato = 0xFFFFFFFFu;
    const unsigned char campione[] = {0x00, 0x00, '4', 0, 0, 0, 0, 0};
    EXPECT_EQ(cifra.valore(&cifra, campione, &stato), 4.0f);
    EXPECT_EQ(stato, 0u) << "digit of a gear";
}

TEST(ChangedRecord, KeepsItsMaskWhenThePacketHasNoSuchSubfield) {
    s_kel_converter conv = imposta(KEL_TIPO_UINT32, FID, 0, 12);
    ASSERT_EQ(conv.maschera, 0x1000u);
    const kel_funpos pacchetto = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    const s_kel_canale canale = un_canale(pacchetto, KEL_TIPO_GPS_KEL, 9);
    kelConvInit(&conv, &canale, FID, &DOPPIO_PIU_CINQUE, 3, 4, 0);
    EXPECT_EQ(conv.maschera, 0x1000u) << "of the earlier set-up";
    EXPECT_EQ(conv.offset_campione, 9u) << "what comes before the subfield's look-up is written";
    EXPECT_EQ(conv.pos_bit, 3u);
    EXPECT_EQ(conv.num_bit, 4u);
    EXPECT_EQ(conv.dati, &DOPPIO_PIU_CINQUE);
    EXPECT_EQ(conv.valore, nullptr);
    EXPECT_EQ(conv.testo_stato, nullptr);
    EXPECT_EQ(leggi(conv, Byte(64, 1)).testo, "- -");
}

TEST(ChangedRecord, HasTheMaskOfAnyOtherSetUp) {
    s_kel_converter conv = imposta(KEL_TIPO_UINT32, FID, 0, 12);
    const s_kel_canale ignoto = un_canale(FID, 99);
    kelConvInit(&conv, &ignoto, FID, &IDENTITA, 0, 3, 1);
    EXPECT_EQ(conv.maschera, 8u) << "a code without a format has a bit field as well";
    const kel_funpos pacchetto = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    const s_kel_canale canale = un_canale(pacchetto, KEL_TIPO_GPS_KEL);
    kelConvInit(&conv, &canale, VELOCITA_GPS, &IDENTITA, 0, 0, 1);
    EXPECT_EQ(conv.maschera, 0u) << "a computed subfield has none";
}

TEST(ChangedRecord, ComputedSubfieldWithoutAnyUnitDataHasNoValue) {
    const kel_funpos pacchetto = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    const s_kel_canale canale = un_canale(pacchetto, KEL_TIPO_GPS_KEL);
    s_kel_converter conv{};
    kelConvInit(&conv, &canale, VELOCITA_GPS, nullptr, 0, 0, 1);
    const Lettura letto = leggi(conv, Byte(56, 0));
    EXPECT_EQ(letto.ha_valore, 0);
    EXPECT_EQ(letto.testo, "- -");
}

TEST(ChangedRecord, ComputedSubfieldThatNoUnitConvertsNeedsNone) {
    const kel_funpos pacchetto = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    const s_kel_canale canale = un_canale(pacchetto, KEL_TIPO_GPS_KEL);
    Byte soluzione(56, 0);
    metti(soluzione, 24, le32(6));  // above the north pole
    s_kel_converter conv{};
    conv.larghezza = 4;
    kelConvInit(&conv, &canale, 0xA8A07, nullptr, 0, 0, 1);
    EXPECT_EQ(leggi(conv, soluzione).valore, 90.0f);
    // The record's own unit decides as one that is given: there is no reciprocal latitude.
    conv.dati = &RECIPROCA;
    kelConvInit(&conv, &canale, 0xA8A07, nullptr, 0, 0, 1);
    EXPECT_EQ(conv.valore, nullptr);
    EXPECT_EQ(leggi(conv, soluzione).ha_valore, 0);
    kelConvInit(&conv, &canale, 0xA8A07, &IDENTITA, 0, 0, 1);
    EXPECT_EQ(leggi(conv, soluzione).valore, 90.0f);
}

}  // namespace
