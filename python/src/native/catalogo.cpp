// The catalogue for Python: names, searches and fields, by the sources of the command-line tool, so that both give the same
// answers.
#include <list>
#include <map>
#include <memory>
#include <vector>

#include "IFunzioni.h"
#include "domain/campi.h"
#include "domain/catalogo_json.h"
#include "domain/identificatore.h"
#include "domain/lettura_fid.h"
#include "domain/ricerca.h"
#include "risposta.h"
#include "text/parole.h"

using kel::python::Json;
using kel::python::rispondi;

namespace {

std::unique_ptr<IFunzioni> catalogo() {
    return std::unique_ptr<IFunzioni>(IFunzioni::CreateMe());
}

std::vector<std::string> parole(const char* testo) {
    std::vector<std::string> tutte;
    for (const std::string& parola : kel::strumento::dividi(testo, ' '))
        if (!kel::strumento::senza_bordi(parola).empty())
            tutte.push_back(parola);
    return tutte;
}

}  // namespace

/// Frees an answer.
KELPYTHON_API void kelpy_libera(char* testo) {
    std::free(testo);
}

KELPYTHON_API char* kelpy_nome(kel_funpos fid, int tutti) {
    return rispondi([&] { return Json(catalogo()->getNomeFunzione(fid, tutti != 0)); });
}

KELPYTHON_API char* kelpy_vecchio(kel_funpos fid) {
    return rispondi([&] { return Json(kel::strumento::id_vecchio(fid)); });
}

/// The identifier of digits, of a legacy identifier or of a name.
KELPYTHON_API char* kelpy_leggi_fid(const char* testo) {
    return rispondi([&] { return Json(kel::strumento::leggi_fid(*catalogo(), testo)); });
}

/// The identifier of fields by name; "" and -1 are fields that are not given. Sides stand apart by blanks.
KELPYTHON_API char* kelpy_componi(const char* grandezza, const char* oggetto, const char* posizione, const char* inout,
                                  int numero, const char* lati, const char* dettagli, const char* specializzazione) {
    return rispondi([&] {
        kel::strumento::CampiDati campi;
        campi.grandezza = grandezza;
        campi.oggetto = oggetto;
        campi.posizione = posizione;
        campi.inout = inout;
        if (numero >= 0)
            campi.numero = static_cast<unsigned>(numero);
        campi.lati = parole(lati);
        campi.dettagli = dettagli;
        campi.specializzazione = specializzazione;
        return Json(kel::strumento::componi(campi));
    });
}

/// The fields of an identifier, from its lowest bit on.
KELPYTHON_API char* kelpy_campi(kel_funpos fid) {
    return rispondi([&] {
        Json json = Json::array();
        for (const kel::strumento::Campo& campo : kel::strumento::campi(fid))
            json.push_back({{"field", campo.chiave},
                            {"value", campo.valore},
                            {"xml", campo.riga == nullptr ? Json() : Json(campo.riga->xml)},
                            {"text", campo.riga == nullptr ? Json() : Json(campo.riga->testo)}});
        return json;
    });
}

/// A unit of a function, "" for the base unit; or the error with the nearest.
KELPYTHON_API char* kelpy_leggi_udm(kel_funpos fid, const char* udm) {
    return rispondi([&] { return Json(kel::strumento::leggi_udm(*catalogo(), fid, udm)); });
}

/// What answers every word, best first; and for no answer the words that are near to the first word that nothing has.
KELPYTHON_API char* kelpy_trova(const char* testo) {
    return rispondi([&] {
        const auto tutti = catalogo();
        const std::vector<kel::strumento::Noto> noti = kel::strumento::identificatori_noti(*tutti);
        const std::vector<std::string> cercate = parole(testo);
        Json trovati = Json::array();
        Json vicine = Json::array();
        for (const kel::strumento::Trovato& trovato : kel::strumento::cerca(noti, cercate)) {
            Json specie = Json::array();
            Json testi = Json::array();
            for (const kel::strumento::Testo* suo : trovato.testi) {
                specie.push_back(kel::strumento::nome_specie(suo->specie));
                testi.push_back(suo->testo);
            }
            trovati.push_back({{"identifier", trovato.noto->fid},
                               {"match", kel::strumento::nome_grado(trovato.grado)},
                               {"key", specie},
                               {"matched", testi}});
        }
        for (std::size_t i = 0; trovati.empty() && vicine.empty() && i < cercate.size(); ++i)
            if (kel::strumento::cerca(noti, {&cercate[i], 1}).empty())
                vicine = {cercate[i], kel::strumento::vicine(noti, cercate[i])};
        return Json{{"found", trovati}, {"near", vicine}};
    });
}

/// Sides and in/out choices of a function, and its first and last instance number; -1 for none.
KELPYTHON_API char* kelpy_scelte(kel_funpos fid) {
    return rispondi([&] {
        std::map<unsigned, std::string> lati;
        std::map<unsigned, std::string> inout;
        int primo = -1;
        int ultimo = -1;
        catalogo()->getFunzDettagli(fid, lati, inout, primo, ultimo);
        Json json = {{"sides", Json::array()}, {"inout", Json::array()}, {"first", primo}, {"last", ultimo}};
        for (const auto& [bit, testo] : lati)
            json["sides"].push_back({fid | bit, testo});
        for (const auto& [valore, testo] : inout)
            json["inout"].push_back({fid | kelFidBitInOut(valore), testo});
        return json;
    });
}

/// The whole catalogue, as `kelfun catalogue` writes it.
KELPYTHON_API char* kelpy_catalogo() {
    return rispondi([&] { return kel::strumento::catalogo_json(*catalogo(), KELFUN_VERSIONE); });
}
