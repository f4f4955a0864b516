// Units, decimals and conversions of every quantity and object; function lists; texts of field values.
#include <algorithm>
#include <list>
#include <map>
#include <set>

#include "exhaustive/libreria.h"
#include "exhaustive/spazi.h"
#include "model/campi.h"
#include "model/elenchi.h"
#include "model/unita.h"

namespace esaustivo {

namespace {

using modello::Fid;

std::vector<std::string> testi_delle_unita() {
    std::set<std::string> testi = {"", "?", "KM/H", "km/h ", "lambda", "a/f"};
    for (const auto& [nome, tabella] : modello::tabelle().udm)
        for (const modello::RigaUdm& riga : tabella)
            testi.insert(riga.testo);
    return {testi.begin(), testi.end()};
}

void decimali(unsigned parte, Conta& conta) {
    static const std::vector<std::string> testi = testi_delle_unita();
    const IFunzioni& funzioni = catalogo();
    for (Fid fid = parte << 11; fid < (parte + 1) << 11; fid++)
        for (const std::string& udm : testi) {
            const auto dove = [&] { return esadecimale(fid) + " in " + udm; };
            const auto riga = modello::riga_conversione(fid, udm);
            const char* testo = udm.c_str();
            conta.numeri(kelFunGetNumDecimaliDefault(fid, testo), modello::decimali_default(fid, udm), dove);
            conta.numeri(kelFunGetNumDecimaliMax(fid, testo), modello::decimali_max(fid, udm), dove);
            conta.numeri(kelFunGetNumDecimaliMin(fid, testo), modello::decimali_min(fid, udm), dove);
            const s_converter_data* attesa = &riga_unita(riga).dati;
            conta.caso(kelFunGetConvData(fid, testo) == attesa && funzioni.getParamConv(fid, udm) == attesa &&
                           funzioni.getNumDecimaliDefault(fid, udm) == kelFunGetNumDecimaliDefault(fid, testo) &&
                           funzioni.getNumDecimaliMax(fid, udm) == kelFunGetNumDecimaliMax(fid, testo) &&
                           funzioni.getNumDecimaliMin(fid, udm) == kelFunGetNumDecimaliMin(fid, testo),
                       riga.riga, [&] { return dove() + ": another unit row"; });
        }
}

void tra(Conta& conta, Fid fid, const std::string& da, const std::string& a) {
    const s_converter_data libreria = kelFunGetConvDatas(fid, da.c_str(), a.c_str());
    const s_converter_data oggetto = catalogo().getParamConv(fid, da, a);
    const modello::Conversione atteso = modello::conversione_tra(fid, da, a);
    const auto dove = [&] { return esadecimale(fid) + " from " + da + " to " + a; };
    conta.reali(libreria.gain, atteso.gain, dove);
    conta.reali(libreria.offset, atteso.offset, dove);
    conta.caso(libreria.reciproco == 0 && std::string(libreria.udm).empty() && oggetto.gain == libreria.gain &&
                   oggetto.offset == libreria.offset && oggetto.reciproco == 0,
               0, [&] { return dove() + ": unit text or reciprocal flag"; });
}

// From every unit text to every other, of one function of every row of the quantity table and some without a row.
void conversioni(unsigned /*parte*/, Conta& conta) {
    const std::vector<std::string> testi = testi_delle_unita();
    std::vector<Fid> fid = {0, 0x1C, 0x21, 0x7F, 0xFFFFFFFF};
    for (const modello::RigaGrandezza& riga : modello::tabelle().grandezze)
        fid.push_back(riga.chiave);
    for (const Fid uno : fid)
        for (const std::string& da : testi)
            for (const std::string& a : testi)
                tra(conta, uno, da, a);
}

void unita_delle_funzioni(unsigned /*parte*/, Conta& conta) {
    for (Fid fid = 0; fid < 1U << 15; fid++) {
        std::list<std::string> lista = {"before"};
        catalogo().getFunzUIVs(fid, lista);
        const std::vector<std::string> attese = modello::unita(fid);
        conta.numeri(std::equal(lista.begin(), lista.end(), attese.begin(), attese.end()) ? 1 : 0, 1,
                     [&] { return "units of " + esadecimale(fid); });
        conta.testi(catalogo().getUnitaBase(fid), modello::unita_base(fid), [&] { return esadecimale(fid); });
        conta.caso(kelFunGetConvData(fid, nullptr) == &NULL_udm_associate[0].dati, 0,
                   [&] { return "null unit of " + esadecimale(fid); });
    }
    for (unsigned codice = 0; codice < 70000; codice++) {
        const unsigned uno = codice < 65536 ? codice : 0U - (codice - 65535);
        const char* testo = kelFunGetUdmTxt(uno);
        conta.testi(testo == nullptr ? "(null)" : testo, modello::testo_codice(uno).value_or("(null)"),
                    [&] { return "unit code " + std::to_string(uno); });
    }
}

void confronta_funzioni(Conta& conta, std::vector<unsigned> filtro) {
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> trovate = {{FID_PHI_CUSTOM, {}}};
    catalogo().getFunzioni(trovate, filtro);
    std::map<unsigned, std::vector<std::pair<Fid, std::string>>> semplici;
    for (const auto& [grandezza, lista] : trovate) {
        auto& uscita = semplici[static_cast<unsigned>(grandezza)];
        for (const SFunzionePerGF& funzione : lista)
            uscita.emplace_back(funzione.funpos, funzione.nome);
    }
    conta.numeri(semplici == modello::funzioni(filtro) ? 1 : 0, 1, [&] {
        std::string testo = "functions with the filter";
        for (const unsigned f : filtro)
            testo += " " + esadecimale(f);
        return testo;
    });
}

// Filters of one identifier: all of quantity and object, also with bits above; and of two.
void funzioni(unsigned parte, Conta& conta) {
    if (parte == 0)
        confronta_funzioni(conta, {});
    for (unsigned f = parte << 11; f < (parte + 1) << 11; f++) {
        confronta_funzioni(conta, {f});
        confronta_funzioni(conta, {f | 0xFFFF8000U, (f * 2654435761U) >> 17});
    }
}

// Texts and XML names of field values, in range and out of it.
void valori(unsigned /*parte*/, Conta& conta) {
    IFunzioni& f = catalogo();
    for (int i = -70000; i < 70000; i++) {
        const auto dove = [&] { return "field value " + std::to_string(i); };
        const auto phi = static_cast<GRANDEZZA_FISICA_FUNZKEL>(i);
        const auto obj = static_cast<OGGETTO_MISURATO_FUNZKEL>(i);
        conta.testi(f.getStrPhi(phi), modello::testo_campo("grandezza_fisica_FunzKel", i), dove);
        conta.testi(f.getStrObj(obj), modello::testo_campo("oggetto_misurato_FunzKel", i), dove);
        conta.testi(f.getStrPos(static_cast<POSIZIONE_FUNZKEL>(i)), modello::testo_campo("posizione_FunzKel", i), dove);
        conta.testi(f.getXmlStrPhi(phi), modello::xml_campo("grandezza_fisica_FunzKel", i), dove);
        conta.testi(f.getXmlStrObj(obj), modello::xml_campo("oggetto_misurato_FunzKel", i), dove);
    }
    std::vector<std::list<std::string>> liste(12);
    f.GetValoriCampiFID(liste[0], liste[1], liste[2], liste[3], liste[4], liste[5], liste[6], liste[7], liste[8],
                        liste[9], liste[10], liste[11]);
    const std::vector<std::list<std::string>> attese = modello::valori_campi();
    for (std::size_t i = 0; i < 12; i++)
        conta.numeri(liste[i] == attese.at(i) ? 1 : 0, 1, [&] { return "list " + std::to_string(i); });
}

}  // namespace

std::vector<Spazio> spazi_unita() {
    return {{"units", "units, base units and unit codes of every quantity and object", 1, 1, unita_delle_funzioni},
            {"decimals", "decimals and unit row of every quantity, object and unit text", 16, 1, decimali},
            {"conversions", "conversions between all unit texts of every quantity row", 1, 1, conversioni},
            {"function-lists", "function lists with every filter of one quantity and object", 16, 1, funzioni},
            {"field-values", "texts and XML names of field values", 1, 1, valori}};
}

}  // namespace esaustivo
