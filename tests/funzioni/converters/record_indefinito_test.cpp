// A record as its caller has it before the set-up: any bytes but for width, decimals, automatic decimals and alignment, and a
// pointer that leads to a page which nobody may read. Set-up without unit data leaves the pointer, and looks through it only
// where the format cannot be chosen otherwise. A look that is too much ends the program.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iterator>
#include <new>
#include <numeric>
#include <set>
#include <string>

#include "CConverter.h"
#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "comune/unita_necessaria.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

constexpr kel_funpos MARCIA = kelFidComponi(FID_PHI_GEAR, 0, 0);
constexpr unsigned RIEMPIMENTI[] = {0x00, 0x5A, 0xA5, 0xFF};
constexpr unsigned short BIT[] = {0, 3};  // none, and a bit field
// Every sample type, the two codes behind the last, and the largest code.
constexpr auto TUTTI = [] {
    std::array<unsigned, TIPI_CAMPIONE + 3> tutti{};
    std::iota(tutti.begin(), tutti.end(), 0u);
    tutti.back() = 0xFFFFFFFF;
    return tutti;
}();
// Sample types whose values are computed with the unit's data, in one way only: there is nothing to choose.
const std::set<unsigned> UN_MODO = {12, 13, 24};

class UndefinedRecord : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(recinto_.pronto()) << "mmap or mprotect failed"; }

    const s_converter_data* proibito() const { return reinterpret_cast<const s_converter_data*>(recinto_.in_fondo(0)); }

    s_kel_converter indefinito(unsigned riempimento) const {
        s_kel_converter conv;
        std::memset(static_cast<void*>(&conv), static_cast<int>(riempimento), sizeof conv);
        aspetto(conv);
        conv.dati = proibito();
        return conv;
    }

    static void aspetto(s_kel_converter& conv) {
        conv.larghezza = 6;
        conv.decimali = 1;
        conv.auto_decimali = 0;
        conv.formato = FORMATO_DESTRA;
    }

    // The same set-up of a record that holds zeros.
    static s_kel_converter pulito(const s_kel_canale& canale, kel_funpos fid, const s_converter_data& dati,
                                  unsigned short num_bit = 0) {
        s_kel_converter conv{};
        aspetto(conv);
        kelConvInit(&conv, &canale, fid, &dati, 0, num_bit, 0);
        return conv;
    }

    static void stessa_impostazione(const s_kel_converter& conv, const s_kel_converter& attesa) {
        EXPECT_EQ(conv.offset_campione, attesa.offset_campione);
        EXPECT_EQ(conv.pos_bit, attesa.pos_bit);
        EXPECT_EQ(conv.num_bit, attesa.num_bit);
        EXPECT_EQ(conv.maschera, attesa.maschera);
        EXPECT_EQ(conv.valore, attesa.valore);
        EXPECT_EQ(conv.testo, attesa.testo);
        EXPECT_EQ(conv.testo_stato, attesa.testo_stato);
    }

    static void stessa_lettura(s_kel_converter& conv, s_kel_converter& attesa) {
        const Byte campione(128, 0x31);
        const Lettura letto = leggi(conv, campione);
        const Lettura atteso = leggi(attesa, campione);
        EXPECT_EQ(letto.ha_valore, atteso.ha_valore);
        EXPECT_EQ(letto.valore, atteso.valore);
        EXPECT_EQ(letto.stato, atteso.stato);
        EXPECT_EQ(letto.ha_testo, atteso.ha_testo);
        EXPECT_EQ(letto.testo, atteso.testo);
    }

    Recinto recinto_;
};

TEST_F(UndefinedRecord, IsSetUpWithoutAUnitWhereNoneIsNeeded) {
    for (unsigned riempimento : RIEMPIMENTI) {
        for (unsigned tipo : TUTTI) {
            for (kel_funpos fid : {FID, MARCIA}) {
                for (unsigned short num_bit : BIT) {
                    if (unita_necessaria(fid, tipo, fid)) {
                        continue;
                    }
                    SCOPED_TRACE(::testing::Message() << "type " << tipo << ", filled with " << riempimento);
                    const s_kel_canale canale = un_canale(fid, tipo, 5);
                    s_kel_converter conv = indefinito(riempimento);
                    kelConvInit(&conv, &canale, fid, nullptr, 0, num_bit, 0);
                    EXPECT_EQ(kelConvGetConvData(&conv), proibito()) << "the pointer is the caller's";
                    s_kel_converter attesa = pulito(canale, fid, RECIPROCA, num_bit);
                    stessa_impostazione(conv, attesa);
                    stessa_lettura(conv, attesa);
                }
            }
        }
    }
}

TEST_F(UndefinedRecord, IsSetUpWithoutAUnitWhereThereIsOneWayToDecode) {
    for (unsigned riempimento : RIEMPIMENTI) {
        for (unsigned tipo : UN_MODO) {
            SCOPED_TRACE(::testing::Message() << "type " << tipo << ", filled with " << riempimento);
            const s_kel_canale canale = un_canale(FID, tipo, 5);
            for (unsigned short num_bit : BIT) {
                s_kel_converter conv = indefinito(riempimento);
                kelConvInit(&conv, &canale, FID, nullptr, 0, num_bit, 0);
                EXPECT_EQ(kelConvGetConvData(&conv), proibito());
                stessa_impostazione(conv, pulito(canale, FID, RECIPROCA, num_bit));
                // The values are computed with the unit, as soon as there is one.
                conv.dati = &DOPPIO_PIU_CINQUE;
                s_kel_converter attesa = pulito(canale, FID, DOPPIO_PIU_CINQUE, num_bit);
                stessa_lettura(conv, attesa);
            }
        }
    }
}

TEST_F(UndefinedRecord, ShowsTimesWithoutAUnit) {
    for (unsigned tipo : {12u, 24u}) {
        const s_kel_canale canale = un_canale(FID, tipo, 0);
        s_kel_converter conv = indefinito(0xA5);
        kelConvInit(&conv, &canale, FID, nullptr, 0, 0, 1);
        char testo[32];
        EXPECT_EQ(kelConvGetString(&conv, le32(61230).data(), testo), 1);
        EXPECT_STREQ(testo, tipo == 12 ? " 1:01.2" : " + 1.23");
    }
}

TEST_F(UndefinedRecord, TakesTheUnitThatItIsGiven) {
    for (unsigned riempimento : RIEMPIMENTI) {
        for (unsigned tipo : TUTTI) {
            for (const s_converter_data* dati : {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA}) {
                for (unsigned short num_bit : BIT) {
                    SCOPED_TRACE(::testing::Message() << "type " << tipo << ", filled with " << riempimento);
                    const s_kel_canale canale = un_canale(FID, tipo, 5);
                    s_kel_converter conv = indefinito(riempimento);
                    kelConvInit(&conv, &canale, FID, dati, 0, num_bit, 0);
                    EXPECT_EQ(kelConvGetConvData(&conv), dati);
                    s_kel_converter attesa = pulito(canale, FID, *dati, num_bit);
                    stessa_impostazione(conv, attesa);
                    stessa_lettura(conv, attesa);
                }
            }
        }
    }
}

TEST_F(UndefinedRecord, OfAPacketIsSetUpWithoutAUnitWhereTheSubfieldNeedsNone) {
    const s_kel_canale canale = un_canale(PACCHETTO_GIRO2_G, KEL_TIPO_LAP_2G, 5);
    for (unsigned riempimento : RIEMPIMENTI) {
        for (kel_funpos fid : {PACCHETTO_GIRO2_G, kel_funpos{0x992}, kel_funpos{0x1792}, kel_funpos{0x1712}}) {
            SCOPED_TRACE(::testing::Message() << std::hex << fid << ", filled with " << riempimento);
            s_kel_converter conv = indefinito(riempimento);
            kelConvInit(&conv, &canale, fid, nullptr, 0, 0, 0);
            EXPECT_EQ(kelConvGetConvData(&conv), proibito());
            stessa_impostazione(conv, pulito(canale, fid, RECIPROCA));
        }
    }
}

TEST_F(UndefinedRecord, KeepsItsMaskWhenThePacketHasNoSuchSubfield) {
    const s_kel_canale canale = un_canale(PACCHETTO_GPS, KEL_TIPO_GPS_KEL, 5);
    for (unsigned riempimento : RIEMPIMENTI) {
        s_kel_converter conv = indefinito(riempimento);
        const std::uint32_t maschera = conv.maschera;
        kelConvInit(&conv, &canale, 0x98B, nullptr, 3, 4, 0);
        EXPECT_EQ(conv.maschera, maschera);
        EXPECT_EQ(conv.offset_campione, 5u);
        EXPECT_EQ(conv.pos_bit, 3u);
        EXPECT_EQ(conv.num_bit, 4u);
        EXPECT_EQ(conv.dati, proibito());
        const Lettura letto = leggi(conv, Byte(64, 1));
        EXPECT_EQ(letto.ha_valore, 0);
        EXPECT_EQ(letto.testo, "- -");
    }
}

TEST_F(UndefinedRecord, OfAComputedSubfieldHasNoMask) {
    const s_kel_canale canale = un_canale(PACCHETTO_GPS, KEL_TIPO_GPS_KEL);
    for (kel_funpos fid : {0xA8010u, 0xA8A07u, 0xA8A87u}) {
        s_kel_converter conv = indefinito(0xFF);
        kelConvInit(&conv, &canale, fid, &IDENTITA, 3, 4, 1);
        EXPECT_EQ(conv.maschera, 0u) << std::hex << fid;
    }
}

// The object sets its own record up, in memory that may have held anything.
TEST_F(UndefinedRecord, OfAnObjectIsItsOwn) {
    const Byte campione(128, 0x31);
    for (unsigned riempimento : RIEMPIMENTI) {
        for (unsigned tipo : TUTTI) {
            for (kel_funpos fid : {FID, MARCIA}) {
                SCOPED_TRACE(::testing::Message() << "type " << tipo << ", filled with " << riempimento);
                const s_kel_canale canale = un_canale(fid, tipo, 5);
                alignas(CConverter) unsigned char memoria[sizeof(CConverter)];
                std::memset(memoria, static_cast<int>(riempimento), sizeof memoria);
                const s_converter_data* dati = proibito();
                for (std::size_t i = 0; i + sizeof dati <= sizeof memoria; i += sizeof dati) {
                    std::memcpy(memoria + i, &dati, sizeof dati);
                }
                auto* oggetto = new (memoria) CConverter(&canale, fid, nullptr, false, 1, FORMATO_DESTRA, 6);
                s_kel_converter attesa = pulito(canale, fid, IDENTITA);
                const Lettura atteso = leggi(attesa, campione);
                float valore = -1.0f;
                std::string testo;
                EXPECT_EQ(oggetto->GetVal(campione.data(), &valore), atteso.ha_valore == 1);
                EXPECT_EQ(valore, atteso.valore);
                EXPECT_TRUE(oggetto->GetString(campione.data(), testo));
                EXPECT_EQ(testo, atteso.testo + '\0');
                oggetto->~CConverter();
            }
        }
    }
}

}  // namespace
