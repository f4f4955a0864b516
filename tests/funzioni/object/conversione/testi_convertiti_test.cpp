// Every table text that the catalogue hands out passes through `ConvertiDa8`, every text that it searches with through
// `ConvertiIn8`: seen with conversions that leave a mark. What is handed out or searched with as it stands is here too.
#include <CFunzioni.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "conversione_segnata.h"

namespace {

using Testi = std::list<std::string>;
using Funzioni = std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>>;
using Nomi = std::map<unsigned, IFunzioni::NomiDefaultCanale>;
using Scelte = std::map<unsigned, std::string>;

class MarkedCatalogue : public ::testing::Test {
protected:
    MarkedCatalogue() {
        std::strcpy(canale_.nome, "Road speed");
        std::strcpy(canale_.breve, "Road");
        canale_.fid = VELOCITA;
        canale_.tipo_campione = KEL_TIPO_UINT16;
        catalogo_.reset(IFunzioni::CreateMe(&canale_, 1));
    }

    static constexpr kel_funpos VELOCITA = FID_PHI_SPEED;
    s_kel_canale canale_ = {};
    std::unique_ptr<IFunzioni> catalogo_;
};

// The rows of the quantity table, without its end row.
std::span<const s_grandezza_fisica_uiv> grandezze() {
    return std::span(uib_grandezza_fisica_uiv).first(std::size(uib_grandezza_fisica_uiv) - 1);
}

Testi segnati_xml(std::span<const s_campo_fid> tabella) {
    Testi testi;
    for (const s_campo_fid& riga : tabella)
        testi.push_back(segnato(riga.xml));
    return testi;
}

// --- Table texts that are handed out -------------------------------------------------------------------------------

TEST_F(MarkedCatalogue, ConvertsTheNamesOfChannels) {
    EXPECT_EQ(catalogo_->getNomeCanale(0), "<Road speed>");
    EXPECT_EQ(catalogo_->getNomeCanaleShort(0), "<Road>");
}

TEST_F(MarkedCatalogue, ConvertsTheTextsOfFieldValues) {
    for (const s_campo_fid& riga : grandezza_fisica_FunzKel) {
        const auto valore = static_cast<GRANDEZZA_FISICA_FUNZKEL>(riga.valore);
        EXPECT_EQ(catalogo_->getStrPhi(valore), segnato(riga.testo));
        EXPECT_EQ(catalogo_->getXmlStrPhi(valore), segnato(riga.xml));
    }
    for (const s_campo_fid& riga : oggetto_misurato_FunzKel) {
        const auto valore = static_cast<OGGETTO_MISURATO_FUNZKEL>(riga.valore);
        EXPECT_EQ(catalogo_->getStrObj(valore), segnato(riga.testo));
        EXPECT_EQ(catalogo_->getXmlStrObj(valore), segnato(riga.xml));
    }
    for (const s_campo_fid& riga : posizione_FunzKel)
        EXPECT_EQ(catalogo_->getStrPos(static_cast<POSIZIONE_FUNZKEL>(riga.valore)), segnato(riga.testo));
}

TEST_F(MarkedCatalogue, ConvertsTheTextsOfQuantities) {
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> mappa;
    catalogo_->RiempiMapGrandezzaFisica(mappa);
    ASSERT_EQ(mappa.size(), std::size(grandezza_fisica_FunzKel));
    for (const s_campo_fid& riga : grandezza_fisica_FunzKel)
        EXPECT_EQ(mappa[static_cast<GRANDEZZA_FISICA_FUNZKEL>(riga.valore)], segnato(riga.testo));
}

TEST_F(MarkedCatalogue, ConvertsTheXmlNamesOfFieldValues) {
    Testi liste[12];
    auto& [phi, obj, pos, dettagli, gps, laptime, lati, inout, leftright, frontrear, updown, numeri] = liste;
    catalogo_->GetValoriCampiFID(phi, obj, pos, dettagli, gps, laptime, lati, inout, leftright, frontrear, updown,
                                 numeri);
    EXPECT_EQ(phi, segnati_xml(grandezza_fisica_FunzKel));
    EXPECT_EQ(obj, segnati_xml(oggetto_misurato_FunzKel));
    EXPECT_EQ(pos, segnati_xml(posizione_FunzKel));
    EXPECT_EQ(dettagli, segnati_xml(dettagli_FunzKel));
    EXPECT_EQ(gps, segnati_xml(specializzazione_gps_FunzKel));
    EXPECT_EQ(laptime, segnati_xml(specializzazione_laptime_FunzKel));
    EXPECT_EQ(inout, segnati_xml(inout_FunzKel));
    EXPECT_EQ(leftright, segnati_xml(leftright_FunzKel));
    EXPECT_EQ(frontrear, segnati_xml(frontrear_FunzKel));
    EXPECT_EQ(updown, segnati_xml(updown_FunzKel));
}

TEST_F(MarkedCatalogue, ConvertsTheUnitsOfFunctions) {
    for (const s_grandezza_fisica_uiv& riga : grandezze()) {
        EXPECT_EQ(catalogo_->getUnitaBase(riga.chiave), segnato(riga.udm[0].dati.udm));
        Testi unita;
        catalogo_->getFunzUIVs(riga.chiave, unita);
        Testi attese;
        for (int i = 0; i < riga.num_udm; ++i)
            attese.push_back(segnato(riga.udm[i].dati.udm));
        EXPECT_EQ(unita, attese) << riga.testo;
    }
}

TEST_F(MarkedCatalogue, ConvertsTheNamesOfFunctionsOnOffer) {
    Funzioni funzioni;
    std::vector<unsigned> filtro;
    catalogo_->getFunzioni(funzioni, filtro);
    Funzioni attese;
    for (const s_grandezza_fisica_uiv& riga : grandezze()) {
        auto& lista = attese[static_cast<GRANDEZZA_FISICA_FUNZKEL>(kelFidGrandezza(riga.chiave))];
        if (riga.num_varianti == 0)
            lista.push_back({riga.chiave, segnato(riga.testo)});
        for (const s_variante_posizione& variante : std::span(riga.varianti, static_cast<unsigned>(riga.num_varianti)))
            lista.push_back({riga.chiave, segnato(variante.testo)});
    }
    ASSERT_EQ(funzioni.size(), attese.size());
    for (const auto& [grandezza, lista] : attese) {
        Testi nomi, nomi_attesi;
        for (const SFunzionePerGF& funzione : funzioni[grandezza])
            nomi.push_back(funzione.nome);
        for (const SFunzionePerGF& funzione : lista)
            nomi_attesi.push_back(funzione.nome);
        EXPECT_EQ(nomi, nomi_attesi);
    }
}

TEST_F(MarkedCatalogue, ConvertsTheChoicesOfFunctions) {
    Scelte lati, inout;
    int primo = 0, ultimo = 0;
    catalogo_->getFunzDettagli(kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL), lati, inout, primo, ultimo);
    EXPECT_EQ(lati, (Scelte{{0x02000000, "<Rear>"},
                            {0x02800000, "<Rear Right>"},
                            {0x03000000, "<Rear Left>"},
                            {0x04000000, "<Front>"},
                            {0x04800000, "<Front Right>"},
                            {0x05000000, "<Front Left>"}}));
    catalogo_->getFunzDettagli(kelFidComponi(FID_PHI_LAMBDA, FID_OBJ_RATIO, FID_POS_EXHAUST), lati, inout, primo,
                               ultimo);
    EXPECT_EQ(inout, (Scelte{{1, "<Out>"}, {2, "<In>"}}));
}

TEST_F(MarkedCatalogue, ConvertsTheDefaultNamesOfGpsChannels) {
    Nomi nomi;
    catalogo_->getCanaliGPS(nomi);
    ASSERT_EQ(nomi.size(), 4u);
    for (const s_sottocampo& riga : sottocampi_gps_kel)
        if (*riga.testo != '\0') {
            EXPECT_EQ(nomi[riga.fid].breve, segnato(riga.breve));
            EXPECT_EQ(nomi[riga.fid].nome, segnato(riga.testo));
        }
}

TEST_F(MarkedCatalogue, ConvertsTheUnitOfACameraParameter) {
    int codice = 0;
    float scala = 0.0f;
    std::string udm;
    ASSERT_TRUE(catalogo_->FunGetParamZumikoCam(0x00001012, codice, scala, udm));
    EXPECT_EQ(udm, "<cs>");
}

struct Composto {
    kel_funpos fid;
    bool tutti;
    const char* nome;
};

TEST_F(MarkedCatalogue, ConvertsEachTextOfAComposedName) {
    constexpr kel_funpos olio = kelFidComponi(FID_PHI_CUSTOM, FID_OBJ_OIL, 0);
    constexpr kel_funpos olio_destro = olio | kelFidLati(1, 2, 0);
    constexpr kel_funpos ogni_parte = olio | kelFidLati(2, 1, 1) | kelFidBitInOut(1);
    constexpr kel_funpos numero_5 = FID_PHI_CUSTOM | kelFidIstanza(5);
    constexpr kel_funpos oggetto_ignoto = kelFidComponi(FID_PHI_CUSTOM, 200, 0);
    const std::string inout = segnato(inout_FunzKel[1].testo);
    const std::string lati =
        segnato(leftright_FunzKel[2].testo) + segnato(frontrear_FunzKel[1].testo) + segnato(updown_FunzKel[1].testo);
    EXPECT_EQ(catalogo_->getNomeFunzione(ogni_parte, false), "<Custom> <Oil> " + inout + ' ' + lati);
    // A part without a value has a text, the empty one, only where every part is asked for.
    for (const Composto& nome :
         {Composto{olio_destro, false, "<Custom> <Oil> <Right><Front>"},
          Composto{olio_destro, true, "<Custom> <Oil> <> <Right><Front><>"}, Composto{numero_5, false, "<Custom> 5"},
          Composto{numero_5, true, "<Custom> <> <> 5"}, Composto{oggetto_ignoto, false, "<Custom>"},
          Composto{0, false, "<>"}, Composto{0, true, "<> <> <> <><><>"}})
        EXPECT_EQ(catalogo_->getNomeFunzione(nome.fid, nome.tutti), nome.nome) << std::hex << nome.fid;
}

// --- Texts that the caller searches with ---------------------------------------------------------------------------

template <typename Cerca>
void trova_segnati(std::span<const s_campo_fid> tabella, Cerca cerca) {
    for (const s_campo_fid& riga : tabella) {
        EXPECT_EQ(cerca(segnato(riga.xml)), riga.valore) << riga.xml;
        EXPECT_EQ(cerca(riga.xml), 0) << riga.xml << " is not what a caller writes";
    }
}

TEST_F(MarkedCatalogue, SearchesWithConvertedXmlNames) {
    trova_segnati(grandezza_fisica_FunzKel, [this](const std::string& xml) { return catalogo_->getIdxPhi(xml); });
    trova_segnati(oggetto_misurato_FunzKel, [this](const std::string& xml) { return catalogo_->getIdxObj(xml); });
    trova_segnati(posizione_FunzKel, [this](const std::string& xml) { return catalogo_->getIdxPos(xml); });
    trova_segnati(frontrear_FunzKel, [this](const std::string& xml) { return catalogo_->getIdxFrontRear(xml); });
}

TEST_F(MarkedCatalogue, SearchesWithConvertedLegacyIdentifiers) {
    const auto trova_camera = [this](std::span<const t_SFunzioneZumikoCam> tabella) {
        for (const t_SFunzioneZumikoCam& riga : tabella) {
            const t_SFunzioneZumikoCam* attesa = kelFunGetFunVecchiaZumikoDaID(riga.id);
            EXPECT_EQ(catalogo_->getFunVecchiaZumikoDaID(segnato(riga.id)), attesa) << riga.id;
            EXPECT_EQ(catalogo_->getFidDaID(segnato(riga.id)), attesa->fid) << riga.id;
            EXPECT_EQ(catalogo_->getFunVecchiaZumikoDaID(riga.id), nullptr)
                << riga.id << " is not what a caller writes";
        }
    };
    trova_camera(funz_ZumikoCam_base);
    trova_camera(funz_ZumikoCam_estese);
    for (const t_SFunzioneVecchia& riga : std::span(funz_Kel).first(std::size(funz_Kel) - 1)) {
        EXPECT_EQ(catalogo_->getFidDaID(segnato(riga.id)), riga.fid) << riga.id;
        EXPECT_EQ(catalogo_->getFidDaID(riga.id), 0u) << riga.id << " is not what a caller writes";
    }
}

TEST_F(MarkedCatalogue, SearchesConversionsWithConvertedUnits) {
    for (const s_grandezza_fisica_uiv& riga : grandezze()) {
        const s_converter_data& base = riga.udm[0].dati;
        for (const s_udm_associata& unita : std::span(riga.udm, static_cast<unsigned>(riga.num_udm))) {
            const std::string udm = segnato(unita.dati.udm);
            EXPECT_EQ(catalogo_->getParamConv(riga.chiave, udm), &unita.dati) << riga.testo << ' ' << udm;
            EXPECT_EQ(catalogo_->getParamConv(riga.chiave, unita.dati.udm), &base) << riga.testo << ' ' << udm;
            const s_converter_data attesi = kelFunGetConvDatas(riga.chiave, base.udm, unita.dati.udm);
            const s_converter_data dati = catalogo_->getParamConv(riga.chiave, segnato(base.udm), udm);
            EXPECT_EQ(dati.gain, attesi.gain) << riga.testo << ' ' << udm;
            EXPECT_EQ(dati.offset, attesi.offset) << riga.testo << ' ' << udm;
        }
    }
}

TEST_F(MarkedCatalogue, MakesConvertersForConvertedUnits) {
    const unsigned char campione[] = {100, 0};
    const float gain = kelFunGetConvData(VELOCITA, "mph")->gain;
    const auto valore = [&](const std::string& udm) {
        const std::unique_ptr<IConverter> conv(
            catalogo_->CreateConverter(&canale_, VELOCITA, udm, true, 1, FORMATO_DESTRA, 4));
        float letto = 0.0f;
        EXPECT_TRUE(conv->GetVal(campione, &letto));
        return letto;
    };
    EXPECT_EQ(valore("<mph>"), 100 * gain);
    EXPECT_EQ(valore("mph"), 100.0f) << "no unit of the caller's: the base unit";
}

// --- Texts that stay as they are -----------------------------------------------------------------------------------

TEST_F(MarkedCatalogue, HandsOutNamesOfTheTablesAsTheyStand) {
    EXPECT_EQ(catalogo_->getNomeFunzione(funz_ZumikoCam_base[0].fid, false), funz_ZumikoCam_base[0].testo);
    EXPECT_EQ(catalogo_->getNomeFunzione(funz_ZumikoCam_estese[0].fid, false), funz_ZumikoCam_estese[0].testo);
    EXPECT_EQ(catalogo_->getNomeFunzione(0x00048611, false), "Gear Box Temp");
    EXPECT_EQ(catalogo_->getNomeFunzione(VELOCITA, false), "Speed");
    EXPECT_EQ(catalogo_->getNomeFunzione(0x00070010, false), "Wheel Spd");
}

TEST_F(MarkedCatalogue, HandsOutShortNamesAsTheFlatFaceWritesThem) {
    EXPECT_EQ(catalogo_->getNomeFunzioneShort(0x00048611), std::string("TemperatureGear", 16));
}

TEST_F(MarkedCatalogue, HandsOutFixedTextsAsTheyStand) {
    Nomi nomi;
    catalogo_->getCanaliLapNum(nomi);
    catalogo_->getCanaliLapTime(nomi);
    EXPECT_EQ(nomi[0x98B].nome, "Lap Number");
    EXPECT_EQ(nomi[0x992].breve, "LapT");
    Testi altri, lati, numeri;
    catalogo_->GetValoriCampiFID(altri, altri, altri, altri, altri, altri, lati, altri, altri, altri, altri, numeri);
    EXPECT_EQ(lati, (Testi{"Position", "Number"}));
    EXPECT_EQ(numeri.front(), "0");
    EXPECT_EQ(numeri.back(), "63");
}

TEST_F(MarkedCatalogue, HandsOutNoTextForAValueWithoutOne) {
    EXPECT_EQ(catalogo_->getStrPhi(static_cast<GRANDEZZA_FISICA_FUNZKEL>(32)), "");
    EXPECT_EQ(catalogo_->getStrObj(static_cast<OGGETTO_MISURATO_FUNZKEL>(58)), "");
    EXPECT_EQ(catalogo_->getStrPos(static_cast<POSIZIONE_FUNZKEL>(23)), "");
    EXPECT_EQ(catalogo_->getXmlStrPhi(static_cast<GRANDEZZA_FISICA_FUNZKEL>(32)), "");
    EXPECT_EQ(catalogo_->getXmlStrObj(static_cast<OGGETTO_MISURATO_FUNZKEL>(58)), "");
}

TEST_F(MarkedCatalogue, SearchesDecimalsWithUnitsAsTheyStand) {
    for (const s_grandezza_fisica_uiv& riga : grandezze())
        for (const s_udm_associata& unita : std::span(riga.udm, static_cast<unsigned>(riga.num_udm))) {
            const char* udm = unita.dati.udm;
            EXPECT_EQ(catalogo_->getNumDecimaliDefault(riga.chiave, udm), unita.decimali_default);
            EXPECT_EQ(catalogo_->getNumDecimaliMax(riga.chiave, udm), unita.decimali_max);
            EXPECT_EQ(catalogo_->getNumDecimaliMin(riga.chiave, udm), unita.decimali_min);
        }
}

}  // namespace
