// A client's class derived from the catalogue: what it does not override is the catalogue's.
#include <CFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <list>
#include <map>
#include <string>
#include <vector>

namespace {

class Derivato : public CFunzioni {};

TEST(DerivedCatalogue, NamesFunctionsByTheirTables) {
    const Derivato catalogo;
    EXPECT_EQ(catalogo.getNomeFunzione(0x00001091, false), "Water Temp");
    EXPECT_EQ(catalogo.getNomeFunzione(0x0007020E, false), "Wheel Brk Pr");
}

TEST(DerivedCatalogue, ComposesLongNames) {
    const Derivato catalogo;
    EXPECT_EQ(catalogo.getNomeFunzione(0x04800B9C, false), "Custom Oil RightFront");
    EXPECT_EQ(catalogo.getNomeFunzione(0x04800B9C, true), "Custom Oil  RightFront");
}

TEST(DerivedCatalogue, OffersFunctionsByTheirTexts) {
    const Derivato catalogo;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::vector<unsigned> filtro{0x00000281};
    catalogo.getFunzioni(funzioni, filtro);
    ASSERT_EQ(funzioni.size(), 1u);
    ASSERT_EQ(funzioni[FID_PHI_PERCENT].size(), 1u);
    EXPECT_EQ(funzioni[FID_PHI_PERCENT].front().funpos, 0x00000281u);
    EXPECT_EQ(funzioni[FID_PHI_PERCENT].front().nome, "Pct Brake Load");
}

TEST(DerivedCatalogue, OffersSidesByTheirTexts) {
    const Derivato catalogo;
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = 0;
    int ultimo = 0;
    catalogo.getFunzDettagli(0x00070010, lati, inout, primo, ultimo);
    EXPECT_EQ(lati, (std::map<unsigned, std::string>{{0x02000000, "Rear"},
                                                     {0x02800000, "Rear Right"},
                                                     {0x03000000, "Rear Left"},
                                                     {0x04000000, "Front"},
                                                     {0x04800000, "Front Right"},
                                                     {0x05000000, "Front Left"}}));
}

}  // namespace
