#include "domain/catalogo_json.h"

#include <list>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <span>
#include <vector>

#include "domain/campi.h"
#include "domain/identificatore.h"
#include "domain/pacchetti.h"
#include "domain/tipi_campione.h"
#include "output/celle.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

using Json = nlohmann::ordered_json;

Json testo_o_nullo(const char* testo) {
    return testo == nullptr || *testo == '\0' ? Json() : Json(testo);
}

Json identificatore(kel_funpos fid) {
    return esadecimale(fid, 8);
}

// Where each field lies. The fields from bit 23 on are read in one of two ways, as bit 22 says.
Json disposizione() {
    struct Campo {
        const char* campo;
        unsigned bit;
        unsigned quanti;
        const char* quando;
    };
    static constexpr Campo CAMPI[] = {
        {"quantity", FID_SHIFT_PHI, 7, nullptr},
        {"object", FID_SHIFT_OBJ, 8, "quantity is not a packet"},
        {"details", FID_SHIFT_OBJ, 8, "quantity is a packet"},
        {"position", FID_SHIFT_POS, 5, "quantity is not a packet"},
        {"specialisation", FID_SHIFT_POS, 5, "quantity is a packet"},
        {"inout", FID_SHIFT_INOUT, 2, nullptr},
        {"numbered", FID_SHIFT_NUMBERED, 1, nullptr},
        {"number", FID_SHIFT_NUMBER, 6, "numbered is 1"},
        {"leftright", FID_SHIFT_LEFTRIGHT, 2, "numbered is 0"},
        {"frontrear", FID_SHIFT_FRONTREAR, 2, "numbered is 0"},
        {"updown", FID_SHIFT_UPDOWN, 2, "numbered is 0"},
    };
    Json tutti = Json::array();
    for (const Campo& c : CAMPI)
        tutti.push_back({{"field", c.campo}, {"bit", c.bit}, {"bits", c.quanti}, {"when", testo_o_nullo(c.quando)}});
    return tutti;
}

Json vocabolario(std::span<const s_campo_fid> righe) {
    Json tutte = Json::array();
    for (const s_campo_fid& riga : righe)
        tutte.push_back({{"value", riga.valore},
                         {"xml", riga.xml},
                         {"short_text", testo_o_nullo(riga.breve)},
                         {"text", testo_o_nullo(riga.testo)}});
    return tutte;
}

Json campi_con_nome() {
    return {{"quantity", vocabolario(grandezza_fisica_FunzKel)},
            {"object", vocabolario(oggetto_misurato_FunzKel)},
            {"position", vocabolario(posizione_FunzKel)},
            {"inout", vocabolario(inout_FunzKel)},
            {"leftright", vocabolario(leftright_FunzKel)},
            {"frontrear", vocabolario(frontrear_FunzKel)},
            {"updown", vocabolario(updown_FunzKel)},
            {"details", vocabolario(dettagli_FunzKel)},
            {"specialisation_gps", vocabolario(specializzazione_gps_FunzKel)},
            {"specialisation_laptime", vocabolario(specializzazione_laptime_FunzKel)}};
}

// What every function has, whichever part of the catalogue it comes from.
Json funzione(const IFunzioni& catalogo, kel_funpos fid) {
    const std::string vecchio = id_vecchio(fid);
    return {{"identifier", identificatore(fid)},
            {"name", catalogo.getNomeFunzione(fid, false)},
            {"short_name", senza_nul(catalogo.getNomeFunzioneShort(fid))},
            {"legacy_id", testo_o_nullo(vecchio.c_str())}};
}

Json unita(const s_grandezza_fisica_uiv& riga) {
    Json tutte = Json::array();
    for (const s_udm_associata& udm : std::span(riga.udm, static_cast<std::size_t>(riga.num_udm))) {
        const int codice = kelFunGetUdmCode(udm.dati.udm);
        tutte.push_back({{"unit", udm.dati.udm},
                         {"code", codice < 0 ? Json() : Json(codice)},
                         {"gain", come_scritto(udm.dati.gain)},
                         {"offset", come_scritto(udm.dati.offset)},
                         {"reciprocal", udm.dati.reciproco != 0},
                         {"decimals", udm.decimali_default},
                         {"max_decimals", udm.decimali_max},
                         {"min_decimals", udm.decimali_min}});
    }
    return tutte;
}

Json conversioni(const s_grandezza_fisica_uiv& riga) {
    Json tutte = Json::array();
    const auto udm = std::span(riga.udm, static_cast<std::size_t>(riga.num_udm));
    for (const s_udm_associata& da : udm)
        for (const s_udm_associata& a : udm) {
            if (&da == &a)
                continue;
            const s_converter_data dati = kelFunGetConvDatas(riga.chiave, da.dati.udm, a.dati.udm);
            tutte.push_back({{"from", da.dati.udm},
                             {"to", a.dati.udm},
                             {"gain", come_scritto(dati.gain)},
                             {"offset", come_scritto(dati.offset)}});
        }
    return tutte;
}

// The measured objects of a quantity: the rows of the quantity table, particular ones first.
Json oggetti(const IFunzioni& catalogo, unsigned grandezza) {
    Json tutti = Json::array();
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        if (kelFidGrandezza(riga.chiave) != grandezza)
            continue;
        tutti.push_back({{"identifier", identificatore(riga.chiave)},
                         {"object", kelFidOggetto(riga.chiave)},
                         {"name", riga.testo},
                         {"short_name", testo_o_nullo(riga.breve)},
                         {"base_unit", catalogo.getUnitaBase(riga.chiave)},
                         {"units", unita(riga)},
                         {"conversions", conversioni(riga)}});
    }
    return tutti;
}

Json grandezze(const IFunzioni& catalogo) {
    Json tutte = Json::array();
    for (const s_campo_fid& riga : grandezza_fisica_FunzKel)
        tutte.push_back({{"value", riga.valore},
                         {"xml", riga.xml},
                         {"text", testo_o_nullo(riga.testo)},
                         {"objects", oggetti(catalogo, static_cast<unsigned>(riga.valore))}});
    return tutte;
}

Json scelta(const IFunzioni& catalogo, kel_funpos fid, const std::string& testo) {
    Json una = {{"text", testo}};
    una.update(funzione(catalogo, fid));
    return una;
}

Json da_offrire(const IFunzioni& catalogo, const std::string& grandezza, const SFunzionePerGF& offerta) {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -1;
    int ultimo = -1;
    catalogo.getFunzDettagli(offerta.funpos, lati, inout, primo, ultimo);
    std::list<std::string> udm;
    catalogo.getFunzUIVs(offerta.funpos, udm);
    Json una = {{"quantity", grandezza}};
    una.update(funzione(catalogo, offerta.funpos));
    una["name"] = offerta.nome;
    una["units"] = udm;
    una["sides"] = Json::array();
    for (const auto& [bit, testo] : lati)
        una["sides"].push_back(scelta(catalogo, offerta.funpos | bit, testo));
    una["inout"] = Json::array();
    for (const auto& [valore, testo] : inout)
        una["inout"].push_back(scelta(catalogo, offerta.funpos | kelFidBitInOut(valore), testo));
    una["numbers"] = primo < 0 ? Json() : Json{{"first", primo}, {"last", ultimo}};
    return una;
}

Json funzioni(IFunzioni& catalogo) {
    std::vector<unsigned> senza_filtro;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> offerte;
    catalogo.getFunzioni(offerte, senza_filtro);
    Json tutte = Json::array();
    for (const auto& [grandezza, elenco] : offerte)
        for (const SFunzionePerGF& offerta : elenco)
            tutte.push_back(da_offrire(catalogo, catalogo.getStrPhi(grandezza), offerta));
    return tutte;
}

Json codici_unita() {
    Json tutti = Json::array();
    for (const s_codice_udm& riga : udm_codici)
        tutti.push_back({{"code", riga.codice}, {"unit", riga.testo}});
    return tutti;
}

Json tipi_campione() {
    Json tutti = Json::array();
    for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo)
        tutti.push_back({{"code", tipo},
                         {"name", nome_campione(tipo)},
                         {"bytes", kelFunGetSamplSize(tipo)},
                         {"content", contenuto_campione(tipo)}});
    return tutti;
}

Json sottocampo(const IFunzioni& catalogo, const s_sottocampo& riga) {
    const bool riservato = riga.fid == 0;
    return {{"identifier", identificatore(riga.fid)},
            {"name", riservato ? Json() : Json(catalogo.getNomeFunzione(riga.fid, false))},
            {"offset", riga.offset},
            {"bit", riga.num_bit == 0 ? Json() : Json(riga.pos_bit)},
            {"bits", riga.num_bit == 0 ? Json() : Json(riga.num_bit)},
            {"sample_type", riga.tipo_campione},
            {"base_unit", riservato ? Json() : Json(catalogo.getUnitaBase(riga.fid))},
            {"channel_short_name", testo_o_nullo(riga.breve)},
            {"channel_name", testo_o_nullo(riga.testo)}};
}

Json pacchetti(const IFunzioni& catalogo) {
    Json tutti = Json::array();
    for (const Pacchetto& pacchetto : tutti_i_pacchetti()) {
        const unsigned tipo = tipo_pacchetto(pacchetto.fid).value_or(KEL_TIPO_NESSUNO);
        Json sottocampi = Json::array();
        for (const s_sottocampo* riga = pacchetto.sottocampi; !kelFidFineTabella(riga->fid); ++riga)
            sottocampi.push_back(sottocampo(catalogo, *riga));
        tutti.push_back({{"identifier", identificatore(pacchetto.fid)},
                         {"details", kelFidOggetto(pacchetto.fid)},
                         {"specialisation", kelFidPosizione(pacchetto.fid)},
                         {"sample_type", tipo},
                         {"bytes", kelFunGetSamplSize(tipo)},
                         {"subfields", std::move(sottocampi)}});
    }
    return tutti;
}

using RigaCamera = const t_SFunzioneZumikoCam*;

Json riga_camera(RigaCamera riga, const char* tabella, bool visibile) {
    return {{"table", tabella},
            {"code", riga->codice < 0 ? Json() : Json(riga->codice)},
            {"identifier", identificatore(riga->fid)},
            {"short_name", riga->breve},
            {"name", riga->testo},
            {"unit", riga->udm},
            {"scale", come_scritto(riga->scala)},
            {"factor", come_scritto(riga->fattore)},
            {"sample_type", riga->tipo_campione},
            {"legacy_id", riga->id},
            {"visible", visibile}};
}

Json camera(IFunzioni& catalogo) {
    std::set<RigaCamera> visibili;
    for (RigaCamera r = catalogo.getFirstFunzVisZumikoCam(); r != nullptr; r = catalogo.getNextFunzVisZumikoCam())
        visibili.insert(r);
    for (RigaCamera r = catalogo.getFirstFunzVisZumikoCamEstese(); r != nullptr;
         r = catalogo.getNextFunzVisZumikoCamEstese())
        visibili.insert(r);
    std::vector<RigaCamera> righe;
    catalogo.getAllFunzZumikoCamBasePerSw(righe);
    const std::size_t base = righe.size();
    catalogo.getAllFunzZumikoCamEstesePerSw(righe);
    Json tutte = Json::array();
    for (std::size_t i = 0; i < righe.size(); ++i)
        tutte.push_back(riga_camera(righe[i], i < base ? "basic" : "extended", visibili.contains(righe[i])));
    return tutte;
}

// In the order in which a legacy identifier is looked up. One of the legacy table may stand in a camera table as well.
Json vecchi() {
    Json tutti = Json::array();
    const auto aggiungi = [&](const auto& righe, const char* tabella) {
        for (const auto& riga : righe)
            if (!kelFidFineTabella(riga.fid))
                tutti.push_back({{"legacy_id", riga.id},
                                 {"identifier", identificatore(riga.fid)},
                                 {"short_name", riga.breve},
                                 {"name", riga.testo},
                                 {"table", tabella}});
    };
    aggiungi(funz_ZumikoCam_base, "basic");
    aggiungi(funz_ZumikoCam_estese, "extended");
    aggiungi(funz_Kel, "legacy");
    return tutti;
}

}  // namespace

Json catalogo_json(IFunzioni& catalogo, const std::string& versione) {
    return {{"format", FORMA_CATALOGO},
            {"library", "libkelfunzioni"},
            {"version", versione},
            {"identifier_layout", disposizione()},
            {"fields", campi_con_nome()},
            {"quantities", grandezze(catalogo)},
            {"functions", funzioni(catalogo)},
            {"unit_codes", codici_unita()},
            {"sample_types", tipi_campione()},
            {"packets", pacchetti(catalogo)},
            {"camera", camera(catalogo)},
            {"legacy_identifiers", vecchi()}};
}

}  // namespace kel::strumento
