// kelfun find: the identifiers whose names, units or fields hold some words.
#include <list>
#include <memory>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "domain/ricerca.h"
#include "domain/unita.h"
#include "output/celle.h"
#include "text/errori.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> testi;
    SceltaForma forma;
};

// Words apart by blanks; an argument may hold several.
std::vector<std::string> parole(const std::vector<std::string>& testi) {
    std::vector<std::string> tutte;
    for (const std::string& testo : testi)
        for (const std::string& parola : dividi(testo, ' '))
            if (!senza_bordi(parola).empty())
                tutte.push_back(parola);
    return tutte;
}

std::string tra_virgolette(const std::vector<std::string>& testi) {
    std::string tutti;
    for (const std::string& testo : testi)
        tutti += (tutti.empty() ? "'" : ", '") + testo + "'";
    return tutti;
}

[[noreturn]] void nessuno(const std::vector<Noto>& noti, const std::vector<std::string>& cercate) {
    for (const std::string& parola : cercate) {
        const std::string una[] = {parola};
        if (!cerca(noti, una).empty())
            continue;
        const std::vector<std::string> simili = vicine(noti, parola);
        throw NonTrovato("nothing is called '" + parola + "'; " +
                         (simili.empty() ? "searched: names, legacy identifiers, units, XML names, identifiers"
                                         : "close to it: " + elenco(simili)));
    }
    throw NonTrovato("nothing is called all of " + tra_virgolette(cercate) + "; each of them alone is");
}

void riga(Documento& documento, const IFunzioni& catalogo, const Trovato& trovato) {
    const kel_funpos fid = trovato.noto->fid;
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    std::vector<std::string> specie;
    std::vector<std::string> testi;
    for (const Testo* testo : trovato.testi) {
        specie.emplace_back(nome_specie(testo->specie));
        testi.push_back(testo->testo);
    }
    documento.riga({Cella::fid(fid), Cella::testo(catalogo.getNomeFunzione(fid, false)),
                    Cella::testo(senza_nul(catalogo.getNomeFunzioneShort(fid))), testo_o_vuota(id_vecchio(fid)),
                    Cella::lista({unita.begin(), unita.end()}), Cella::testo(nome_grado(trovato.grado)),
                    Cella::lista(specie), Cella::lista(testi)});
}

void esegui(const Argomenti& argomenti) {
    const std::vector<std::string> cercate = parole(argomenti.testi);
    if (cercate.empty())
        throw ErroreUso("there is nothing to search for; accepted: words of a name, unit or identifier, such as oil");
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::vector<Noto> noti = identificatori_noti(*catalogo);
    const std::vector<Trovato> trovati = cerca(noti, cercate);
    if (trovati.empty())
        nessuno(noti, cercate);
    Documento documento(stdout, argomenti.forma.forma());
    documento.inizia("found", "",
                     {{"identifier", "IDENTIFIER"},
                      {"name", "NAME"},
                      {"short_name", "SHORT"},
                      {"legacy_id", "LEGACY IDENTIFIER"},
                      {"units", "UNITS"},
                      {"match", "MATCH"},
                      {"key", "KEY"},
                      {"matched", "MATCHED"}});
    for (const Trovato& trovato : trovati)
        riga(documento, *catalogo, trovato);
    documento.fine();
}

}  // namespace

void aggiungi_find(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "find", "Identifiers by any word of their names, units or fields");
    comando
        .opzione("TEXT", argomenti->testi,
                 "Words that must all be found: in names, legacy identifiers, units, XML names or digits")
        .valore("")
        .obbligatoria();
    aggiungi_forma(comando, argomenti->forma, {"found"});
    comando.note(esempi(
        "Capitals do not matter, nor do blanks, underscores and hyphens between words. The best matches come first:\n"
        "exact, prefix, word, part. Equal ones are in the order names, short names, legacy identifiers, units,\n"
        "fields, identifiers; then by quantity, object and position. KEY and MATCHED tell where each word was found.",
        "kelfun find oil", "kelfun find wheel front mph", "kelfun find FID_OBJ_WATER --json"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
