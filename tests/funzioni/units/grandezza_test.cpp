// From an identifier to its row of the quantity table, its base unit and its units.
#include <IFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "model/unita.h"
#include "tables/aiuti.h"

namespace {

using attesi::descrivi;

using Testi = std::list<std::string>;

// The row of an identifier that must have one; the end row stands in for a missing one, so that the test goes on.
const s_grandezza_fisica_uiv& riga_di(kel_funpos fid) {
    const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(fid);
    EXPECT_NE(riga, nullptr) << descrivi(fid) << " has no row";
    return riga != nullptr ? *riga : uib_grandezza_fisica_uiv[65];
}

// The units as the catalogue lists them, with a text in the list beforehand that must go.
Testi unita(kel_funpos fid) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Testi lista{"furlong", "league"};
    catalogo->getFunzUIVs(fid, lista);
    return lista;
}

TEST(QuantityRow, IsNoneForUndefinedAndCustomQuantities) {
    for (const kel_funpos fid : {0x00000000u, 0x0000001Cu, 0x00001A1Cu, 0x00000B80u}) {
        SCOPED_TRACE(descrivi(fid));
        EXPECT_EQ(kelFunGetUIVs(fid), nullptr);
        EXPECT_STREQ(kelFunGetUnitaBase(fid), "");
    }
}

TEST(QuantityRow, IsNoneForTheEndMarker) {
    for (const kel_funpos fid : {0x00001D20u, 0x000B9D20u, 0x00000020u}) {
        SCOPED_TRACE(descrivi(fid));
        EXPECT_EQ(kelFunGetUIVs(fid), nullptr);
        EXPECT_STREQ(kelFunGetUnitaBase(fid), "");
        EXPECT_EQ(unita(fid), Testi{});
    }
}

TEST(BaseUnit, OfAnIdentifierWithoutUnitsIsTheFallbacksText) {
    EXPECT_EQ(kelFunGetUnitaBase(0x0000001C), NULL_udm_associate[0].dati.udm);
}

TEST(Acceleration, HasRowsForTheAxesAndAGenericOne) {
    EXPECT_EQ(kelFunGetUIVs(0x00001183), &uib_grandezza_fisica_uiv[9]);
    EXPECT_STREQ(riga_di(0x00001183).breve, "G");
    EXPECT_STREQ(riga_di(0x00001183).testo, "Lateral Accel");
    EXPECT_STREQ(riga_di(0x00000603).breve, "G");
    EXPECT_STREQ(riga_di(0x00000603).testo, "Acceleration");
    EXPECT_EQ(unita(0x00001183), Testi{"g"});
    EXPECT_EQ(unita(0x00000603), Testi{"g"});
}

TEST(Speed, OffersKilometresAndMilesForEveryObject) {
    for (unsigned oggetto = 0; oggetto < 256; ++oggetto) {
        const kel_funpos fid = 0x10u | oggetto << 7;
        SCOPED_TRACE(descrivi(fid));
        ASSERT_EQ(kelFunGetUIVs(fid), &uib_grandezza_fisica_uiv[37]);
        EXPECT_STREQ(riga_di(fid).breve, "S");
        EXPECT_STREQ(riga_di(fid).testo, "Speed");
    }
    EXPECT_EQ(unita(0x00000010), (Testi{"km/h", "mph"}));
    EXPECT_EQ(unita(0x00001090), (Testi{"km/h", "mph"}));
}

TEST(Velocity, OffersSevenUnitsThePaceLast) {
    EXPECT_STREQ(riga_di(0x00000014).breve, "Ve");
    EXPECT_STREQ(riga_di(0x00000014).testo, "Velocity");
    EXPECT_EQ(unita(0x00000014), (Testi{"km/h", "mph", "m/s", "ft/s", "cm/s", "m/min", "min/km"}));
}

TEST(Temperature, OffersCelsiusAndFahrenheit) {
    EXPECT_EQ(unita(0x00000011), (Testi{"C", "F"}));
    EXPECT_EQ(unita(0x00048611), (Testi{"C", "F"}));
}

TEST(BrakePressure, OffersBarAndPsi) {
    EXPECT_STREQ(riga_di(0x0000020E).breve, "BP");
    EXPECT_STREQ(riga_di(0x0000020E).testo, "Brake Press");
    EXPECT_EQ(riga_di(0x0000020E).udm, bar_brake_udm_associate);
    EXPECT_EQ(unita(0x0000020E), (Testi{"bar", "psi"}));
}

TEST(OilPressure, OffersKilopascalsToo) {
    EXPECT_EQ(unita(0x00000B8E), (Testi{"bar", "psi", "kPa"}));
}

TEST(WaterPressure, IsAnyOtherPressure) {
    EXPECT_STREQ(riga_di(0x0000108E).breve, "P");
    EXPECT_STREQ(riga_di(0x0000108E).testo, "Pressure");
    EXPECT_EQ(riga_di(0x0000108E).udm, bar_udm_associate);
    EXPECT_EQ(unita(0x0000108E), (Testi{"bar", "psi", "kPa", "mbar", "inHg"}));
}

TEST(LapTimes, ShareOneUnitTable) {
    for (const kel_funpos fid : {0x0992u, 0x1712u, 0x1392u, 0x1B92u, 0x1C12u, 0x1C92u})
        EXPECT_EQ(riga_di(fid).udm, time_udm_associate) << descrivi(fid);
    EXPECT_EQ(riga_di(0x1B12).udm, s_udm_associate);
    EXPECT_EQ(riga_di(0x0012).udm, ms_udm_associate);
}

TEST(Lambda, HasOneTableForTheProbesAndOneForTheRest) {
    EXPECT_EQ(riga_di(0x049E).udm, lambda_udm_associate);
    EXPECT_EQ(riga_di(0x091E).udm, lambda_udm_associate);
    EXPECT_EQ(riga_di(0x001E).udm, lambda_tot_udm_associate);
}

TEST(BaseUnit, IsTheTextOfTheFirstRowWhateverItsGain) {
    EXPECT_STREQ(kelFunGetUnitaBase(0x00000195), "V") << "battery voltage";
    EXPECT_STREQ(kelFunGetUnitaBase(0x00000015), "mV") << "voltage";
    EXPECT_STREQ(kelFunGetUnitaBase(0x0000000C), "mm") << "position";
    EXPECT_STREQ(kelFunGetUnitaBase(0x00000010), "km/h") << "speed";
    EXPECT_STREQ(kelFunGetUnitaBase(0x0000001A), "Pckt") << "packet";
}

TEST(BaseUnit, OfTheCatalogueIsTheSameText) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    EXPECT_EQ(catalogo->getUnitaBase(0x00000195), "V");
    EXPECT_EQ(catalogo->getUnitaBase(0x00000015), "mV");
    EXPECT_EQ(catalogo->getUnitaBase(0x0000000C), "mm");
    EXPECT_EQ(catalogo->getUnitaBase(0x0000001C), "");
    EXPECT_EQ(catalogo->getUnitaBase(0x00000000), "");
}

TEST(UnitList, IsEmptiedEvenForAnUnknownQuantity) {
    EXPECT_EQ(unita(0x00000000), Testi{});
    EXPECT_EQ(unita(0x0000001C), Testi{});
    EXPECT_EQ(unita(0x0000007F), Testi{});
    EXPECT_EQ(unita(0xFFFFFFFF), Testi{});
}

TEST(EveryQuantityAndObject, HasTheRowAndUnitsOfTheModel) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    // Position, sides, number and the unused bits: none of them counts.
    const std::vector<kel_funpos> altri = {0, 0x00048000, 0x000F8000, 0x00300000, 0x1FC00000, 0xE0000000, 0xFFFF8000};
    for (unsigned grandezza = 0; grandezza < 128; ++grandezza)
        for (unsigned oggetto = 0; oggetto < 256; ++oggetto) {
            const modello::RigaGrandezza* attesa = modello::riga_grandezza(grandezza | oggetto << 7);
            const s_grandezza_fisica_uiv* riga =
                attesa == nullptr ? nullptr : &uib_grandezza_fisica_uiv[attesa - modello::tabelle().grandezze.data()];
            const std::vector<std::string> nomi = modello::unita(grandezza | oggetto << 7);
            const Testi testi(nomi.begin(), nomi.end());
            const std::string base = attesa == nullptr ? "" : testi.front();
            for (const kel_funpos bit : altri) {
                const kel_funpos fid = grandezza | oggetto << 7 | bit;
                ASSERT_EQ(kelFunGetUIVs(fid), riga)
                    << descrivi(fid) << " must fall under " << (attesa == nullptr ? "no row" : attesa->testo);
                ASSERT_STREQ(kelFunGetUnitaBase(fid), base.c_str()) << descrivi(fid);
            }
            const kel_funpos fid = grandezza | oggetto << 7 | altri[oggetto % altri.size()];
            Testi lista{"old"};
            catalogo->getFunzUIVs(fid, lista);
            ASSERT_EQ(lista, testi) << descrivi(fid);
            ASSERT_EQ(catalogo->getUnitaBase(fid), base) << descrivi(fid);
            ASSERT_EQ(catalogo->getFidEquivalente(fid), attesa == nullptr ? 0u : attesa->chiave) << descrivi(fid);
        }
}

}  // namespace
