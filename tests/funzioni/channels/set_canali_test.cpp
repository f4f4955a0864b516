// The channel set: the caller's channel records, with index bounds that differ from function to function.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "kelfunzioni.h"

namespace {

static_assert(sizeof(s_kel_canale) == 112 && alignof(s_kel_canale) == 1, "the record lies at any address");
static_assert(offsetof(s_kel_canale, indice) == 0 && offsetof(s_kel_canale, fid) == 12);
static_assert(offsetof(s_kel_canale, tipo_campione) == 20 && offsetof(s_kel_canale, breve) == 24);
static_assert(offsetof(s_kel_canale, nome) == 32 && offsetof(s_kel_canale, offset_campione) == 68);
static_assert(offsetof(s_kel_canale, dim_buffer) == 72);
static_assert(sizeof(s_kel_canale::breve) == 8 && sizeof(s_kel_canale::nome) == 36);

class ChannelSet : public ::testing::Test {
protected:
    // Four records full of rubbish, and a fifth that never belongs to the set.
    void SetUp() override { std::memset(canali_, 0xA5, sizeof canali_); }

    void lega(unsigned totale, unsigned usati) { kelFunInit(&set_, canali_, totale, usati); }

    bool pieno(unsigned indice, unsigned char valore) const {
        const auto* byte = reinterpret_cast<const unsigned char*>(&canali_[indice]);
        for (std::size_t i = 0; i < sizeof(s_kel_canale); ++i) {
            if (byte[i] != valore) {
                return false;
            }
        }
        return true;
    }

    s_kel_canale canali_[5];
    s_set_canali set_{};
};

TEST_F(ChannelSet, InitStoresItsThreeValuesWithoutACheck) {
    lega(4, 0);
    EXPECT_EQ(set_.canali, canali_);
    EXPECT_EQ(set_.totale, 4u);
    EXPECT_EQ(set_.usati, 0u);
    lega(2, 99);
    EXPECT_EQ(set_.totale, 2u);
    EXPECT_EQ(set_.usati, 99u);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 99u);
    EXPECT_EQ(kelFunGetNumChTot(&set_), 2u);
    kelFunInit(&set_, nullptr, 0xFFFFFFFFu, 0xFFFFFFFFu);
    EXPECT_EQ(set_.canali, nullptr);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 0xFFFFFFFFu);
    EXPECT_EQ(kelFunGetNumChTot(&set_), 0xFFFFFFFFu);
}

TEST_F(ChannelSet, HandsOutClearedRecordsUntilItIsFull) {
    lega(4, 0);
    for (unsigned i = 0; i < 4; ++i) {
        s_kel_canale* canale = kelFunGetFreeCh(&set_);
        ASSERT_EQ(canale, &canali_[i]);
        EXPECT_EQ(canale->indice + 0, static_cast<int>(i));
        const auto* byte = reinterpret_cast<const unsigned char*>(canale);
        for (std::size_t posto = 2; posto < sizeof(s_kel_canale); ++posto) {
            ASSERT_EQ(byte[posto], 0) << "byte " << posto << " of record " << i;
        }
        EXPECT_EQ(kelFunGetNumChUsed(&set_), i + 1);
        EXPECT_TRUE(pieno(i + 1, 0xA5)) << "the next record is not looked at";
    }
    EXPECT_EQ(kelFunGetFreeCh(&set_), nullptr);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 4u);
    EXPECT_EQ(kelFunGetNumChTot(&set_), 4u);
    EXPECT_TRUE(pieno(4, 0xA5)) << "a full set writes nothing";
}

TEST_F(ChannelSet, IsFullAlsoWhenMoreAreUsedThanThereAre) {
    lega(2, 3);
    EXPECT_EQ(kelFunGetFreeCh(&set_), nullptr);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 3u);
    lega(0, 0);
    EXPECT_EQ(kelFunGetFreeCh(&set_), nullptr);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 0u);
}

TEST(ChannelIndex, KeepsTheLowSixteenBitsLowByteFirst) {
    constexpr unsigned CANALI = 0x10003;
    std::vector<s_kel_canale> canali(CANALI);
    s_set_canali set;
    for (unsigned usati : {0x1234u, 0xFFFFu, 0x10000u, 0x10002u}) {
        kelFunInit(&set, canali.data(), CANALI, usati);
        const s_kel_canale* canale = kelFunGetFreeCh(&set);
        ASSERT_EQ(canale, &canali[usati]);
        const auto* byte = reinterpret_cast<const unsigned char*>(canale);
        EXPECT_EQ(byte[0], usati & 0xFF);
        EXPECT_EQ(byte[1], usati >> 8 & 0xFF);
        EXPECT_EQ(byte[2], 0);
    }
}

TEST_F(ChannelSet, TakesTheLastRecordBackAsItStands) {
    lega(4, 2);
    EXPECT_EQ(kelFunFreeLastCh(&set_), 1);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 1u);
    EXPECT_TRUE(pieno(1, 0xA5)) << "the record is not cleared";
    EXPECT_EQ(kelFunFreeLastCh(&set_), 1);
    EXPECT_EQ(kelFunFreeLastCh(&set_), 0);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 0u);
    EXPECT_EQ(kelFunFreeLastCh(&set_), 0);
}

TEST_F(ChannelSet, TakesBackWithoutLookingAtTheTotal) {
    lega(1, 3);
    EXPECT_EQ(kelFunFreeLastCh(&set_), 1);
    EXPECT_EQ(kelFunGetNumChUsed(&set_), 2u);
}

TEST_F(ChannelSet, HandsARecordOutAgainAfterItWasGivenBack) {
    lega(4, 0);
    s_kel_canale* primo = kelFunGetFreeCh(&set_);
    primo->fid = 99;
    kelFunFreeLastCh(&set_);
    EXPECT_EQ(kelFunGetFreeCh(&set_), primo);
    EXPECT_EQ(primo->fid + 0u, 0u);
}

TEST_F(ChannelSet, RecordOfAnIndexMustBeUsedAndThere) {
    lega(4, 2);
    EXPECT_EQ(kelFunGetCanale(&set_, 0), &canali_[0]);
    EXPECT_EQ(kelFunGetCanale(&set_, 1), &canali_[1]);
    EXPECT_EQ(kelFunGetCanale(&set_, 2), nullptr);
    EXPECT_EQ(kelFunGetCanale(&set_, 3), nullptr);
    EXPECT_EQ(kelFunGetCanale(&set_, 4), nullptr);
    EXPECT_EQ(kelFunGetCanale(&set_, 0xFFFFFFFFu), nullptr);
    lega(2, 4);
    EXPECT_EQ(kelFunGetCanale(&set_, 1), &canali_[1]);
    EXPECT_EQ(kelFunGetCanale(&set_, 2), nullptr) << "used, but above the total";
}

TEST_F(ChannelSet, NamesReachOneRecordFurther) {
    lega(4, 2);
    for (unsigned i = 0; i <= 2; ++i) {
        EXPECT_EQ(kelFunGetNomeCanale(&set_, i), canali_[i].nome) << i;
        EXPECT_EQ(kelFunGetNomeCanaleShort(&set_, i), canali_[i].breve) << i;
    }
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 3), nullptr);
    EXPECT_EQ(kelFunGetNomeCanaleShort(&set_, 3), nullptr);
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 0xFFFFFFFFu), nullptr);
    EXPECT_EQ(kelFunGetNomeCanaleShort(&set_, 0xFFFFFFFFu), nullptr);
}

TEST_F(ChannelSet, NamesOfAFullSetReachTheIndexOfItsTotal) {
    lega(4, 4);
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 4), canali_[4].nome);
    EXPECT_EQ(kelFunGetNomeCanaleShort(&set_, 4), canali_[4].breve);
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 5), nullptr);
    lega(2, 4);
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 2), canali_[2].nome);
    EXPECT_EQ(kelFunGetNomeCanale(&set_, 3), nullptr) << "above the total";
    EXPECT_EQ(kelFunGetNomeCanaleShort(&set_, 3), nullptr) << "above the total";
}

TEST_F(ChannelSet, NamesAreReadInPlace) {
    lega(4, 0);
    s_kel_canale* canale = kelFunGetFreeCh(&set_);
    std::strcpy(canale->breve, "RPM");
    std::strcpy(canale->nome, "Engine speed");
    EXPECT_STREQ(kelFunGetNomeCanale(&set_, 0), "Engine speed");
    EXPECT_STREQ(kelFunGetNomeCanaleShort(&set_, 0), "RPM");
    std::strcpy(canale->nome, "Another");
    EXPECT_STREQ(kelFunGetNomeCanale(&set_, 0), "Another");
}

TEST_F(ChannelSet, SumsTheSampleBuffersOfTheUsedRecords) {
    const std::uint32_t dimensioni[] = {4, 56, 1000, 0x12345678};
    for (unsigned i = 0; i < 4; ++i) {
        canali_[i].dim_buffer = dimensioni[i];
    }
    lega(4, 0);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 0u);
    lega(4, 1);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 4u);
    lega(4, 3);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 1060u);
    lega(4, 4);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 0x12345678u + 1060u);
    lega(1, 3);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 1060u) << "the total is not looked at";
}

TEST_F(ChannelSet, SumOfTheSampleBuffersWraps) {
    canali_[0].dim_buffer = 0xFFFFFFFFu;
    canali_[1].dim_buffer = 0x80000000u;
    canali_[2].dim_buffer = 0x80000011u;
    lega(4, 2);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 0x7FFFFFFFu);
    lega(4, 3);
    EXPECT_EQ(kelFunGetSizeBufferValori(&set_), 0x10u);
}

TEST(ChannelSetWithoutArray, AnswersNullOrZero) {
    s_set_canali set;
    for (unsigned usati : {0u, 3u}) {
        kelFunInit(&set, nullptr, 4, usati);
        EXPECT_EQ(kelFunGetFreeCh(&set), nullptr);
        EXPECT_EQ(kelFunFreeLastCh(&set), 0);
        EXPECT_EQ(kelFunGetCanale(&set, 0), nullptr);
        EXPECT_EQ(kelFunGetSizeBufferValori(&set), 0u);
        EXPECT_EQ(kelFunGetNumChUsed(&set), usati) << "nothing changes";
        EXPECT_EQ(kelFunGetNumChTot(&set), 4u);
    }
}

TEST(ChannelSetWithoutArray, NamesAreTheAddressesOfTheLayout) {
    s_set_canali set;
    kelFunInit(&set, nullptr, 4, 3);
    for (unsigned i = 0; i <= 3; ++i) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(kelFunGetNomeCanale(&set, i)), i * 112u + 32u);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(kelFunGetNomeCanaleShort(&set, i)), i * 112u + 24u);
    }
    EXPECT_EQ(kelFunGetNomeCanale(&set, 4), nullptr);
    EXPECT_EQ(kelFunGetNomeCanaleShort(&set, 4), nullptr);
    kelFunInit(&set, nullptr, 0, 0);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(kelFunGetNomeCanale(&set, 0)), 32u);
    EXPECT_EQ(kelFunGetNomeCanale(&set, 1), nullptr);
}

TEST(ChannelSetAtAnyAddress, WorksOnMisalignedRecords) {
    for (std::size_t scarto = 0; scarto < 8; ++scarto) {
        alignas(8) unsigned char memoria[3 * sizeof(s_kel_canale) + 8];
        std::memset(memoria, 0xA5, sizeof memoria);
        auto* canali = reinterpret_cast<s_kel_canale*>(memoria + scarto);
        s_set_canali set;
        kelFunInit(&set, canali, 3, 0);
        for (unsigned i = 0; i < 3; ++i) {
            s_kel_canale* canale = kelFunGetFreeCh(&set);
            ASSERT_EQ(canale, canali + i);
            canale->fid = 0x10 + i;
            canale->dim_buffer = 0x01020304;
        }
        EXPECT_EQ(kelFunGetSizeBufferValori(&set), 0x0306090Cu);
        EXPECT_EQ(kelFunGetMatchCh(&set, 0x12), canali + 2);
        EXPECT_EQ(kelFunGetMatchChFull(&set, 0x11), canali + 1);
        EXPECT_EQ(memoria[scarto + 3 * sizeof(s_kel_canale)], 0xA5) << "nothing after the array is written";
    }
}

// --- the catalogue's own set ----------------------------------------------------------------------------------------

TEST(CatalogueChannels, WithoutAnArrayThereAreNone) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getNumChUsed(), 0u);
    EXPECT_EQ(catalogo->getFreeCh(), nullptr);
    EXPECT_EQ(catalogo->getCanale(0), nullptr);
    EXPECT_EQ(catalogo->getSizeBufferValori(), 0u);
    EXPECT_EQ(catalogo->getMatchCh(0), nullptr);
}

TEST(CatalogueChannels, AllCountAsUsedFromTheStart) {
    s_kel_canale canali[8];
    std::memset(canali, 0, sizeof canali);
    for (unsigned i = 0; i < 8; ++i) {
        canali[i].dim_buffer = 10 + i;
        canali[i].fid = 0x10 + i;
    }
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, 8));
    EXPECT_EQ(catalogo->getNumChUsed(), 8u);
    EXPECT_EQ(catalogo->getFreeCh(), nullptr);
    EXPECT_EQ(catalogo->getCanale(7), &canali[7]);
    EXPECT_EQ(catalogo->getCanale(8), nullptr);
    EXPECT_EQ(catalogo->getSizeBufferValori(), 108u);
    EXPECT_EQ(catalogo->getMatchCh(0x13), &canali[3]);
    EXPECT_EQ(catalogo->getMatchCh(0x1F), nullptr);
}

TEST(CatalogueChannels, NamesAreStrings) {
    s_kel_canale canali[2];
    std::memset(canali, 0, sizeof canali);
    std::strcpy(canali[0].nome, "Water temperature");
    std::strcpy(canali[0].breve, "WatT");
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, 1));
    EXPECT_EQ(catalogo->getNomeCanale(0), "Water temperature");
    EXPECT_EQ(catalogo->getNomeCanaleShort(0), "WatT");
    EXPECT_EQ(catalogo->getNomeCanale(1), "") << "one past the last is read as it stands";
}

TEST(CatalogueChannels, NameOfAnIndexOutOfRangeThrows) {
    s_kel_canale canali[2];
    std::memset(canali, 0, sizeof canali);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, 1));
    EXPECT_THROW(catalogo->getNomeCanale(2), std::logic_error);
    EXPECT_THROW(catalogo->getNomeCanaleShort(2), std::logic_error);
    EXPECT_THROW(catalogo->getNomeCanale(0xFFFFFFFFu), std::logic_error);
}

}  // namespace
