// The catalogue object: creation, its channels, character conversion, formats.
#include <CFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <array>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "tables/aiuti.h"

namespace {

using Catalogo = std::unique_ptr<IFunzioni>;

// Nine channels, so that eight can be bound and one stands behind them.
class CatalogueWithChannels : public ::testing::Test {
protected:
    CatalogueWithChannels() {
        for (unsigned i = 0; i < canali_.size(); ++i) {
            canali_[i].fid = 0x00000011u + (i << 7);
            canali_[i].dim_buffer = 100u + i;
            std::strcpy(canali_[i].breve, "S0");
            std::strcpy(canali_[i].nome, "Channel 0");
            canali_[i].breve[1] = canali_[i].nome[8] = static_cast<char>('0' + i);
        }
        canali_[3].fid = 0x00000010;
        catalogo_.reset(IFunzioni::CreateMe(canali_.data(), 8));
    }
    std::array<s_kel_canale, 9> canali_ = {};
    Catalogo catalogo_;
};

TEST(CatalogueWithoutChannels, ReportsNone) {
    const Catalogo catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getNumChUsed(), 0u);
    EXPECT_EQ(catalogo->getSizeBufferValori(), 0u);
    EXPECT_EQ(catalogo->getCanale(0), nullptr);
    EXPECT_EQ(catalogo->getFreeCh(), nullptr) << "the total is 0 too";
    EXPECT_EQ(catalogo->getMatchCh(0), nullptr);
    EXPECT_EQ(catalogo->getMatchCh(0x10), nullptr);
}

TEST(CatalogueWithoutChannels, HasNoChannelNames) {
    const Catalogo catalogo(IFunzioni::CreateMe());
    for (const unsigned indice : {0u, 1u, 7u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(indice);
        EXPECT_THROW(catalogo->getNomeCanale(indice), std::logic_error);
        EXPECT_THROW(catalogo->getNomeCanaleShort(indice), std::logic_error);
    }
}

// A string built from a null pointer.
TEST(CatalogueWithoutChannels, SaysOfAMissingNameWhatTheStandardLibrarySays) {
    const Catalogo catalogo(IFunzioni::CreateMe());
    try {
        catalogo->getNomeCanale(0);
        FAIL() << "there is no channel";
    } catch (const std::logic_error& errore) {
        EXPECT_STREQ(errore.what(), "basic_string: construction from null is not valid");
    }
}

TEST_F(CatalogueWithChannels, CountsThemAllAsUsed) {
    EXPECT_EQ(catalogo_->getNumChUsed(), 8u);
    EXPECT_EQ(catalogo_->getFreeCh(), nullptr) << "the total is 8 too";
    EXPECT_EQ(catalogo_->getNumChUsed(), 8u);
}

TEST_F(CatalogueWithChannels, GivesTheCallersRecords) {
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_EQ(catalogo_->getCanale(i), &canali_[i]) << i;
    EXPECT_EQ(catalogo_->getCanale(8), nullptr);
    EXPECT_EQ(catalogo_->getCanale(0xFFFFFFFF), nullptr);
}

TEST_F(CatalogueWithChannels, NamesThem) {
    EXPECT_EQ(catalogo_->getNomeCanale(0), "Channel 0");
    EXPECT_EQ(catalogo_->getNomeCanale(7), "Channel 7");
    EXPECT_EQ(catalogo_->getNomeCanaleShort(0), "S0");
    EXPECT_EQ(catalogo_->getNomeCanaleShort(7), "S7");
}

// One record past the last used one is read as it stands.
TEST_F(CatalogueWithChannels, NamesTheRecordBehindThem) {
    EXPECT_EQ(catalogo_->getNomeCanale(8), "Channel 8");
    EXPECT_EQ(catalogo_->getNomeCanaleShort(8), "S8");
}

// A record's texts end with their fields, of 36 and 8 characters, where the caller left no NUL.
TEST_F(CatalogueWithChannels, NamesEndWithTheirFields) {
    std::memcpy(canali_[2].nome, "A name of thirty-six characters, all", 36);
    std::memcpy(canali_[2].breve, "EIGHT CH", 8);
    canali_[2].offset_campione = 0x44434241;  // what lies behind the name
    EXPECT_EQ(catalogo_->getNomeCanale(2), "A name of thirty-six characters, all");
    EXPECT_EQ(catalogo_->getNomeCanaleShort(2), "EIGHT CH");
}

TEST_F(CatalogueWithChannels, ThrowsForANameOutOfRange) {
    for (const unsigned indice : {9u, 10u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(indice);
        EXPECT_THROW(catalogo_->getNomeCanale(indice), std::logic_error);
        EXPECT_THROW(catalogo_->getNomeCanaleShort(indice), std::logic_error);
    }
}

TEST_F(CatalogueWithChannels, SumsTheirSampleBuffers) {
    EXPECT_EQ(catalogo_->getSizeBufferValori(), 828u);
    canali_[0].dim_buffer = 0xFFFFFFFF;
    EXPECT_EQ(catalogo_->getSizeBufferValori(), 727u) << "modulo 2^32";
}

TEST_F(CatalogueWithChannels, FindsTheOneThatCarriesAFunction) {
    EXPECT_EQ(catalogo_->getMatchCh(0x10), &canali_[3]);
    EXPECT_EQ(catalogo_->getMatchCh(0x11), &canali_[0]);
    EXPECT_EQ(catalogo_->getMatchCh(0), &canali_[0]);
    EXPECT_EQ(catalogo_->getMatchCh(0x411), nullptr) << "the ninth is not bound";
}

TEST_F(CatalogueWithChannels, LooksAtTheRecordsAsTheyAre) {
    std::strcpy(canali_[2].nome, "renamed");
    canali_[5].fid = 0x0000000F;
    EXPECT_EQ(catalogo_->getNomeCanale(2), "renamed");
    EXPECT_EQ(catalogo_->getMatchCh(0x0F), &canali_[5]);
}

TEST_F(CatalogueWithChannels, LeavesTheRecordsAlone) {
    const std::array<s_kel_canale, 9> prima = canali_;
    catalogo_->getFreeCh();
    catalogo_->getNomeCanale(1);
    catalogo_->getMatchCh(0x10);
    catalogo_.reset();
    EXPECT_EQ(std::memcmp(prima.data(), canali_.data(), sizeof prima), 0);
}

// Records are read byte by byte: the array may lie at any address.
TEST(CatalogueWithChannelsAtAnOddAddress, WorksTheSame) {
    std::array<unsigned char, 2 * sizeof(s_kel_canale) + 1> memoria = {};
    unsigned char* inizio = memoria.data() + 1;
    const auto scrivi = [&](std::size_t dove, std::uint32_t valore) {
        for (unsigned i = 0; i < 4; ++i)
            inizio[dove + i] = static_cast<unsigned char>(valore >> 8 * i);
    };
    scrivi(12, 0x00048611);
    scrivi(72, 1000);
    std::memcpy(inizio + 32, "Gearbox", 8);
    scrivi(112 + 12, 0x00000010);
    scrivi(112 + 72, 24);
    std::memcpy(inizio + 112 + 24, "Spd", 4);
    const Catalogo catalogo(IFunzioni::CreateMe(reinterpret_cast<s_kel_canale*>(inizio), 2));
    EXPECT_EQ(catalogo->getSizeBufferValori(), 1024u);
    EXPECT_EQ(catalogo->getNomeCanale(0), "Gearbox");
    EXPECT_EQ(catalogo->getNomeCanaleShort(1), "Spd");
    EXPECT_EQ(static_cast<void*>(catalogo->getMatchCh(0x10)), static_cast<void*>(inizio + 112));
}

TEST(Catalogue, WithANullArrayHasNoChannels) {
    const Catalogo catalogo(IFunzioni::CreateMe(nullptr, 8));
    EXPECT_EQ(catalogo->getNumChUsed(), 8u);
    EXPECT_EQ(catalogo->getCanale(0), nullptr);
    EXPECT_EQ(catalogo->getFreeCh(), nullptr);
    EXPECT_EQ(catalogo->getSizeBufferValori(), 0u);
    EXPECT_EQ(catalogo->getMatchCh(0), nullptr);
}

TEST(Formats, AreNoneForAnyFunction) {
    const Catalogo catalogo(IFunzioni::CreateMe());
    for (const kel_funpos fid : {0x00000000u, 0x00000010u, 0x00048611u, 0x0000019Au, 0x000B9D20u, 0xFFFFFFFFu}) {
        unsigned formati = 0xDEADBEEF;
        EXPECT_EQ(catalogo->getFormati(fid, &formati), 0) << attesi::descrivi(fid);
        EXPECT_EQ(formati, 0xDEADBEEFu) << attesi::descrivi(fid);
        EXPECT_EQ(catalogo->getFormati(fid, nullptr), 0) << attesi::descrivi(fid);
    }
}

TEST(CharacterConversion, ReturnsEveryTextUnchanged) {
    const CFunzioni catalogo;
    std::string tutti;
    for (int c = 0; c < 256; ++c)
        tutti += static_cast<char>(c);
    const std::string testi[] = {
        "", "km/h", "\xB0\x43 \xE8\xFF\x80", std::string("a\0b\0", 4), tutti, std::string(5000, '\xFE')};
    for (const std::string& testo : testi) {
        EXPECT_EQ(catalogo.ConvertiIn8(testo), testo);
        EXPECT_EQ(catalogo.ConvertiDa8(testo), testo);
    }
}

TEST(Catalogue, IsDestroyedThroughItsInterface) {
    static bool distrutto;
    struct Mio : CFunzioni {
        ~Mio() override { distrutto = true; }
    };
    distrutto = false;
    IFunzioni* catalogo = new Mio;
    delete catalogo;
    EXPECT_TRUE(distrutto);
}

TEST(Catalogue, IsMadeAsCFunzioni) {
    const Catalogo catalogo(IFunzioni::CreateMe());
    const IFunzioni& oggetto = *catalogo;
    EXPECT_EQ(typeid(oggetto), typeid(CFunzioni));
    EXPECT_NE(dynamic_cast<CFunzioni*>(catalogo.get()), nullptr);
    EXPECT_TRUE((std::is_base_of_v<IFunzioni, CFunzioni>));
    EXPECT_TRUE((std::is_abstract_v<IFunzioni>));
}

TEST(Catalogues, AreIndependent) {
    s_kel_canale canali[2] = {};
    const Catalogo uno(IFunzioni::CreateMe(canali, 2));
    const Catalogo due(IFunzioni::CreateMe());
    EXPECT_NE(uno.get(), due.get());
    EXPECT_EQ(uno->getNumChUsed(), 2u);
    EXPECT_EQ(due->getNumChUsed(), 0u);
}

}  // namespace
