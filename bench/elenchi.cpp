// Composed names, and the lists of functions and of their choices, beside plain loops over the tables.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "comune/cicli.h"
#include "comune/funzioni.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

using Catalogo = std::shared_ptr<const IFunzioni>;

void nomi(const Catalogo& catalogo) {
    // Quantities without a row: the long name is composed of the fields.
    const auto senza_riga = genera([](Casuale& casuale) {
        const std::uint32_t grandezze[] = {FID_PHI_UNDEFINED, FID_PHI_CUSTOM};
        return fid_qualsiasi(casuale, uno_di(casuale, grandezze));
    });
    ciclo::righe(
        "composed long name", "getNomeFunzione", senza_riga,
        [catalogo](kel_funpos fid) { return catalogo->getNomeFunzione(fid, false); },
        [](kel_funpos fid) { return ciclo::nome(fid, false); });

    const auto qualsiasi = genera(
        [](Casuale& casuale) { return fid_qualsiasi(casuale, sotto(casuale, std::size(grandezza_fisica_FunzKel))); });
    using Testo = std::array<char, sizeof(s_nome_breve)>;
    const auto testo = [](const s_nome_breve& nome) {
        Testo copia;
        std::memcpy(copia.data(), &nome, sizeof nome);
        return copia;
    };
    ciclo::righe(
        "composed short name", "kelFunGetNomeFunzioneShort", qualsiasi,
        [testo](kel_funpos fid) { return testo(kelFunGetNomeFunzioneShort(nullptr, fid)); },
        [testo](kel_funpos fid) { return testo(ciclo::nome_breve(fid)); });
}

// The contents of the lists as one text, for comparison.
struct Elenco {
    ciclo::Funzioni funzioni;

    bool operator==(const Elenco& altro) const {
        const auto uguali = [](const SFunzionePerGF& a, const SFunzionePerGF& b) {
            return a.funpos == b.funpos && a.nome == b.nome;
        };
        return std::equal(funzioni.begin(), funzioni.end(), altro.funzioni.begin(), altro.funzioni.end(),
                          [&](const auto& a, const auto& b) {
                              return a.first == b.first && std::equal(a.second.begin(), a.second.end(),
                                                                      b.second.begin(), b.second.end(), uguali);
                          });
    }
};

void funzioni(const Catalogo& catalogo) {
    // Every other request is for all functions, the others for one to three quantities or classes of functions.
    const auto filtri = genera([](Casuale& casuale) {
        std::vector<unsigned> filtro;
        for (unsigned quanti = sotto(casuale, 2) * (1 + sotto(casuale, 3)); quanti > 0; --quanti) {
            const kel_funpos chiave = uno_di(casuale, uib_grandezza_fisica_uiv).chiave;
            filtro.push_back(sotto(casuale, 2) == 0 ? chiave : kelFidGrandezza(chiave));
        }
        return filtro;
    });
    ciclo::righe(
        "functions to offer", "getFunzioni", filtri,
        [catalogo](std::vector<unsigned> filtro) {
            Elenco elenco;
            catalogo->getFunzioni(elenco.funzioni, filtro);
            return elenco;
        },
        [](const std::vector<unsigned>& filtro) {
            Elenco elenco;
            ciclo::funzioni(elenco.funzioni, filtro);
            return elenco;
        });
}

struct Scelte : ciclo::Dettagli {
    bool operator==(const Scelte& altre) const {
        return lati == altre.lati && inout == altre.inout && primo == altre.primo && ultimo == altre.ultimo;
    }
};

void dettagli(const Catalogo& catalogo) {
    // Half of the functions are at a position where they have choices.
    const auto richieste = genera([](Casuale& casuale) -> kel_funpos {
        const kel_funpos con_scelte[] = {kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL),
                                         kelFidComponi(FID_PHI_LAMBDA, FID_OBJ_RATIO, FID_POS_EXHAUST)};
        return sotto(casuale, 2) == 0 ? uno_di(casuale, con_scelte)
                                      : fid_qualsiasi(casuale, sotto(casuale, std::size(grandezza_fisica_FunzKel)));
    });
    ciclo::righe(
        "choices of a function", "getFunzDettagli", richieste,
        [catalogo](kel_funpos fid) {
            Scelte scelte;
            catalogo->getFunzDettagli(fid, scelte.lati, scelte.inout, scelte.primo, scelte.ultimo);
            return scelte;
        },
        [](kel_funpos fid) {
            Scelte scelte;
            ciclo::dettagli(fid, scelte);
            return scelte;
        });
}

}  // namespace

void righe_elenchi() {
    const Catalogo catalogo(IFunzioni::CreateMe());
    nomi(catalogo);
    funzioni(catalogo);
    dettagli(catalogo);
}
