// The order of the catalogue's operations in its virtual table, which client programs are compiled against.
//
// Under the Itanium C++ ABI, which all targets follow, the destructor takes two entries (complete and deleting), and
// operation n stands in entry n + 1.
#include <CFunzioni.h>
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstddef>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tables/aiuti.h"

namespace {

using attesi::bit;

using Testi = std::list<std::string>;
using Funzioni = std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>;
using Nomi = std::map<unsigned, IFunzioni::NomiDefaultCanale>;
using Righe = std::vector<const t_SFunzioneZumikoCam*>;
using Riga = const t_SFunzioneZumikoCam*;
using Scelte = std::map<unsigned, std::string>;

void* voce(const IFunzioni* oggetto, std::size_t indice) {
    void** tabella;
    std::memcpy(&tabella, static_cast<const void*>(oggetto), sizeof tabella);
    return tabella[indice];
}

// Calls operation n of an object as a client compiled long ago does: by its place alone.
template <class R, class... A>
R chiama(const IFunzioni* oggetto, std::size_t n, A... argomenti) {
    const auto operazione = reinterpret_cast<R (*)(const IFunzioni*, A...)>(voce(oggetto, n + 1));
    return operazione(oggetto, argomenti...);
}

// The place that a client compiled today would use.
template <class M>
std::size_t posto(M membro) {
    std::ptrdiff_t parti[2];
    static_assert(sizeof membro == sizeof parti, "a pointer to member function is two words");
    std::memcpy(parti, &membro, sizeof parti);
#if defined(__arm__) || defined(__aarch64__)
    // The offset as it is; bit 0 of the second word says "virtual", the rest of it adjusts the object's address.
    EXPECT_EQ(parti[1], 1) << "not a virtual operation of the object itself";
    const std::ptrdiff_t offset = parti[0];
#else
    // 1 + the offset; the second word adjusts the object's address.
    EXPECT_EQ(parti[0] & 1, 1) << "not a virtual operation";
    EXPECT_EQ(parti[1], 0) << "the object's address is adjusted";
    const std::ptrdiff_t offset = parti[0] - 1;
#endif
    EXPECT_EQ(offset % static_cast<std::ptrdiff_t>(sizeof(void*)), 0);
    return static_cast<std::size_t>(offset) / sizeof(void*) - 1;
}

// All 47 operations, on the interface and on its one
// implementation.
template <class C>
void controlla_posti() {
    EXPECT_EQ(posto(&C::getNomeCanale), 1u);
    EXPECT_EQ(posto(&C::getNomeCanaleShort), 2u);
    EXPECT_EQ(posto(&C::getSizeBufferValori), 3u);
    EXPECT_EQ(posto(&C::getNumChUsed), 4u);
    EXPECT_EQ(posto(&C::getFreeCh), 5u);
    EXPECT_EQ(posto(&C::getCanale), 6u);
    EXPECT_EQ(posto(&C::getMatchCh), 7u);
    EXPECT_EQ(posto(&C::getNomeFunzioneShort), 8u);
    EXPECT_EQ(posto(&C::getNomeFunzione), 9u);
    EXPECT_EQ(posto(&C::getFidEquivalente), 10u);
    EXPECT_EQ(posto(&C::getUnitaBase), 11u);
    EXPECT_EQ(posto(&C::getFidDaID), 12u);
    EXPECT_EQ(posto(&C::getFunVecchiaZumikoDaFID), 13u);
    EXPECT_EQ(posto(&C::getFunVecchiaZumikoDaID), 14u);
    EXPECT_EQ(posto(&C::getParamZumikoCam), 15u);
    EXPECT_EQ(posto(&C::getFirstFunzVisZumikoCam), 16u);
    EXPECT_EQ(posto(&C::getNextFunzVisZumikoCam), 17u);
    EXPECT_EQ(posto(&C::getFirstFunzVisZumikoCamEstese), 18u);
    EXPECT_EQ(posto(&C::getNextFunzVisZumikoCamEstese), 19u);
    EXPECT_EQ(posto(&C::getAllFunzZumikoCamBasePerSw), 20u);
    EXPECT_EQ(posto(&C::getAllFunzZumikoCamEstesePerSw), 21u);
    EXPECT_EQ(posto(&C::getNumDecimaliDefault), 22u);
    EXPECT_EQ(posto(&C::getNumDecimaliMax), 23u);
    EXPECT_EQ(posto(&C::getNumDecimaliMin), 24u);
    EXPECT_EQ(posto(&C::getFunzUIVs), 25u);
    EXPECT_EQ(posto(&C::getFunzioni), 26u);
    EXPECT_EQ(posto(&C::getFunzDettagli), 27u);
    EXPECT_EQ(posto(&C::getFormati), 28u);
    EXPECT_EQ(posto(&C::getAllInnerFunpos), 29u);
    using UnaUnita = const s_converter_data* (C::*)(kel_funpos, const std::string&) const;
    using DueUnita = s_converter_data (C::*)(kel_funpos, const std::string&, const std::string&) const;
    EXPECT_EQ(posto(static_cast<UnaUnita>(&C::getParamConv)), 30u);
    EXPECT_EQ(posto(static_cast<DueUnita>(&C::getParamConv)), 31u);
    EXPECT_EQ(posto(&C::FunGetParamZumikoCam), 32u);
    EXPECT_EQ(posto(&C::getCanaliGPS), 33u);
    EXPECT_EQ(posto(&C::getCanaliLapTime), 34u);
    EXPECT_EQ(posto(&C::getCanaliLapNum), 35u);
    EXPECT_EQ(posto(&C::getStrPhi), 36u);
    EXPECT_EQ(posto(&C::getStrObj), 37u);
    EXPECT_EQ(posto(&C::getStrPos), 38u);
    EXPECT_EQ(posto(&C::getXmlStrPhi), 39u);
    EXPECT_EQ(posto(&C::getXmlStrObj), 40u);
    EXPECT_EQ(posto(&C::RiempiMapGrandezzaFisica), 41u);
    EXPECT_EQ(posto(&C::getIdxPhi), 42u);
    EXPECT_EQ(posto(&C::getIdxObj), 43u);
    EXPECT_EQ(posto(&C::getIdxPos), 44u);
    EXPECT_EQ(posto(&C::getIdxFrontRear), 45u);
    EXPECT_EQ(posto(&C::CreateConverter), 46u);
    EXPECT_EQ(posto(&C::GetValoriCampiFID), 47u);
}

TEST(InterfaceSlots, StandInTheirOrder) {
    controlla_posti<IFunzioni>();
}

TEST(ImplementationSlots, StandInTheOrderOfTheInterface) {
    controlla_posti<CFunzioni>();
}

// The library's own object, called by places. Every operation answers what no neighbour would.
class LibraryObject : public ::testing::Test {
protected:
    LibraryObject() {
        std::strcpy(canali_[0].nome, "Road speed");
        std::strcpy(canali_[0].breve, "Road");
        canali_[0].fid = 0x00000010;
        canali_[0].dim_buffer = 7;
        std::strcpy(canali_[1].nome, "Gearbox");
        canali_[1].fid = 0x00048611;
        canali_[1].dim_buffer = 11;
        catalogo_.reset(IFunzioni::CreateMe(canali_, 2));
        oggetto_ = catalogo_.get();
    }
    s_kel_canale canali_[3] = {};
    std::unique_ptr<IFunzioni> catalogo_;
    const IFunzioni* oggetto_;
};

TEST_F(LibraryObject, AnswersChannelsInSlotsOneToSeven) {
    EXPECT_EQ((chiama<std::string, unsigned>(oggetto_, 1, 0)), "Road speed");
    EXPECT_EQ((chiama<std::string, unsigned>(oggetto_, 2, 0)), "Road");
    EXPECT_EQ(chiama<unsigned>(oggetto_, 3), 18u);
    EXPECT_EQ(chiama<unsigned>(oggetto_, 4), 2u);
    EXPECT_EQ(chiama<s_kel_canale*>(oggetto_, 5), nullptr);
    EXPECT_EQ((chiama<s_kel_canale*, unsigned>(oggetto_, 6, 1)), &canali_[1]);
    EXPECT_EQ((chiama<s_kel_canale*, kel_funpos>(oggetto_, 7, 0x11)), &canali_[1]);
}

TEST_F(LibraryObject, AnswersNamesInSlotsEightToEleven) {
    EXPECT_EQ((chiama<std::string, kel_funpos>(oggetto_, 8, 0x00048611)), std::string("TemperatureGear\0", 16));
    EXPECT_EQ((chiama<std::string, kel_funpos, bool>(oggetto_, 9, 0x00048611, false)), "Gear Box Temp");
    EXPECT_EQ((chiama<std::string, kel_funpos, bool>(oggetto_, 9, 0x04800B9C, true)), "Custom Oil  RightFront");
    EXPECT_EQ((chiama<kel_funpos, kel_funpos>(oggetto_, 10, 0x00048611)), 0x11u);
    EXPECT_EQ((chiama<std::string, kel_funpos>(oggetto_, 11, 0x00000195)), "V");
}

TEST_F(LibraryObject, AnswersTheCameraInSlotsTwelveToTwentyOne) {
    EXPECT_EQ((chiama<kel_funpos, const std::string&>(oggetto_, 12, "FG_GEAR_BOX_TEMP")), 0x00048611u);
    EXPECT_EQ((chiama<Riga, kel_funpos>(oggetto_, 13, 0x00068A07)), &funz_ZumikoCam_estese[0]);
    EXPECT_EQ((chiama<Riga, const std::string&>(oggetto_, 14, "WATER_TEMP")), &funz_ZumikoCam_base[3]);
    EXPECT_EQ((chiama<Riga, kel_funpos>(oggetto_, 15, 0x00001712)), &funz_ZumikoCam_estese[21]);
    EXPECT_EQ(chiama<Riga>(oggetto_, 16), &funz_ZumikoCam_base[0]);
    EXPECT_EQ(chiama<Riga>(oggetto_, 17), &funz_ZumikoCam_base[1]);
    EXPECT_EQ(chiama<Riga>(oggetto_, 18), &funz_ZumikoCam_estese[0]);
    EXPECT_EQ(chiama<Riga>(oggetto_, 19), &funz_ZumikoCam_estese[1]);
    Righe base;
    chiama<void, Righe&>(oggetto_, 20, base);
    EXPECT_EQ(base.size(), 19u);
    Righe estese;
    chiama<void, Righe&>(oggetto_, 21, estese);
    EXPECT_EQ(estese.size(), 22u);
}

TEST_F(LibraryObject, AnswersDecimalsInSlotsTwentyTwoToTwentyFour) {
    const auto decimali = [this](std::size_t n, kel_funpos fid, const std::string& udm) {
        return chiama<int, kel_funpos, const std::string&>(oggetto_, n, fid, udm);
    };
    // Time spent switched off: 0, 3, 0; lambda: 2, 2, 1.
    EXPECT_EQ(decimali(22, 0x00001B12, "s"), 0);
    EXPECT_EQ(decimali(22, 0x0000001E, "#"), 2);
    EXPECT_EQ(decimali(23, 0x00001B12, "s"), 3);
    EXPECT_EQ(decimali(23, 0x0000001E, "#"), 2);
    EXPECT_EQ(decimali(24, 0x00001B12, "s"), 0);
    EXPECT_EQ(decimali(24, 0x0000001E, "#"), 1);
}

TEST_F(LibraryObject, AnswersListsInSlotsTwentyFiveToTwentyNine) {
    Testi unita;
    chiama<void, kel_funpos, Testi&>(oggetto_, 25, 0x11, unita);
    EXPECT_EQ(unita, (Testi{"C", "F"}));
    Funzioni funzioni;
    std::vector<unsigned> filtro{0x11};
    chiama<void, Funzioni&, std::vector<unsigned>&>(oggetto_, 26, funzioni, filtro);
    ASSERT_EQ(funzioni.size(), 1u);
    EXPECT_EQ(funzioni[FID_PHI_TEMPERATURE].front().nome, "Temperature");
    Scelte lati;
    Scelte inout;
    int primo = 0;
    int ultimo = 0;
    chiama<void, kel_funpos, Scelte&, Scelte&, int&, int&>(oggetto_, 27, 0x00040C9E, lati, inout, primo, ultimo);
    EXPECT_EQ(inout, (Scelte{{1, "Out"}, {2, "In"}}));
    EXPECT_EQ(primo, 1);
    EXPECT_EQ(ultimo, 12);
    unsigned formati = 4711;
    EXPECT_EQ((chiama<int, kel_funpos, unsigned*>(oggetto_, 28, 0x11, &formati)), 0);
    EXPECT_EQ(formati, 4711u);
    std::list<kel_funpos> interni;
    chiama<void, kel_funpos, std::list<kel_funpos>&>(oggetto_, 29, 0x0000819A, interni);
    EXPECT_EQ(interni, (std::list<kel_funpos>{0x000A9986, 0x000A998C, 0x000A9994, 0x000A940B, 0x000A8010}));
}

TEST_F(LibraryObject, AnswersConversionsInSlotsThirtyToThirtyTwo) {
    EXPECT_EQ((chiama<const s_converter_data*, kel_funpos, const std::string&>(oggetto_, 30, 0x0000000E, "psi")),
              &bar_udm_associate[1].dati);
    const s_converter_data dati = chiama<s_converter_data, kel_funpos, const std::string&, const std::string&>(
        oggetto_, 31, 0x00000011, "C", "F");
    EXPECT_EQ(bit(dati.gain), bit(1.8f));
    EXPECT_EQ(bit(dati.offset), bit(32.0f));
    int codice = 0;
    float scala = 0.0f;
    std::string udm;
    EXPECT_TRUE((chiama<bool, int, int&, float&, std::string&>(oggetto_, 32, 0x00001012, codice, scala, udm)));
    EXPECT_EQ(codice, 0xB00F);
    EXPECT_EQ(bit(scala), 0x3C23D70Au);
    EXPECT_EQ(udm, "cs");
}

TEST_F(LibraryObject, AnswersDefaultNamesInSlotsThirtyThreeToThirtyFive) {
    Nomi gps;
    chiama<void, Nomi&>(oggetto_, 33, gps);
    EXPECT_EQ(gps.size(), 4u);
    EXPECT_EQ(gps[0x000A940B].nome, "Sats Number");
    Nomi tempi;
    chiama<void, Nomi&>(oggetto_, 34, tempi);
    EXPECT_EQ(tempi.size(), 4u);
    EXPECT_EQ(tempi[0x00001712].nome, "Rolling Time");
    Nomi numeri;
    chiama<void, Nomi&>(oggetto_, 35, numeri);
    EXPECT_EQ(numeri.size(), 1u);
    EXPECT_EQ(numeri[0x0000098B].nome, "Lap Number");
}

TEST_F(LibraryObject, AnswersTextsInSlotsThirtySixToFortyFive) {
    EXPECT_EQ((chiama<std::string, GRANDEZZA_FISICA_FUNZKEL>(oggetto_, 36, FID_PHI_SPEED)), "Speed");
    EXPECT_EQ((chiama<std::string, OGGETTO_MISURATO_FUNZKEL>(oggetto_, 37, FID_OBJ_OIL)), "Oil");
    EXPECT_EQ((chiama<std::string, POSIZIONE_FUNZKEL>(oggetto_, 38, FID_POS_WHEEL)), "Wheel");
    EXPECT_EQ((chiama<std::string, GRANDEZZA_FISICA_FUNZKEL>(oggetto_, 39, FID_PHI_SPEED)), "FID_PHI_SPEED");
    EXPECT_EQ((chiama<std::string, OGGETTO_MISURATO_FUNZKEL>(oggetto_, 40, FID_OBJ_OIL)), "FID_OBJ_OIL");
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> mappa;
    chiama<void, std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>&>(oggetto_, 41, mappa);
    EXPECT_EQ(mappa.size(), 32u);
    const auto indice = [this](std::size_t n, const std::string& xml) {
        return chiama<int, const std::string&>(oggetto_, n, xml);
    };
    EXPECT_EQ(indice(42, "FID_PHI_SPEED"), 16);
    EXPECT_EQ(indice(43, "FID_OBJ_OIL"), 23);
    EXPECT_EQ(indice(44, "FID_POS_WHEEL"), 14);
    EXPECT_EQ(indice(45, "FID_FRONTREAR_FRONT"), 2);
}

TEST_F(LibraryObject, AnswersConverterAndValueListsInTheLastSlots) {
    const std::unique_ptr<IConverter> convertitore(
        chiama<IConverter*, const s_kel_canale*, kel_funpos, const std::string&, bool, unsigned, eFormatoConv,
               unsigned>(oggetto_, 46, &canali_[0], 0x00000010, "km/h", true, 1u, FORMATO_DESTRA, 4u));
    EXPECT_NE(convertitore, nullptr);
    Testi l[12];
    chiama<void, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&, Testi&>(
        oggetto_, 47, l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], l[8], l[9], l[10], l[11]);
    EXPECT_EQ(l[0].size(), 32u);
    EXPECT_EQ(l[6], (Testi{"Position", "Number"}));
    EXPECT_EQ(l[11].size(), 64u);
}

// A client's own catalogue: the operations that the library's object answers alike are told apart by overriding them.
class CatalogoProprio : public CFunzioni {
public:
    explicit CatalogoProprio(bool* distrutto_qui) : distrutto(distrutto_qui) {}
    ~CatalogoProprio() override { *distrutto = true; }
    s_kel_canale* getFreeCh() override { return &canale; }
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaFID(kel_funpos) override { return &da_fid; }
    const t_SFunzioneZumikoCam* getParamZumikoCam(kel_funpos) const override { return &param; }
    int getFormati(kel_funpos, unsigned* formati) override {
        *formati = 28;
        return 1;
    }

    bool* distrutto;
    s_kel_canale canale = {};
    t_SFunzioneZumikoCam da_fid = {};
    t_SFunzioneZumikoCam param = {};
};

TEST(ClientsOwnCatalogue, IsCalledInTheSlotsItOverrides) {
    bool distrutto = false;
    CatalogoProprio catalogo(&distrutto);
    EXPECT_EQ(chiama<s_kel_canale*>(&catalogo, 5), &catalogo.canale);
    EXPECT_EQ((chiama<Riga, kel_funpos>(&catalogo, 13, 0x11)), &catalogo.da_fid);
    EXPECT_EQ((chiama<Riga, kel_funpos>(&catalogo, 15, 0x11)), &catalogo.param);
    unsigned formati = 0;
    EXPECT_EQ((chiama<int, kel_funpos, unsigned*>(&catalogo, 28, 0x11, &formati)), 1);
    EXPECT_EQ(formati, 28u);
    EXPECT_EQ((chiama<std::string, kel_funpos>(&catalogo, 11, 0x00000195)), "V") << "not overridden";
}

TEST(Destructor, StandsInTheFirstTwoEntries) {
    bool distrutto = false;
    alignas(CatalogoProprio) unsigned char memoria[sizeof(CatalogoProprio)];
    const IFunzioni* sul_posto = new (memoria) CatalogoProprio(&distrutto);
    reinterpret_cast<void (*)(const IFunzioni*)>(voce(sul_posto, 0))(sul_posto);
    EXPECT_TRUE(distrutto) << "entry 0 destroys";
    distrutto = false;
    const IFunzioni* in_memoria = new CatalogoProprio(&distrutto);
    reinterpret_cast<void (*)(const IFunzioni*)>(voce(in_memoria, 1))(in_memoria);
    EXPECT_TRUE(distrutto) << "entry 1 destroys and frees";
}

// Programs read what lists and maps hold in place. The listings of the ABI do not show it: they leave out the types of
// the standard library, and with them what those are made of.
TEST(ListEntries, HaveTheirMembersInOrder) {
    EXPECT_EQ(offsetof(SFunzionePerGF, funpos), 0u);
    EXPECT_EQ(offsetof(SFunzionePerGF, nome), sizeof(void*));
    EXPECT_EQ(sizeof(SFunzionePerGF), sizeof(void*) + sizeof(std::string));
    EXPECT_EQ(offsetof(IFunzioni::NomiDefaultCanale, breve), 0u);
    EXPECT_EQ(offsetof(IFunzioni::NomiDefaultCanale, nome), sizeof(std::string));
    EXPECT_EQ(sizeof(IFunzioni::NomiDefaultCanale), 2 * sizeof(std::string));
}

// One table pointer, the channel set, two cursors, two sizes.
TEST(Object, HoldsItsTableFirstAndNoSecondOne) {
    EXPECT_EQ(sizeof(IFunzioni), sizeof(void*));
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const CFunzioni altro;
    EXPECT_EQ(voce(catalogo.get(), 2), voce(&altro, 2)) << "two objects, two tables";
    EXPECT_EQ(sizeof(CFunzioni), sizeof(void*) == 4 ? 32u : 40u);
}

}  // namespace
