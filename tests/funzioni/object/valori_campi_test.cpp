// The value lists of every field, for an editor of identifiers.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <array>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace {

using Liste = std::array<std::list<std::string>, 12>;

void riempi(Liste& l) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    catalogo->GetValoriCampiFID(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], l[8], l[9], l[10], l[11]);
}

constexpr std::size_t VOCI[] = {32, 58, 23, 4, 2, 3, 2, 4, 4, 4, 4, 64};

TEST(FieldValueLists, HaveTheirLengths) {
    Liste liste;
    riempi(liste);
    for (std::size_t i = 0; i < liste.size(); ++i)
        EXPECT_EQ(liste[i].size(), VOCI[i]) << "list " << i + 1;
}

TEST(FieldValueLists, HoldTheXmlNamesInValueOrder) {
    Liste liste;
    riempi(liste);
    const std::map<std::size_t, const char*> tabelle = {{1, "grandezza_fisica_FunzKel"},
                                                        {2, "oggetto_misurato_FunzKel"},
                                                        {3, "posizione_FunzKel"},
                                                        {4, "dettagli_FunzKel"},
                                                        {5, "specializzazione_gps_FunzKel"},
                                                        {6, "specializzazione_laptime_FunzKel"},
                                                        {8, "inout_FunzKel"},
                                                        {9, "leftright_FunzKel"},
                                                        {10, "frontrear_FunzKel"},
                                                        {11, "updown_FunzKel"}};
    for (const auto& [numero, tabella] : tabelle) {
        std::list<std::string> nomi;
        for (const modello::RigaCampo& riga : modello::tabelle().campi.at(tabella))
            nomi.push_back(riga.xml);
        EXPECT_EQ(liste[numero - 1], nomi) << "list " << numero;
    }
}

TEST(FieldValueLists, BeginAndEndAsKnown) {
    Liste liste;
    riempi(liste);
    EXPECT_EQ(liste[0].front(), "FID_PHI_UNDEFINED");
    EXPECT_EQ(liste[0].back(), "FID_PHI_GEAR");
    EXPECT_EQ(liste[1].back(), "FID_OBJ_PREDICTIVE_VS_REF_DIFF");
    EXPECT_EQ(liste[2].back(), "FID_POS_DIFFERENTIAL");
    EXPECT_EQ(liste[3].front(), "FID_DETTAGLI_UNDEF");
    EXPECT_EQ(liste[4], (std::list<std::string>{"FID_SPEC_GPS_KELNAVSOL", "FID_SPEC_GPS_UBXNAVSOL"}));
    EXPECT_EQ(liste[11].front(), "0");
    EXPECT_EQ(liste[11].back(), "63");
}

TEST(SideMeanings, ArePositionThenNumber) {
    Liste liste;
    riempi(liste);
    EXPECT_EQ(liste[6], (std::list<std::string>{"Position", "Number"}));
}

TEST(InstanceNumbers, ArePlainDecimals) {
    Liste liste;
    riempi(liste);
    int numero = 0;
    for (const std::string& testo : liste[11])
        EXPECT_EQ(testo, std::to_string(numero++));
    EXPECT_EQ(numero, 64);
}

TEST(FieldValueLists, AreAppendedTo) {
    Liste liste;
    for (std::list<std::string>& lista : liste)
        lista.push_back("mine");
    riempi(liste);
    for (std::size_t i = 0; i < liste.size(); ++i) {
        EXPECT_EQ(liste[i].size(), VOCI[i] + 1) << "list " << i + 1;
        EXPECT_EQ(liste[i].front(), "mine") << "list " << i + 1;
    }
}

TEST(FieldValueLists, AreDoubledByASecondCall) {
    Liste una;
    riempi(una);
    Liste due;
    riempi(due);
    riempi(due);
    for (std::size_t i = 0; i < una.size(); ++i) {
        std::list<std::string> doppia = una[i];
        doppia.insert(doppia.end(), una[i].begin(), una[i].end());
        EXPECT_EQ(due[i], doppia) << "list " << i + 1;
    }
}

// The caller may hand in one list for all: the order of filling shows.
TEST(FieldValueLists, AreFilledWithTheSideMeaningsLast) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::list<std::string> l;
    catalogo->GetValoriCampiFID(l, l, l, l, l, l, l, l, l, l, l, l);
    const std::vector<std::string> tutti(l.begin(), l.end());
    ASSERT_EQ(tutti.size(), 204u);
    EXPECT_EQ(tutti[0], "FID_PHI_UNDEFINED");
    EXPECT_EQ(tutti[32], "FID_OBJ_UNDEFINED");
    EXPECT_EQ(tutti[90], "FID_POS_UNDEFINED");
    EXPECT_EQ(tutti[113], "FID_DETTAGLI_UNDEF");
    EXPECT_EQ(tutti[117], "FID_SPEC_GPS_KELNAVSOL");
    EXPECT_EQ(tutti[119], "FID_SPEC_LAPTIME_KEL2G");
    EXPECT_EQ(tutti[122], "FID_INOUT_UNDEF");
    EXPECT_EQ(tutti[126], "FID_LEFTRIGHT_UNDEF");
    EXPECT_EQ(tutti[130], "FID_FRONTREAR_UNDEF");
    EXPECT_EQ(tutti[134], "FID_UPDOWN_UNDEF");
    EXPECT_EQ(tutti[138], "0");
    EXPECT_EQ(tutti[202], "Position");
    EXPECT_EQ(tutti[203], "Number");
}

}  // namespace
