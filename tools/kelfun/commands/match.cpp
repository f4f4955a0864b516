// kelfun match: which channels carry a function.
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/avvisi.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/canale.h"
#include "domain/identificatore.h"
#include "domain/tipi_campione.h"
#include "io/righe.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> posizionali;  // request, unless given by its fields, and channels
    CampiDati campi;
    std::string file;
    std::string variante;
    Avvisi avvisi;
    SceltaForma forma;
    std::string codice;
};

// Identifiers of a file, one a line; a # begins a comment.
std::vector<std::string> leggi_file(const std::string& nome) {
    std::vector<std::string> testi;
    for (std::string& riga : leggi_righe(nome)) {
        riga = senza_bordi(riga.substr(0, riga.find('#')));
        if (!riga.empty())
            testi.push_back(riga);
    }
    return testi;
}

class Ricerca {
public:
    Ricerca(IFunzioni& catalogo, std::vector<s_kel_canale>& canali, kel_funpos richiesta, Documento& documento)
        : catalogo_(catalogo), canali_(canali), richiesta_(richiesta), documento_(documento) {
        const auto quanti = static_cast<unsigned>(canali.size());
        kelFunInit(&set_, canali.data(), quanti, quanti);
    }

    void prima() { riga("match", kelFunGetMatchCh(&set_, richiesta_)); }
    // The warning when a channel with another instance number is found.
    std::optional<std::string> avviso_numero() {
        const s_kel_canale* canale = kelFunGetMatchChFull(&set_, richiesta_);
        if (canale == nullptr || !kelFidNumerato(richiesta_) || !kelFidNumerato(canale->fid) ||
            kelFidNumero(canale->fid) == kelFidNumero(richiesta_))
            return std::nullopt;
        return "full finds number " + std::to_string(kelFidNumero(canale->fid)) + " for number " +
               std::to_string(kelFidNumero(richiesta_)) + ": instance numbers are compared in pieces of two bits";
    }
    void intera() { riga("full", kelFunGetMatchChFull(&set_, richiesta_)); }
    void elenco() {
        std::vector<s_kel_canale*> trovati(canali_.size());
        auto quanti = static_cast<unsigned>(trovati.size());
        if (kelFunGetMatchChList(&set_, richiesta_, trovati.data(), &quanti) == 0)
            return;
        for (unsigned i = 0; i < quanti; ++i)
            riga("list", trovati[i]);
    }
    std::size_t trovati() const { return trovati_; }

private:
    void riga(const char* variante, const s_kel_canale* canale) {
        if (canale == nullptr)
            return;
        ++trovati_;
        const kel_funpos fid = canale->fid;
        const bool sottocampo = kelFidGrandezza(fid) == FID_PHI_PACKAGE &&
                                kelConvMatchSottocampo(kelFidOggetto(fid), kelFidPosizione(fid), richiesta_) != 0;
        documento_.riga({Cella::testo(variante), Cella::intero(canale - canali_.data()), Cella::fid(fid),
                         Cella::testo(catalogo_.getNomeFunzione(fid, false)),
                         Cella::testo(sottocampo ? "subfield" : "own")});
    }

    IFunzioni& catalogo_;
    std::vector<s_kel_canale>& canali_;
    kel_funpos richiesta_;
    Documento& documento_;
    s_set_canali set_{};
    std::size_t trovati_ = 0;
};

void programma(const Argomenti& argomenti, const IFunzioni& catalogo, kel_funpos richiesta,
               const std::vector<s_kel_canale>& canali) {
    nlohmann::ordered_json elenco = nlohmann::ordered_json::array();
    for (const s_kel_canale& uno : canali) {
        const kel_funpos fid = uno.fid;
        elenco.push_back({{"hex", esadecimale(fid, 8)}, {"nome", catalogo.getNomeFunzione(fid, false)}});
    }
    const auto vuole = [&](const char* variante) {
        return argomenti.variante.empty() || argomenti.variante == variante;
    };
    stampa_programma(argomenti.codice, "match", "Channels that carry " + catalogo.getNomeFunzione(richiesta, false),
                     {{"fid", fid_per_programma(richiesta)},
                      {"canali", elenco},
                      {"match", vuole("match")},
                      {"full", vuole("full")},
                      {"list", vuole("list")},
                      {"con_set", vuole("full") || vuole("list")}});
}

void esegui(Argomenti& argomenti) {
    const std::string& variante = argomenti.variante;
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<std::string> testi = argomenti.posizionali;
    std::string id;
    if (!argomenti.campi.dati() && !testi.empty()) {
        id = testi.front();
        testi.erase(testi.begin());
    }
    const kel_funpos richiesta = risolvi(*catalogo, id, argomenti.campi);
    if (!argomenti.file.empty())
        for (const std::string& testo : leggi_file(argomenti.file))
            testi.push_back(testo);
    if (testi.empty())
        throw ErroreUso("there are no channels to search; accepted: REQUEST CHANNEL..., or --channels FILE");
    std::vector<s_kel_canale> canali;
    for (const std::string& testo : testi) {
        const kel_funpos fid = leggi_fid(*catalogo, testo);
        canali.push_back(canale(fid, tipo_pacchetto(fid).value_or(0)));
    }

    if (!argomenti.codice.empty())
        return programma(argomenti, *catalogo, richiesta, canali);
    Documento documento(stdout, argomenti.forma.forma());
    Ricerca ricerca(*catalogo, canali, richiesta, documento);
    if (variante.empty() || variante == "full")
        argomenti.avvisi.subito(ricerca.avviso_numero());
    documento.proprieta("request", "Request", Cella::fid(richiesta));
    documento.proprieta("name", "Name", Cella::testo(catalogo->getNomeFunzione(richiesta, false)));
    documento.proprieta("channels", "Channels", Cella::intero(static_cast<std::int64_t>(canali.size())));
    documento.inizia("matches", "",
                     {{"variant", "VARIANT"},
                      {"channel", "CHANNEL", Lato::destra},
                      {"identifier", "IDENTIFIER"},
                      {"name", "NAME"},
                      {"by", "BY"}});
    if (variante.empty() || variante == "match")
        ricerca.prima();
    if (variante.empty() || variante == "full")
        ricerca.intera();
    if (variante.empty() || variante == "list")
        ricerca.elenco();
    documento.fine();
    if (ricerca.trovati() == 0)
        throw NonTrovato("no channel carries " + esadecimale(richiesta, 8));
}

}  // namespace

void aggiungi_match(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "match", "Channels that carry a function");
    comando
        .opzione("[REQUEST] CHANNEL", argomenti->posizionali,
                 "Request, unless its fields are given, and the channels' identifiers in order")
        .valore("");
    comando
        .opzione("--channels", argomenti->file, "More channels: identifiers of a file, one a line; - is standard input")
        .valore("FILE");
    comando.opzione("--variant", argomenti->variante, "Only one of the three").scelta({"match", "full", "list"});
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"matches", "properties"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(
        esempi("Fields of the request that are 0 match anything. match: first channel by quantity, object and "
               "position; full:\n"
               "first by every field; list: all by quantity, object and position. A packet also carries its subfields.",
               "kelfun match 0x10 0x0F 0x00070010 0x00068010", "kelfun match 0xA8010 0x0F 0x19A --json",
               "kelfun match --quantity speed --side left REF_SPEED_RL REF_SPEED_FL --variant full"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
