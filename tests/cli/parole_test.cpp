// Wrong words and the right ones: distances, the nearest of several, and the words of people.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "domain/noti.h"
#include "domain/ricerca.h"
#include "domain/sinonimi.h"
#include "domain/tipi_campione.h"
#include "text/incorporati.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace {

using namespace kel::strumento;

TEST(Vicini, CountsInsertionsDeletionsChangesAndSwaps) {
    EXPECT_EQ(distanza("", ""), 0u);
    EXPECT_EQ(distanza("", "fid"), 3u);
    EXPECT_EQ(distanza("fid", ""), 3u);
    EXPECT_EQ(distanza("fid", "fidd"), 1u);
    EXPECT_EQ(distanza("find", "fid"), 1u);
    EXPECT_EQ(distanza("fod", "fid"), 1u);
    EXPECT_EQ(distanza("fdi", "fid"), 1u);
    EXPECT_EQ(distanza("tempreature", "temperature"), 1u);
    EXPECT_EQ(distanza("ca", "abc"), 3u);  // no place is changed twice
}

// Against the plain definition, term by term.
unsigned per_definizione(const std::string& a, const std::string& b) {
    if (a.empty() || b.empty())
        return static_cast<unsigned>(a.size() + b.size());
    const std::string prima_a = a.substr(0, a.size() - 1);
    const std::string prima_b = b.substr(0, b.size() - 1);
    unsigned minima = std::min({per_definizione(prima_a, b) + 1, per_definizione(a, prima_b) + 1,
                                per_definizione(prima_a, prima_b) + (a.back() == b.back() ? 0u : 1u)});
    if (a.size() > 1 && b.size() > 1 && a.back() == b[b.size() - 2] && a[a.size() - 2] == b.back())
        minima =
            std::min(minima, per_definizione(prima_a.substr(0, a.size() - 2), prima_b.substr(0, b.size() - 2)) + 1);
    return minima;
}

TEST(Vicini, DistanceIsThatOfItsDefinition) {
    std::mt19937 caso(14);
    const auto parola = [&caso] {
        std::string una;
        for (std::size_t n = caso() % 7; n > 0; --n)
            una += static_cast<char>('a' + caso() % 3);
        return una;
    };
    for (int giro = 0; giro < 2000; ++giro) {
        const std::string a = parola();
        const std::string b = parola();
        EXPECT_EQ(distanza(a, b), per_definizione(a, b)) << a << " " << b;
        EXPECT_EQ(distanza(a, b), distanza(b, a)) << a << " " << b;
    }
}

TEST(Vicini, OffersTheNearestAndNothingFarAway) {
    const std::vector<std::string> parole = {"convert", "camera", "catalogue", "functions", "--number"};
    EXPECT_EQ(forse("conver", parole), "did you mean 'convert'? ");
    EXPECT_EQ(forse("CONVRET", parole), "did you mean 'convert'? ");
    EXPECT_EQ(forse("func", parole), "did you mean 'functions'? ");
    EXPECT_EQ(forse("--nubmer", parole), "did you mean '--number'? ");
    EXPECT_EQ(forse("xyzzy", parole), "");
    // One change from either: the word that has all the letters is meant.
    EXPECT_EQ(forse("fnd", std::vector<std::string>{"fid", "find"}), "did you mean 'find'? ");
    EXPECT_EQ(forse("fod", std::vector<std::string>{"food", "fid"}), "did you mean 'food'? ");
    EXPECT_EQ(forse("fidn", std::vector<std::string>{"find", "fidr"}), "did you mean 'find'? ");
    EXPECT_EQ(forse("", parole), "");
    EXPECT_EQ(forse(std::string(100000, 'c'), parole), "");
    EXPECT_EQ(vicini("ca", parole, 9), (std::vector<std::string>{"camera", "catalogue"}));
    EXPECT_EQ(vicini("ca", parole, 1), std::vector<std::string>{"camera"});
}

TEST(Sinonimi, EveryLineLeadsToSomethingInTheCatalogue) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::vector<Noto> noti = identificatori_noti(*catalogo);
    std::size_t righe = 0;
    std::string prima;
    for (const std::string& riga : dividi(SINONIMI, '\n')) {
        if (riga.starts_with('#') || riga.empty())
            continue;
        ++righe;
        const std::string parola = riga.substr(0, riga.find(':'));
        EXPECT_LT(prima, parola) << "in the order of the alphabet, none twice";
        prima = parola;
        EXPECT_FALSE(sinonimi(parola).empty()) << riga;
        const std::string cercata[] = {parola};
        EXPECT_FALSE(cerca(noti, cercata).empty()) << riga;
    }
    EXPECT_GT(righe, 50u);
}

TEST(Sinonimi, AreProposedBeforeWhatIsNear) {
    const std::vector<std::string> unita = {"kPa", "km/h"};
    EXPECT_EQ(proposta("kph", unita), "did you mean 'km/h'? ");
    EXPECT_EQ(proposta("kpa", unita), "did you mean 'kPa'? ");
    EXPECT_EQ(proposta("tyre", unita), "");
}

TEST(TipiCampione, NamesAreDistinctAndReadBack) {
    EXPECT_EQ(nomi_campioni().size(), NUM_TIPI_CAMPIONE);
    // The library has no sample of a type that the tool does not know.
    for (unsigned tipo = NUM_TIPI_CAMPIONE; tipo < NUM_TIPI_CAMPIONE + 32; ++tipo)
        EXPECT_EQ(kelFunGetSamplSize(tipo), 0u) << "sample type " << tipo;
    for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo) {
        EXPECT_EQ(leggi_tipo_campione(nome_campione(tipo)), tipo);
        EXPECT_EQ(leggi_tipo_campione(costante_campione(tipo)), tipo);
        EXPECT_EQ(leggi_tipo_campione(std::to_string(tipo)), tipo);
    }
    EXPECT_EQ(leggi_tipo_campione(std::to_string(NUM_TIPI_CAMPIONE)), std::nullopt);
    EXPECT_EQ(leggi_tipo_campione("int"), std::nullopt);
    EXPECT_EQ(leggi_tipo_campione(""), std::nullopt);
}

}  // namespace
