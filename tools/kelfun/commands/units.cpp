// kelfun units: the units of one function, of all of them, or the unit codes.
#include <list>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "domain/unita.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string id;
    CampiDati campi;
    bool codici = false;
    SceltaForma forma;
    std::string codice;
};

void codici(Documento& documento) {
    documento.inizia("codes", "", {{"code", "CODE", Lato::destra}, {"unit", "UNIT"}});
    for (unsigned codice = 0; const char* testo = kelFunGetUdmTxt(codice); ++codice)
        documento.riga({Cella::intero(codice), Cella::testo(testo)});
}

void tutte(Documento& documento, const IFunzioni& catalogo) {
    documento.inizia("functions", "",
                     {{"identifier", "IDENTIFIER"}, {"name", "NAME"}, {"base_unit", "BASE"}, {"units", "UNITS"}});
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        if (kelFidFineTabella(riga.chiave))
            break;
        std::list<std::string> unita;
        catalogo.getFunzUIVs(riga.chiave, unita);
        documento.riga({Cella::fid(riga.chiave), Cella::testo(riga.testo),
                        Cella::testo(catalogo.getUnitaBase(riga.chiave)), Cella::lista({unita.begin(), unita.end()})});
    }
}

void una(Documento& documento, const IFunzioni& catalogo, kel_funpos fid) {
    if (kelFunGetUIVs(fid) == nullptr)
        throw NonTrovato(esadecimale(fid, 8) + " has no units");
    documento.proprieta("identifier", "Identifier", Cella::fid(fid));
    documento.proprieta("name", "Name", Cella::testo(catalogo.getNomeFunzione(fid, false)));
    documento.proprieta("base_unit", "Base unit", Cella::testo(catalogo.getUnitaBase(fid)));
    tabella_unita(documento, catalogo, fid);
}

void programma(IFunzioni& catalogo, const Argomenti& argomenti) {
    const std::string& linguaggio = argomenti.codice;
    if (argomenti.codici)
        return stampa_programma(linguaggio, "units codes", "The unit codes", nlohmann::ordered_json::object());
    if (argomenti.id.empty() && !argomenti.campi.dati())
        return stampa_programma(linguaggio, "units all", "The units of every row of the quantity table",
                                nlohmann::ordered_json::object());
    const kel_funpos fid = risolvi(catalogo, argomenti.id, argomenti.campi);
    if (kelFunGetUIVs(fid) == nullptr)
        throw NonTrovato(esadecimale(fid, 8) + " has no units");
    stampa_programma(linguaggio, "units", "The units of " + catalogo.getNomeFunzione(fid, false),
                     {{"fid", fid_per_programma(fid)}});
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const bool funzione = !argomenti.id.empty() || argomenti.campi.dati();
    if (argomenti.codici && funzione)
        throw ErroreUso("--codes lists the codes of every unit; accepted: --codes or an identifier");
    if (!argomenti.codice.empty())
        return programma(*catalogo, argomenti);
    Documento documento(stdout, argomenti.forma.forma());
    if (argomenti.codici)
        codici(documento);
    else if (funzione)
        una(documento, *catalogo, risolvi(*catalogo, argomenti.id, argomenti.campi));
    else
        tutte(documento, *catalogo);
    documento.fine();
}

}  // namespace

void aggiungi_units(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "units", "Units of a function, of every function, or the unit codes");
    comando.opzione("ID", argomenti->id, "Identifier; none: the units of all functions");
    comando.bandiera("--codes", argomenti->codici, "List the unit codes; some of their texts differ from the units'");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_forma(comando, argomenti->forma, {"units", "properties", "functions", "codes"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi("Value in a unit = value in the base unit * gain + offset. A reciprocal unit shows a pace.",
                        "kelfun units", "kelfun units --quantity velocity", "kelfun units --codes --csv"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
