// The other look-ups: units of a function, codes and XML names of texts, subfields of packets, whole lists.
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "comune/cicli.h"
#include "comune/funzioni.h"
#include "comune/mappe.h"
#include "righe.h"

using namespace prova;

namespace {

struct UnitaChiesta {
    kel_funpos fid;
    const char* udm;
};

// A unit of a function; every eighth text is a unit of another one.
Ingressi<UnitaChiesta> unita_chieste() {
    return genera([](Casuale& casuale) {
        const auto riga = [&] { return sotto(casuale, std::size(uib_grandezza_fisica_uiv) - 1); };
        const s_grandezza_fisica_uiv& sua = uib_grandezza_fisica_uiv[riga()];
        const s_grandezza_fisica_uiv& altra = uib_grandezza_fisica_uiv[riga()];
        const s_grandezza_fisica_uiv& quale = sotto(casuale, 8) == 0 ? altra : sua;
        return UnitaChiesta{sua.chiave, quale.udm[sotto(casuale, static_cast<std::uint32_t>(quale.num_udm))].dati.udm};
    });
}

const s_udm_associata& unita_in_ciclo(const UnitaChiesta& chiesta) {
    const s_grandezza_fisica_uiv* riga = ciclo::grandezza(chiesta.fid);
    if (riga == nullptr)
        return NULL_udm_associate[0];
    for (int i = 0; i < riga->num_udm; ++i)
        if (std::strcmp(riga->udm[i].dati.udm, chiesta.udm) == 0)
            return riga->udm[i];
    return riga->udm[0];
}

void unita(const std::shared_ptr<IFunzioni>& catalogo) {
    const auto chieste = unita_chieste();
    ciclo::righe(
        "unit of a function", "kelFunGetConvData", chieste,
        [](const UnitaChiesta& chiesta) { return kelFunGetConvData(chiesta.fid, chiesta.udm); },
        [](const UnitaChiesta& chiesta) { return &unita_in_ciclo(chiesta).dati; });
    ciclo::righe(
        "decimals in a unit", "kelFunGetNumDecimaliDefault", chieste,
        [](const UnitaChiesta& chiesta) { return kelFunGetNumDecimaliDefault(chiesta.fid, chiesta.udm); },
        [](const UnitaChiesta& chiesta) { return unita_in_ciclo(chiesta).decimali_default; });
    ciclo::righe(
        "units of a function", "getFunzUIVs", chieste,
        [catalogo](const UnitaChiesta& chiesta) {
            std::list<std::string> testi;
            catalogo->getFunzUIVs(chiesta.fid, testi);
            return testi;
        },
        [](const UnitaChiesta& chiesta) {
            std::list<std::string> testi;
            const s_grandezza_fisica_uiv* riga = ciclo::grandezza(chiesta.fid);
            for (int i = 0; riga != nullptr && i < riga->num_udm; ++i)
                testi.emplace_back(riga->udm[i].dati.udm);
            return testi;
        });
}

// Texts of a table to values, beside hash maps.
template <typename Nostra>
void testi_a_valori(const std::string& riga, const char* nome,
                    const std::vector<std::pair<std::string_view, int>>& coppie, int ignoto, Nostra nostra) {
    const auto testi = genera([&](Casuale& casuale) {
        std::string testo(uno_di(casuale, coppie).first);
        if (sotto(casuale, 4) == 0)
            testo += 'x';
        return testo;
    });
    serie(riga, Ruolo::nostro, nome, testi, nostra);
    pari_mappe<std::string_view>(riga, coppie, testi, [ignoto](const auto& mappa, const std::string& testo) {
        return in_mappa(mappa, std::string_view(testo), ignoto);
    });
}

void codici(const std::shared_ptr<IFunzioni>& catalogo) {
    std::vector<std::pair<std::string_view, int>> codici;
    for (const s_codice_udm& riga : udm_codici)
        codici.emplace_back(riga.testo, riga.codice);
    testi_a_valori("unit text to code", "kelFunGetUdmCode", codici, -1,
                   [](const std::string& testo) { return kelFunGetUdmCode(testo.c_str()); });
    std::vector<std::pair<std::string_view, int>> nomi_xml;
    for (const s_campo_fid& riga : oggetto_misurato_FunzKel)
        nomi_xml.emplace_back(riga.xml, riga.valore);
    testi_a_valori("XML name to object", "getIdxObj", nomi_xml, 0,
                   [catalogo](const std::string& testo) { return catalogo->getIdxObj(testo); });
}

void testo_di_un_valore(const std::shared_ptr<IFunzioni>& catalogo) {
    const std::string riga = "text of an object";
    const auto valori = genera([](Casuale& casuale) {
        return static_cast<OGGETTO_MISURATO_FUNZKEL>(sotto(casuale, std::size(oggetto_misurato_FunzKel)));
    });
    const auto nostra = [catalogo](OGGETTO_MISURATO_FUNZKEL valore) { return catalogo->getStrObj(valore); };
    const auto limite = [](OGGETTO_MISURATO_FUNZKEL valore) {
        return std::string(oggetto_misurato_FunzKel[valore].testo);
    };
    concordi(riga, valori, nostra, limite);
    serie(riga, Ruolo::nostro, "getStrObj", valori, nostra);
    serie(riga, Ruolo::limite, "the table's row, copied", valori, limite);
}

void sottocampi() {
    const std::string riga = "subfield of a packet";
    using Riga = const s_sottocampo*;
    const auto fid = genera([](Casuale& casuale) -> kel_funpos {
        return sotto(casuale, 2) == 0 ? sottocampi_gps_kel[sotto(casuale, std::size(sottocampi_gps_kel) - 1)].fid
                                      : fid_qualsiasi(casuale, sotto(casuale, 32));
    });
    std::vector<std::pair<kel_funpos, Riga>> coppie;
    for (const s_sottocampo& una : sottocampi_gps_kel)
        if (&una != std::end(sottocampi_gps_kel) - 1)
            coppie.emplace_back(una.fid, &una);
    serie(riga, Ruolo::nostro, "getDettagliSottocampo", fid,
          [](kel_funpos uno) { return getDettagliSottocampo(sottocampi_gps_kel, uno); });
    pari_mappe<kel_funpos>(riga, coppie, fid, [](const auto& mappa, kel_funpos uno) { return in_mappa(mappa, uno); });
}

void quantita(const std::shared_ptr<IFunzioni>& catalogo) {
    using Mappa = std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>;
    ciclo::righe(
        "all quantities", "RiempiMapGrandezzaFisica", genera([](Casuale&) { return 0; }),
        [catalogo](int) {
            Mappa mappa;
            catalogo->RiempiMapGrandezzaFisica(mappa);
            return mappa;
        },
        [](int) {
            Mappa mappa;
            for (const s_campo_fid& riga : grandezza_fisica_FunzKel)
                mappa[static_cast<GRANDEZZA_FISICA_FUNZKEL>(riga.valore)] = riga.testo;
            return mappa;
        });
}

}  // namespace

void righe_ricerche() {
    const std::shared_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    unita(catalogo);
    codici(catalogo);
    testo_di_un_valore(catalogo);
    sottocampi();
    quantita(catalogo);
}
