// A simulated fleet: the same arguments write the same bytes; karts, circuits, days and faults differ.
#include "flotta.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>

namespace {

using namespace kel::simulatore;
namespace fs = std::filesystem;

class Cartella {
public:
    Cartella() : dove_(fs::temp_directory_path() / ("flotta-" + std::to_string(std::random_device()()))) {}
    ~Cartella() { fs::remove_all(dove_); }
    std::string nome() const { return dove_.string(); }

    // The bytes of each file, by its path within the folder.
    std::map<std::string, std::string> file() const {
        std::map<std::string, std::string> tutti;
        for (const auto& voce : fs::recursive_directory_iterator(dove_)) {
            if (!voce.is_regular_file())
                continue;
            std::ifstream flusso(voce.path(), std::ios::binary);
            tutti[fs::relative(voce.path(), dove_).string()] = {std::istreambuf_iterator<char>(flusso), {}};
        }
        return tutti;
    }

private:
    fs::path dove_;
};

std::map<std::string, std::string> scritta(unsigned quante, unsigned guaste, std::uint64_t seme) {
    const Cartella cartella;
    Flotta(quante, guaste, 1, 2, seme).scrivi(cartella.nome());
    return cartella.file();
}

TEST(Fleet, TheSameArgumentsWriteTheSameBytes) {
    const auto prima = scritta(25, 3, 7);
    EXPECT_EQ(prima, scritta(25, 3, 7));
    EXPECT_NE(prima, scritta(25, 3, 8));
}

TEST(Fleet, AsManyRecordingsAreDamagedAsAsked) {
    for (const unsigned guaste : {0u, 1u, 7u, 50u}) {
        const Flotta flotta(50, guaste, 3, 10, 1);
        unsigned trovate = 0;
        for (unsigned i = 0; i < 50; ++i)
            trovate += flotta.sessione(i).danno != Danno::nessuno;
        EXPECT_EQ(trovate, guaste);
    }
}

TEST(Fleet, SessionsDiffer) {
    const Flotta flotta(1000, 30, 3, 10, 1);
    std::set<std::string> nomi, cartelle;
    std::set<unsigned> circuiti, giri, frequenze;
    std::map<Guasto, unsigned> guasti;
    std::map<Danno, unsigned> danni;
    unsigned catture = 0;
    for (unsigned i = 0; i < 1000; ++i) {
        const Sessione s = flotta.sessione(i);
        EXPECT_TRUE(nomi.insert(s.cartella + "/" + s.nome).second) << "two recordings have one name";
        cartelle.insert(s.cartella.substr(0, s.cartella.find('/')));
        circuiti.insert(s.circuito);
        giri.insert(s.giri);
        frequenze.insert(s.frequenza);
        ++guasti[s.guasto];
        ++danni[s.danno];
        catture += s.cattura;
    }
    EXPECT_EQ(cartelle.size(), 10u);
    EXPECT_EQ(circuiti.size(), 5u);
    EXPECT_EQ(giri, (std::set<unsigned>{1, 2, 3}));
    EXPECT_EQ(frequenze, (std::set<unsigned>{5, 10}));
    EXPECT_EQ(guasti.size(), 4u);
    EXPECT_EQ(danni.size(), 4u);
    EXPECT_NEAR(catture, 97, 30);
}

TEST(Fleet, AFolderHasTheDateOfItsSession) {
    const Sessione s = Flotta(1000, 0, 3, 10, 1).sessione(40);
    EXPECT_EQ(s.cartella, "kart-001/2025-03-05");
    EXPECT_EQ(s.nome, "kart-001-0800");
}

}  // namespace
