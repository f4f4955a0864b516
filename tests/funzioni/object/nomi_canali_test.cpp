// Default channel names of the subfields of GPS and lap packets.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "IFunzioni.h"

namespace {

using Nomi = std::map<unsigned, IFunzioni::NomiDefaultCanale>;

struct Voce {
    unsigned fid;
    const char* breve;
    const char* nome;
};

void controlla(const Nomi& nomi, const std::vector<Voce>& attese) {
    EXPECT_EQ(nomi.size(), attese.size());
    for (const Voce& voce : attese) {
        const auto trovata = nomi.find(voce.fid);
        ASSERT_NE(trovata, nomi.end()) << std::hex << voce.fid;
        EXPECT_EQ(trovata->second.breve, voce.breve);
        EXPECT_EQ(trovata->second.nome, voce.nome);
    }
}

class DefaultNames : public ::testing::Test {
protected:
    const std::unique_ptr<const IFunzioni> catalogo_{IFunzioni::CreateMe()};
};

const std::vector<Voce> GPS = {{0xA940B, "nSV", "Sats Number"},
                               {0xA8010, "Spd", "GPS Speed"},
                               {0xA8A07, "Lat", "Latitude"},
                               {0xA8A87, "Lon", "Longitude"}};
const std::vector<Voce> TEMPI = {{0x992, "LapT", "Lap Time"},
                                 {0x1712, "RunT", "Rolling Time"},
                                 {0x1392, "PreT", "Predictive Time"},
                                 {0x1B92, "PT+-", "+- Best Time"}};
const std::vector<Voce> NUMERO = {{0x98B, "nLap", "Lap Number"}};

TEST_F(DefaultNames, OfAGpsPacketAreThoseOfItsNamedRows) {
    Nomi nomi;
    catalogo_->getCanaliGPS(nomi);
    controlla(nomi, GPS);
    for (unsigned senza_nome : {0xA9512u, 0xA9986u, 0xA998Cu, 0xA9994u, 0xB9D20u}) {
        EXPECT_EQ(nomi.count(senza_nome), 0u) << std::hex << senza_nome;
    }
}

TEST_F(DefaultNames, OfLapTimes) {
    Nomi nomi;
    catalogo_->getCanaliLapTime(nomi);
    controlla(nomi, TEMPI);
}

TEST_F(DefaultNames, OfTheLapNumber) {
    Nomi nomi;
    catalogo_->getCanaliLapNum(nomi);
    controlla(nomi, NUMERO);
}

TEST_F(DefaultNames, AskedTwiceAreThereOnce) {
    Nomi nomi;
    catalogo_->getCanaliLapTime(nomi);
    catalogo_->getCanaliLapTime(nomi);
    EXPECT_EQ(nomi.size(), 4u);
    catalogo_->getCanaliGPS(nomi);
    catalogo_->getCanaliGPS(nomi);
    catalogo_->getCanaliLapNum(nomi);
    catalogo_->getCanaliLapNum(nomi);
    EXPECT_EQ(nomi.size(), 9u);
}

TEST_F(DefaultNames, NeverReplaceAnEntry) {
    Nomi nomi;
    nomi[0x992] = {"mine", "My own name"};
    nomi[0x98B] = {"", ""};
    nomi[0xA8010] = {"v", "Velocity"};
    nomi[5] = {"x", "Something else"};
    catalogo_->getCanaliLapTime(nomi);
    catalogo_->getCanaliLapNum(nomi);
    catalogo_->getCanaliGPS(nomi);
    EXPECT_EQ(nomi.size(), 10u);
    EXPECT_EQ(nomi[0x992].breve, "mine");
    EXPECT_EQ(nomi[0x992].nome, "My own name");
    EXPECT_EQ(nomi[0x98B].breve, "");
    EXPECT_EQ(nomi[0x98B].nome, "");
    EXPECT_EQ(nomi[0xA8010].nome, "Velocity");
    EXPECT_EQ(nomi[5].nome, "Something else");
}

}  // namespace
