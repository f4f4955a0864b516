// Texts and XML names of field values, both ways.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <climits>
#include <memory>
#include <string>

#include "model/tabelle.h"

namespace {

class FieldTexts : public ::testing::Test {
protected:
    std::string phi(int valore) { return catalogo_->getStrPhi(static_cast<GRANDEZZA_FISICA_FUNZKEL>(valore)); }
    std::string obj(int valore) { return catalogo_->getStrObj(static_cast<OGGETTO_MISURATO_FUNZKEL>(valore)); }
    std::string pos(int valore) { return catalogo_->getStrPos(static_cast<POSIZIONE_FUNZKEL>(valore)); }
    std::string xml_phi(int valore) { return catalogo_->getXmlStrPhi(static_cast<GRANDEZZA_FISICA_FUNZKEL>(valore)); }
    std::string xml_obj(int valore) { return catalogo_->getXmlStrObj(static_cast<OGGETTO_MISURATO_FUNZKEL>(valore)); }

    std::unique_ptr<IFunzioni> catalogo_{IFunzioni::CreateMe()};
};

TEST_F(FieldTexts, OfSpeedAreItsTextAndXmlName) {
    EXPECT_EQ(phi(16), "Speed");
    EXPECT_EQ(xml_phi(16), "FID_PHI_SPEED");
    EXPECT_EQ(catalogo_->getStrPhi(FID_PHI_SPEED), "Speed");
}

TEST_F(FieldTexts, OfTheLastObjectAreThere) {
    EXPECT_EQ(obj(57), "Predict +- RefT");
    EXPECT_EQ(xml_obj(57), "FID_OBJ_PREDICTIVE_VS_REF_DIFF");
}

TEST_F(FieldTexts, OfTheUndefinedValuesAreEmpty) {
    EXPECT_EQ(phi(0), "");
    EXPECT_EQ(obj(0), "");
    EXPECT_EQ(pos(0), "") << "not the abbreviation ---";
    EXPECT_EQ(xml_phi(0), "FID_PHI_UNDEFINED");
    EXPECT_EQ(xml_obj(0), "FID_OBJ_UNDEFINED");
}

TEST_F(FieldTexts, OutOfRangeAreEmpty) {
    EXPECT_EQ(phi(32), "");
    EXPECT_EQ(obj(58), "");
    EXPECT_EQ(pos(23), "");
    EXPECT_EQ(xml_phi(32), "");
    EXPECT_EQ(xml_obj(58), "");
    for (const int valore : {-1, -16, INT_MIN, 64, 128, 255, INT_MAX}) {
        SCOPED_TRACE(valore);
        EXPECT_EQ(phi(valore), "");
        EXPECT_EQ(obj(valore), "");
        EXPECT_EQ(pos(valore), "");
        EXPECT_EQ(xml_phi(valore), "");
        EXPECT_EQ(xml_obj(valore), "");
    }
}

TEST_F(FieldTexts, OfEveryValueAreThoseOfItsRow) {
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("grandezza_fisica_FunzKel")) {
        EXPECT_EQ(phi(riga.valore), riga.testo) << riga.xml;
        EXPECT_EQ(xml_phi(riga.valore), riga.xml);
    }
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("oggetto_misurato_FunzKel")) {
        EXPECT_EQ(obj(riga.valore), riga.testo) << riga.xml;
        EXPECT_EQ(xml_obj(riga.valore), riga.xml);
    }
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("posizione_FunzKel"))
        EXPECT_EQ(pos(riga.valore), riga.testo) << riga.xml;
}

TEST_F(FieldTexts, AreFoundByXmlName) {
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("grandezza_fisica_FunzKel"))
        EXPECT_EQ(catalogo_->getIdxPhi(riga.xml), riga.valore) << riga.xml;
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("oggetto_misurato_FunzKel"))
        EXPECT_EQ(catalogo_->getIdxObj(riga.xml), riga.valore) << riga.xml;
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("posizione_FunzKel"))
        EXPECT_EQ(catalogo_->getIdxPos(riga.xml), riga.valore) << riga.xml;
    for (const modello::RigaCampo& riga : modello::tabelle().campi.at("frontrear_FunzKel"))
        EXPECT_EQ(catalogo_->getIdxFrontRear(riga.xml), riga.valore) << riga.xml;
}

TEST_F(FieldTexts, AreFoundByXmlNameExamples) {
    EXPECT_EQ(catalogo_->getIdxPhi("FID_PHI_SPEED"), 16);
    EXPECT_EQ(catalogo_->getIdxObj("FID_OBJ_OIL"), 23);
    EXPECT_EQ(catalogo_->getIdxPos("FID_POS_WHEEL"), 14);
    EXPECT_EQ(catalogo_->getIdxFrontRear("FID_FRONTREAR_CENTER"), 3);
}

TEST_F(FieldTexts, AreFoundByTheExactXmlNameOnly) {
    for (const char* nome : {"fid_phi_speed", "FID_PHI_SPEED ", " FID_PHI_SPEED", "FID_PHI_SPEE", "FID_PHI_SPEEDS",
                             "SPEED", "Speed", "Spd", "FID_OBJ_OIL", ""})
        EXPECT_EQ(catalogo_->getIdxPhi(nome), 0) << '"' << nome << '"';
    for (const char* nome : {"FID_PHI_SPEED", "fid_obj_oil", "Oil", "FID_OBJ_OIL ", ""})
        EXPECT_EQ(catalogo_->getIdxObj(nome), 0) << '"' << nome << '"';
    for (const char* nome : {"FID_OBJ_OIL", "Wheel", "FID_POS_WHEEL\n", ""})
        EXPECT_EQ(catalogo_->getIdxPos(nome), 0) << '"' << nome << '"';
    for (const char* nome : {"FID_LEFTRIGHT_CENTER", "FID_UPDOWN_UP", "Front", ""})
        EXPECT_EQ(catalogo_->getIdxFrontRear(nome), 0) << '"' << nome << '"';
}

// A NUL is a character of the text like any other.
TEST_F(FieldTexts, AreNotFoundByANameWithANulBehindIt) {
    EXPECT_EQ(catalogo_->getIdxPhi(std::string("FID_PHI_SPEED\0", 14)), 0);
    EXPECT_EQ(catalogo_->getIdxPhi(std::string("FID_PHI_SPEED\0X", 15)), 0);
    EXPECT_EQ(catalogo_->getIdxObj(std::string("FID_OBJ_OIL\0", 12)), 0);
    EXPECT_EQ(catalogo_->getIdxPos(std::string("FID_POS_WHEEL\0", 14)), 0);
    EXPECT_EQ(catalogo_->getIdxFrontRear(std::string("FID_FRONTREAR_CENTER\0", 21)), 0);
}

TEST_F(FieldTexts, OfTheUndefinedValueAreFoundAsUnknownNamesAre) {
    EXPECT_EQ(catalogo_->getIdxPhi("FID_PHI_UNDEFINED"), 0);
    EXPECT_EQ(catalogo_->getIdxObj("FID_OBJ_UNDEFINED"), 0);
    EXPECT_EQ(catalogo_->getIdxPos("FID_POS_UNDEFINED"), 0);
    EXPECT_EQ(catalogo_->getIdxFrontRear("FID_FRONTREAR_UNDEF"), 0);
}

// Text given away must not change what the next caller gets.
TEST_F(FieldTexts, AreNewStringsEachTime) {
    std::string vuoto = phi(32);
    vuoto += "changed";
    EXPECT_EQ(phi(32), "");
    EXPECT_EQ(obj(58), "");
}

}  // namespace
