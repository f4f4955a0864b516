// Which bytes the reads touch: a page that may not be touched lies right before or right after every sample, packet,
// channel record and output. A read outside ends the program. Then the same samples at every alignment.
#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <vector>

#include "CConverter.h"
#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "converters/lettura.h"

using namespace kel_test;

namespace {

std::vector<Byte> riempimenti(std::size_t byte) {
    std::vector<Byte> tutti;
    for (int valore : {0x00, 0x01, 0x35, 0x7F, 0x80, 0xFF}) {
        tutti.emplace_back(byte, static_cast<unsigned char>(valore));
    }
    Byte scala(byte);
    for (std::size_t i = 0; i < byte; ++i) {
        scala[i] = static_cast<unsigned char>(i * 37 + 1);
    }
    tutti.push_back(scala);
    return tutti;
}

const s_converter_data* const DATI[] = {&IDENTITA, &DOPPIO_PIU_CINQUE, &RECIPROCA};

struct Esito {
    int ha_valore;
    std::uint32_t valore;
    int ha_testo;
    std::string testo;
    bool operator==(const Esito&) const = default;
};

Esito leggi_da(s_kel_converter conv, const unsigned char* campione) {
    Esito esito;
    float valore = -1.0f;
    esito.ha_valore = kelConvGetValFloat(&conv, campione, &valore);
    esito.valore = std::bit_cast<std::uint32_t>(valore);
    char testo[32];
    esito.ha_testo = kelConvGetString(&conv, campione, testo);
    esito.testo.assign(testo, sizeof testo);
    return esito;
}

// Every converter of a packet or plain sample type that reads `byte` bytes, one after the other.
template <typename Funzione>
void per_ogni_convertitore(Funzione&& fai) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
        const std::size_t byte = kelFunGetSamplSize(tipo);
        for (const s_converter_data* dati : DATI) {
            for (unsigned short num_bit : {static_cast<unsigned short>(0), static_cast<unsigned short>(3)}) {
                for (std::uint32_t larghezza : {4u, 5u}) {
                    Impostazione come;
                    come.dati = dati;
                    come.num_bit = num_bit;
                    come.larghezza = larghezza;
                    come.decimali = 1;
                    fai(convertitore(tipo, come), byte, tipo, kel_funpos{0});
                    come.fid_canale = kelFidComponi(FID_PHI_GEAR, 0, 0);
                    fai(convertitore(tipo, come), byte, tipo, kel_funpos{0});
                }
            }
        }
    }
    const std::pair<kel_funpos, unsigned> pacchetti[] = {{PACCHETTO_GPS, 8},
                                                         {PACCHETTO_UBX, 9},
                                                         {PACCHETTO_GIRO2_G, 7},
                                                         {PACCHETTO_GIRO1_G, 17},
                                                         {PACCHETTO_GIRO2_GV2, 7}};
    for (const auto& [pacchetto, tipo] : pacchetti) {
        std::list<kel_funpos> interni;
        CConverter::getAllInnerFunpos(pacchetto, interni);
        for (kel_funpos fid : interni) {
            for (const s_converter_data* dati : DATI) {
                fai(sottocampo(pacchetto, tipo, fid, dati), kelFunGetSamplSize(tipo), tipo, fid);
            }
        }
    }
}

class GuardPages : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(recinto_.pronto()) << "mmap or mprotect failed"; }
    Recinto recinto_;
};

TEST_F(GuardPages, NothingIsReadAfterASample) {
    unsigned letti = 0;
    per_ogni_convertitore([&](const s_kel_converter& conv, std::size_t byte, unsigned tipo, kel_funpos fid) {
        for (const Byte& contenuto : riempimenti(byte)) {
            unsigned char* campione = recinto_.in_fondo(byte);
            std::copy(contenuto.begin(), contenuto.end(), campione);
            const Esito esito = leggi_da(conv, campione);
            EXPECT_NE(esito.testo.find('\0'), std::string::npos) << "type " << tipo << ", subfield " << fid;
            ++letti;
        }
    });
    EXPECT_GT(letti, 3000u);
}

TEST_F(GuardPages, NothingIsReadBeforeASample) {
    per_ogni_convertitore([&](const s_kel_converter& conv, std::size_t byte, unsigned tipo, kel_funpos fid) {
        for (const Byte& contenuto : riempimenti(byte)) {
            std::copy(contenuto.begin(), contenuto.end(), recinto_.in_testa());
            const Esito esito = leggi_da(conv, recinto_.in_testa());
            EXPECT_NE(esito.testo.find('\0'), std::string::npos) << "type " << tipo << ", subfield " << fid;
        }
    });
}

TEST_F(GuardPages, BytesRoundASampleDoNotChangeItsReading) {
    per_ogni_convertitore([&](const s_kel_converter& conv, std::size_t byte, unsigned tipo, kel_funpos fid) {
        for (const Byte& contenuto : riempimenti(byte)) {
            Byte zeri(byte + 128, 0);
            Byte uni(byte + 128, 0xFF);
            std::copy(contenuto.begin(), contenuto.end(), zeri.begin() + 64);
            std::copy(contenuto.begin(), contenuto.end(), uni.begin() + 64);
            ASSERT_EQ(leggi_da(conv, zeri.data() + 64), leggi_da(conv, uni.data() + 64))
                << "type " << tipo << ", subfield 0x" << std::hex << fid;
        }
    });
}

TEST_F(GuardPages, ASampleInARecordIsReadInItsPlaceOnly) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
        const unsigned byte = kelFunGetSamplSize(tipo);
        const s_kel_canale canale = un_canale(FID, tipo, 200);
        s_kel_converter conv{};
        conv.larghezza = 4;
        kelConvInit(&conv, &canale, FID, &IDENTITA, 0, 0, 0);
        // The record would begin 200 bytes before the sample; only the sample itself may be touched.
        unsigned char* fondo = recinto_.in_fondo(byte);
        std::fill_n(fondo, byte, static_cast<unsigned char>(0x33));
        leggi_da(conv, fondo - 200);
    }
}

TEST_F(GuardPages, TheTextIsWrittenInsideItsThirtyTwoBytes) {
    for (bool in_fondo : {true, false}) {
        char* testo = reinterpret_cast<char*>(in_fondo ? recinto_.in_fondo(32) : recinto_.in_testa());
        per_ogni_convertitore([&](s_kel_converter conv, std::size_t byte, unsigned tipo, kel_funpos fid) {
            for (std::uint32_t larghezza : {0u, 1u, 5u, 31u, 32u, 33u, 64u, 0xFFFFFFFFu}) {
                for (std::uint32_t decimali : {0u, 3u, 0xFFFFFFFFu}) {
                    for (int formato = 0; formato < 3; ++formato) {
                        conv.larghezza = larghezza;
                        conv.decimali = decimali;
                        conv.formato = static_cast<eFormatoConv>(formato);
                        const Byte campione(byte, 0x81);
                        std::memset(testo, 'x', 32);
                        kelConvGetString(&conv, campione.data(), testo);
                        ASSERT_LT(strnlen(testo, 32), 32u)
                            << "type " << tipo << ", subfield " << fid << ", width " << larghezza;
                    }
                }
            }
        });
    }
}

TEST_F(GuardPages, OnlyTheChannelRecordIsReadAtSetUp) {
    for (bool in_fondo : {true, false}) {
        unsigned char* posto = in_fondo ? recinto_.in_fondo(sizeof(s_kel_canale)) : recinto_.in_testa();
        for (unsigned tipo = 0; tipo <= kel_test::TIPI_CAMPIONE; ++tipo) {
            for (kel_funpos fid : {FID, PACCHETTO_GPS, PACCHETTO_GIRO1_G}) {
                const s_kel_canale canale = un_canale(fid, tipo, 7);
                std::memcpy(posto, &canale, sizeof canale);
                s_kel_converter conv{};
                kelConvInit(&conv, reinterpret_cast<const s_kel_canale*>(posto), 0xA940B, &IDENTITA, 0, 0, 0);
                EXPECT_GE(kelConvGetOffset(&conv), 7u);
            }
        }
    }
}

TEST(AnyAlignment, OfASampleGivesTheSameReading) {
    per_ogni_convertitore([&](const s_kel_converter& conv, std::size_t byte, unsigned tipo, kel_funpos fid) {
        for (const Byte& contenuto : riempimenti(byte)) {
            alignas(8) unsigned char memoria[80];
            Esito primo;
            for (std::size_t scarto = 0; scarto < 8; ++scarto) {
                std::copy(contenuto.begin(), contenuto.end(), memoria + scarto);
                const Esito esito = leggi_da(conv, memoria + scarto);
                if (scarto == 0) {
                    primo = esito;
                }
                ASSERT_EQ(esito, primo) << "type " << tipo << ", subfield 0x" << std::hex << fid << ", offset "
                                        << scarto;
            }
        }
    });
}

TEST(AnyAlignment, OfAChannelRecordGivesTheSameConverter) {
    alignas(8) unsigned char memoria[sizeof(s_kel_canale) + 8];
    for (std::size_t scarto = 0; scarto < 8; ++scarto) {
        const s_kel_canale canale = un_canale(PACCHETTO_GPS, 8, 5);
        std::memcpy(memoria + scarto, &canale, sizeof canale);
        const auto* storto = reinterpret_cast<const s_kel_canale*>(memoria + scarto);
        s_kel_converter conv{};
        conv.larghezza = 4;
        kelConvInit(&conv, storto, 0xA940B, &IDENTITA, 0, 0, 0);
        EXPECT_EQ(kelConvGetOffset(&conv), 56u);
        CConverter oggetto(storto, 0xA940B, &IDENTITA, true, 0, FORMATO_DESTRA, 4);
        Byte pacchetto(56, 0);
        pacchetto[51] = 12;
        float valore = 0.0f;
        EXPECT_TRUE(oggetto.GetVal(pacchetto.data(), &valore));
        EXPECT_EQ(valore, 12.0f);
    }
}

}  // namespace
