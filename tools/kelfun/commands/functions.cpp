// kelfun functions: what a configuration program would offer.
#include <list>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/campi.h"
#include "domain/identificatore.h"
#include "domain/unita.h"
#include "output/celle.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> filtri;
    CampiDati campi;
    SceltaForma forma;
    std::string codice;
};

std::vector<unsigned> leggi_filtri(IFunzioni& catalogo, const Argomenti& argomenti) {
    std::vector<unsigned> filtri;
    for (const std::string& testo : argomenti.filtri) {
        // A quantity's name comes before a legacy identifier: none is both but for its capitals ("GEAR", the gear).
        const s_campo_fid* grandezza = cerca_nome(grandezze(), testo);
        filtri.push_back(grandezza ? static_cast<unsigned>(grandezza->valore) : leggi_fid(catalogo, testo));
    }
    if (argomenti.campi.dati())
        filtri.push_back(componi(argomenti.campi));
    return filtri;
}

std::vector<std::string> testi(const std::map<unsigned, std::string>& mappa) {
    std::vector<std::string> tutti;
    tutti.reserve(mappa.size());
    for (const auto& voce : mappa)
        tutti.push_back(voce.second);
    return tutti;
}

void riga(Documento& documento, IFunzioni& catalogo, const std::string& grandezza, const SFunzionePerGF& funzione) {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -1;
    int ultimo = -1;
    catalogo.getFunzDettagli(funzione.funpos, lati, inout, primo, ultimo);
    std::list<std::string> unita;
    catalogo.getFunzUIVs(funzione.funpos, unita);
    documento.riga({Cella::testo(grandezza), Cella::fid(funzione.funpos), Cella::testo(funzione.nome),
                    Cella::testo(senza_nul(catalogo.getNomeFunzioneShort(funzione.funpos))),
                    Cella::lista({unita.begin(), unita.end()}), Cella::lista(testi(lati)), Cella::lista(testi(inout)),
                    primo < 0 ? Cella() : Cella::testo(std::to_string(primo) + " to " + std::to_string(ultimo))});
}

void programma(const std::string& linguaggio, const std::vector<unsigned>& filtri) {
    std::vector<std::string> identificatori;
    identificatori.reserve(filtri.size());
    for (const unsigned filtro : filtri)
        identificatori.push_back(esadecimale(filtro, 4));
    stampa_programma(linguaggio, "functions", "Functions that a configuration program would offer",
                     {{"filtrate", !filtri.empty()}, {"filtri", elenco_per_programma(identificatori, 8)}});
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<unsigned> filtri = leggi_filtri(*catalogo, argomenti);
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    catalogo->getFunzioni(funzioni, filtri);
    if (funzioni.empty())
        throw NonTrovato("no function to offer passes the filter");
    if (!argomenti.codice.empty())
        return programma(argomenti.codice, filtri);
    Documento documento(stdout, argomenti.forma.forma());
    documento.inizia("functions", "",
                     {{"quantity", "QUANTITY"},
                      {"identifier", "IDENTIFIER"},
                      {"name", "NAME"},
                      {"short_name", "SHORT"},
                      {"units", "UNITS"},
                      {"sides", "SIDES"},
                      {"inout", "IN/OUT"},
                      {"numbers", "NUMBERS"}});
    for (const auto& [grandezza, elenco] : funzioni)
        for (const SFunzionePerGF& funzione : elenco)
            riga(documento, *catalogo, catalogo->getStrPhi(grandezza), funzione);
    documento.fine();
}

}  // namespace

void aggiungi_functions(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "functions", "Functions that a configuration program would offer");
    comando.opzione(
        "FILTER", argomenti->filtri,
        "Quantity (temperature) or identifier (0x0B8E); several: the functions of each; none: all functions");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_forma(comando, argomenti->forma, {"functions"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi("Of a filter only quantity and object count; an object of 0 stands for all.",
                        "kelfun functions", "kelfun functions temperature speed",
                        "kelfun functions --quantity pressure --object oil --json"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
