// The object face when memory runs out: each allocation of every operation fails in turn. What comes out is bad_alloc,
// nothing is lost, and the object goes on as if nothing had been.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "IFunzioni.h"
#include "assegnazioni.h"

namespace {

// Whatever an operation may give or fill.
struct Uscita {
    std::string testo;
    std::array<std::list<std::string>, 12> testi;
    std::list<kel_funpos> fid;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> grandezze;
    std::map<unsigned, std::string> lati, inout;
    std::map<unsigned, IFunzioni::NomiDefaultCanale> canali;
    std::vector<const t_SFunzioneZumikoCam*> righe;
    long numero = 0;
};

// All of it as one text.
std::string descrivi(const Uscita& uscita) {
    std::string tutto = uscita.testo + ";" + std::to_string(uscita.numero);
    for (const auto& lista : uscita.testi)
        for (const std::string& uno : lista)
            tutto += "," + uno;
    for (const kel_funpos uno : uscita.fid)
        tutto += "," + std::to_string(uno);
    for (const auto& [grandezza, lista] : uscita.funzioni)
        for (const SFunzionePerGF& una : lista)
            tutto += "," + std::to_string(una.funpos) + una.nome;
    for (const auto& [grandezza, nome] : uscita.grandezze)
        tutto += "," + nome;
    for (const auto& [chiave, nome] : uscita.lati)
        tutto += "," + nome;
    for (const auto& [chiave, nome] : uscita.inout)
        tutto += "," + nome;
    for (const auto& [chiave, nomi] : uscita.canali)
        tutto += "," + nomi.breve + nomi.nome;
    for (const t_SFunzioneZumikoCam* riga : uscita.righe)
        tutto += std::string(",") + riga->id;
    return tutto;
}

using Operazione = std::function<void(IFunzioni&, Uscita&)>;

// Texts longer than what a string holds without allocating: also the copies that are taken of them can fail.
const std::string LUNGO = "a text that no table of the library has";
const std::string ID = "FG_GEAR_BOX_TEMP";
s_kel_canale canali[2];

void leggi(IFunzioni& f, Uscita& u) {
    const std::unique_ptr<IConverter> conv(
        f.CreateConverter(&canali[0], canali[0].fid, LUNGO, true, 3, FORMATO_DESTRA, 24));
    constexpr unsigned char campione[64] = {1, 2, 3, 4, 5};
    float valore = 0;
    u.numero = conv->GetVal(campione, &valore) ? 1 : 0;
    conv->SetNumDec(1);
    conv->GetString(campione, u.testo);
}

void valori_campi(IFunzioni& f, Uscita& u) {
    f.GetValoriCampiFID(u.testi[0], u.testi[1], u.testi[2], u.testi[3], u.testi[4], u.testi[5], u.testi[6], u.testi[7],
                        u.testi[8], u.testi[9], u.testi[10], u.testi[11]);
}

void elenca_funzioni(IFunzioni& f, Uscita& u) {
    std::vector<unsigned> filtro;
    f.getFunzioni(u.funzioni, filtro);
}

void dettagli(IFunzioni& f, Uscita& u) {
    int primo = 0;
    int ultimo = 0;
    f.getFunzDettagli(0x70010, u.lati, u.inout, primo, ultimo);  // speed of a wheel
    u.numero = primo * 100L + ultimo;
}

void parametri(IFunzioni& f, Uscita& u) {
    int codice = 0;
    float scala = 0;
    u.testo = LUNGO;
    f.FunGetParamZumikoCam(0x10, codice, scala, u.testo);
    u.numero = codice;
}

void riga(IFunzioni&, Uscita& u) {
    int numero = 0;
    int tempo = 0;
    CLaptimeAndStrings::StringaToLapNumAndTime(" 12 - 0000000000001:23.456", numero, tempo);
    u.numero = numero * 1000000L + tempo;
}

// clang-format off
const std::map<std::string, Operazione> OPERAZIONI = {
    {"CreateMe",               [](IFunzioni&, Uscita& u) { u.numero = std::unique_ptr<IFunzioni>(IFunzioni::CreateMe(canali, 2))->getNumChUsed(); }},
    {"getNomeCanale",          [](IFunzioni& f, Uscita& u) { u.testo = f.getNomeCanale(0); }},
    {"getNomeCanaleShort",     [](IFunzioni& f, Uscita& u) { u.testo = f.getNomeCanaleShort(0); }},
    {"getSizeBufferValori",    [](IFunzioni& f, Uscita& u) { u.numero = f.getSizeBufferValori(); }},
    {"getNumChUsed",           [](IFunzioni& f, Uscita& u) { u.numero = f.getNumChUsed(); }},
    {"getFreeCh",              [](IFunzioni& f, Uscita& u) { u.numero = f.getFreeCh() == nullptr; }},
    {"getCanale",              [](IFunzioni& f, Uscita& u) { u.numero = f.getCanale(1)->fid; }},
    {"getMatchCh",             [](IFunzioni& f, Uscita& u) { u.numero = f.getMatchCh(0x10) == nullptr; }},
    {"getNomeFunzioneShort",   [](IFunzioni& f, Uscita& u) { u.testo = f.getNomeFunzioneShort(0x05070010); }},
    {"getNomeFunzione listed", [](IFunzioni& f, Uscita& u) { u.testo = f.getNomeFunzione(0x1091, true); }},
    {"getNomeFunzione composed", [](IFunzioni& f, Uscita& u) { u.testo = f.getNomeFunzione(0x0123459C, true); }},
    {"getFidEquivalente",      [](IFunzioni& f, Uscita& u) { u.numero = f.getFidEquivalente(0x1091); }},
    {"getUnitaBase",           [](IFunzioni& f, Uscita& u) { u.testo = f.getUnitaBase(0x10); }},
    {"getFidDaID",             [](IFunzioni& f, Uscita& u) { u.numero = f.getFidDaID(ID); }},
    {"getFunVecchiaZumikoDaFID", [](IFunzioni& f, Uscita& u) { u.numero = f.getFunVecchiaZumikoDaFID(0x10)->codice; }},
    {"getFunVecchiaZumikoDaID", [](IFunzioni& f, Uscita& u) { u.numero = f.getFunVecchiaZumikoDaID(LUNGO) == nullptr; }},
    {"getParamZumikoCam",      [](IFunzioni& f, Uscita& u) { u.numero = f.getParamZumikoCam(0x10)->codice; }},
    {"getFirstFunzVisZumikoCam", [](IFunzioni& f, Uscita& u) { u.numero = f.getFirstFunzVisZumikoCam()->codice; }},
    {"getFirstFunzVisZumikoCamEstese", [](IFunzioni& f, Uscita& u) { u.numero = f.getFirstFunzVisZumikoCamEstese()->codice; }},
    {"getNextFunzVisZumikoCam", [](IFunzioni& f, Uscita& u) { f.getFirstFunzVisZumikoCam(); u.numero = f.getNextFunzVisZumikoCam()->codice; }},
    {"getNextFunzVisZumikoCamEstese", [](IFunzioni& f, Uscita& u) { f.getFirstFunzVisZumikoCamEstese(); u.numero = f.getNextFunzVisZumikoCamEstese()->codice; }},
    {"getAllFunzZumikoCamBasePerSw", [](IFunzioni& f, Uscita& u) { f.getAllFunzZumikoCamBasePerSw(u.righe); }},
    {"getAllFunzZumikoCamEstesePerSw", [](IFunzioni& f, Uscita& u) { f.getAllFunzZumikoCamEstesePerSw(u.righe); }},
    {"getNumDecimaliDefault",  [](IFunzioni& f, Uscita& u) { u.numero = f.getNumDecimaliDefault(0x0E, LUNGO); }},
    {"getNumDecimaliMax",      [](IFunzioni& f, Uscita& u) { u.numero = f.getNumDecimaliMax(0x0E, LUNGO); }},
    {"getNumDecimaliMin",      [](IFunzioni& f, Uscita& u) { u.numero = f.getNumDecimaliMin(0x0E, LUNGO); }},
    {"getFunzUIVs",            [](IFunzioni& f, Uscita& u) { f.getFunzUIVs(0x0E, u.testi[0]); }},
    {"getFunzioni",            elenca_funzioni},
    {"getFunzDettagli",        dettagli},
    {"getFormati",             [](IFunzioni& f, Uscita& u) { unsigned formati[32] = {}; u.numero = f.getFormati(0x10, formati); }},
    {"getAllInnerFunpos",      [](IFunzioni& f, Uscita& u) { f.getAllInnerFunpos(0x19A, u.fid); }},
    {"getParamConv",           [](IFunzioni& f, Uscita& u) { u.testo = f.getParamConv(0x0E, LUNGO)->udm; }},
    {"getParamConv of two",    [](IFunzioni& f, Uscita& u) { u.numero = f.getParamConv(0x0E, LUNGO, ID).reciproco; }},
    {"FunGetParamZumikoCam",   parametri},
    {"getCanaliGPS",           [](IFunzioni& f, Uscita& u) { f.getCanaliGPS(u.canali); }},
    {"getCanaliLapTime",       [](IFunzioni& f, Uscita& u) { f.getCanaliLapTime(u.canali); }},
    {"getCanaliLapNum",        [](IFunzioni& f, Uscita& u) { f.getCanaliLapNum(u.canali); }},
    {"getStrPhi",              [](IFunzioni& f, Uscita& u) { u.testo = f.getStrPhi(FID_PHI_VOLUME_LAP_PRODUCT); }},
    {"getStrObj",              [](IFunzioni& f, Uscita& u) { u.testo = f.getStrObj(FID_OBJ_CLUTCH_ENGAGEMENT); }},
    {"getStrPos",              [](IFunzioni& f, Uscita& u) { u.testo = f.getStrPos(FID_POS_ENGINE); }},
    {"getXmlStrPhi",           [](IFunzioni& f, Uscita& u) { u.testo = f.getXmlStrPhi(FID_PHI_VOLUME_LAP_PRODUCT); }},
    {"getXmlStrObj",           [](IFunzioni& f, Uscita& u) { u.testo = f.getXmlStrObj(FID_OBJ_CLUTCH_ENGAGEMENT); }},
    {"RiempiMapGrandezzaFisica", [](IFunzioni& f, Uscita& u) { f.RiempiMapGrandezzaFisica(u.grandezze); }},
    {"getIdxPhi",              [](IFunzioni& f, Uscita& u) { u.numero = f.getIdxPhi(LUNGO); }},
    {"getIdxObj",              [](IFunzioni& f, Uscita& u) { u.numero = f.getIdxObj(LUNGO); }},
    {"getIdxPos",              [](IFunzioni& f, Uscita& u) { u.numero = f.getIdxPos(LUNGO); }},
    {"getIdxFrontRear",        [](IFunzioni& f, Uscita& u) { u.numero = f.getIdxFrontRear(LUNGO); }},
    {"CreateConverter and reads", leggi},
    {"GetValoriCampiFID",      valori_campi},
    {"LapTimeToStringa",       [](IFunzioni&, Uscita& u) { u.testo = CLaptimeAndStrings::LapTimeToStringa(83456); }},
    {"LapNumAndTimeToStringa", [](IFunzioni&, Uscita& u) { u.testo = CLaptimeAndStrings::LapNumAndTimeToStringa(1234567890, 2147483647); }},
    {"StringaToLapTime",       [](IFunzioni&, Uscita& u) { u.numero = CLaptimeAndStrings::StringaToLapTime("0000000000000001:23.456"); }},
    {"StringaToLapNumAndTime", riga},
};
// clang-format on

std::unique_ptr<IFunzioni> catalogo() {
    for (s_kel_canale& canale : canali) {
        canale = {};
        canale.fid = 0x0F;
        canale.tipo_campione = KEL_TIPO_FLOAT;
        std::string("A channel whose name is long").copy(canale.nome, sizeof canale.nome - 1);
    }
    return std::unique_ptr<IFunzioni>(IFunzioni::CreateMe(canali, 2));
}

class OutOfMemory : public testing::TestWithParam<std::string> {};

TEST_P(OutOfMemory, ComesOutOfTheOperationAndLeavesNothingBehind) {
    const Operazione& operazione = OPERAZIONI.at(GetParam());
    const std::unique_ptr<IFunzioni> f = catalogo();
    Uscita intatta;
    operazione(*f, intatta);
    const std::string atteso = descrivi(intatta);

    bool fallita = true;
    for (long quante = 0; fallita; quante++) {
        const long prima = assegnazioni::vivi();
        {
            Uscita uscita;
            fallita = false;
            assegnazioni::fallisca(quante);
            try {
                operazione(*f, uscita);
            } catch (const std::bad_alloc&) {
                fallita = true;
            }
            assegnazioni::fallisca(-1);
        }
        ASSERT_EQ(assegnazioni::vivi(), prima) << "blocks are lost when allocation " << quante << " fails";
        Uscita dopo;
        operazione(*f, dopo);
        ASSERT_EQ(descrivi(dopo), atteso) << "the object is not the same after allocation " << quante << " failed";
        ASSERT_LT(quante, 10000) << "it goes on for ever";
    }
}

std::vector<std::string> nomi() {
    std::vector<std::string> nomi;
    nomi.reserve(OPERAZIONI.size());
    for (const auto& [nome, operazione] : OPERAZIONI)
        nomi.push_back(nome);
    return nomi;
}

INSTANTIATE_TEST_SUITE_P(Operations, OutOfMemory, testing::ValuesIn(nomi()));

TEST(OutOfMemoryCounter, FindsTheAllocationsOfOperationsThatMakeSome) {
    const std::unique_ptr<IFunzioni> f = catalogo();
    for (const char* nome : {"CreateMe", "getNomeCanale", "getNomeFunzione composed", "getFunzUIVs", "getFunzioni",
                             "getAllInnerFunpos", "getCanaliGPS", "CreateConverter and reads", "GetValoriCampiFID"}) {
        Uscita uscita;
        bool fallita = false;
        assegnazioni::fallisca(0);
        try {
            OPERAZIONI.at(nome)(*f, uscita);
        } catch (const std::bad_alloc&) {
            fallita = true;
        }
        assegnazioni::fallisca(-1);
        EXPECT_TRUE(fallita) << nome;
    }
}

}  // namespace
