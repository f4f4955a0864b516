#include "completion/completa.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string_view>

#include "captures/nomi_record.h"
#include "cli/compatta.h"
#include "completion/candidati.h"
#include "completion/contesto.h"
#include "domain/campi.h"
#include "domain/identificatore.h"
#include "domain/tipi_campione.h"
#include "io/uscita.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

bool di_identificatore(std::string_view argomento) {
    return argomento == "ID" || argomento == "REQUEST";
}

// Finds the candidates. Every option and argument is declared once, by its command; what is offered for a value follows
// from what that declaration says of it: its words, its vocabulary, or its name (UNIT, ID, FILE). Two tables below tell
// what belongs to a name.
class Completamento {
public:
    Completamento(const CLI::App& comando, Contesto contesto, Candidati& candidati)
        : comando_(comando), contesto_(std::move(contesto)), candidati_(candidati) {
        const auto ultimo = [this](const char* nome) {
            const auto opzione = contesto_.opzioni.find(nome);
            return opzione == contesto_.opzioni.end() || opzione->second.empty() ? "" : opzione->second.back();
        };
        campi_.grandezza = ultimo(OPZIONE_GRANDEZZA);
        campi_.oggetto = ultimo(OPZIONE_OGGETTO);
        campi_.posizione = ultimo(OPZIONE_POSIZIONE);
        campi_.dettagli = ultimo(OPZIONE_DETTAGLI);
        campi_.specializzazione = ultimo(OPZIONE_SPECIALIZZAZIONE);
    }

    void parola() {
        if (contesto_.attesa != nullptr)
            return valore(*contesto_.attesa);
        const std::string& inizio = candidati_.inizio();
        if (!contesto_.solo_argomenti && inizio.starts_with('-'))
            return opzioni();
        const auto [nome, dichiarato] = argomento(comando_, campi_.dati(), contesto_.argomenti.size());
        if (dichiarato != nullptr)
            argomento_di(nome, *dichiarato);
        if (candidati_.vuoti() && inizio.empty() && !contesto_.solo_argomenti)
            opzioni();
    }

    void valore(const CLI::Option& opzione) {
        static const std::map<std::string_view, Offri> per_tipo = {
            {"SIDE", &Completamento::lati},      {"DIRECTION", &Completamento::inout},
            {"NUMBER", &Completamento::numeri},  {"TYPE", &Completamento::tipi},
            {"UNIT", &Completamento::unita},     {"[CHANNEL=]UNIT", &Completamento::unita_canali},
            {"CHANNEL", &Completamento::canali}, {"ID", &Completamento::identificatori},
            {"FILE", &Completamento::file},
        };
        const std::string tipo = opzione.get_type_name();
        if (const auto offri = per_tipo.find(tipo); offri != per_tipo.end())
            (this->*offri->second)();
        else if (const Vocabolario* voci = vocabolario(nome_lungo(opzione), dettagli()))
            nomi(*voci);
        else
            scelte(tipo);
    }

private:
    using Offri = void (Completamento::*)();

    void argomento_di(const std::string& nome, const CLI::Option& dichiarato) {
        static const std::map<std::string_view, Offri> per_nome = {
            {"ID", &Completamento::identificatori},      {"REQUEST", &Completamento::identificatori},
            {"CHANNEL", &Completamento::identificatori}, {"FILTER", &Completamento::filtri},
            {"TEXT", &Completamento::cercate},           {"FILE", &Completamento::file},
            {"CHANNELS", &Completamento::file},          {"SAMPLES", &Completamento::file},
        };
        if (const auto offri = per_nome.find(nome); offri != per_nome.end())
            (this->*offri->second)();
        else
            scelte(dichiarato.get_type_name());
    }

    // The words that a value is chosen from are declared as "{a,b}".
    void scelte(const std::string& tipo) {
        if (tipo.starts_with('{') && tipo.ends_with('}'))
            for (const std::string& una : dividi(tipo.substr(1, tipo.size() - 2), ','))
                candidati_.aggiungi(una, "");
    }

    void file() { candidati_.file(); }

    // Of a list of functions: those of a quantity, or of a quantity and an object.
    void filtri() {
        nomi(grandezze());
        identificatori();
    }

    // All that a search looks through.
    void cercate() {
        for (const char* opzione : {OPZIONE_GRANDEZZA, OPZIONE_OGGETTO, OPZIONE_POSIZIONE})
            nomi(*vocabolario(opzione));
        if (candidati_.inizio().starts_with("FID_"))
            nomi_xml();
        nomi_funzioni();
        identificatori();
    }

    void opzioni() {
        for (const CLI::Option* opzione : comando_.get_options()) {
            const std::string nome = nome_lungo(*opzione);
            if (nome.empty() || opzione->get_group().empty())
                continue;
            const bool ripetibile = opzione->get_items_expected_max() > 1;
            bool esclusa = contesto_.opzioni.contains(nome) && !ripetibile;
            for (const CLI::Option* altra : opzione->get_excludes())
                esclusa = esclusa || contesto_.opzioni.contains(nome_lungo(*altra));
            if (!esclusa)
                candidati_.aggiungi(nome, opzione->get_description());
        }
    }

    // The words of a vocabulary. "undefined" says the same as leaving the option out.
    void nomi(const Vocabolario& voci) {
        for (const s_campo_fid& riga : voci.righe) {
            const std::string una = parole(voci, riga);
            if (!una.starts_with("undef"))
                candidati_.aggiungi(una, riga.testo);
        }
    }

    void nomi_xml() {
        for (const char* opzione :
             {OPZIONE_GRANDEZZA, OPZIONE_OGGETTO, OPZIONE_POSIZIONE, OPZIONE_INOUT, OPZIONE_DETTAGLI})
            for (const s_campo_fid& riga : vocabolario(opzione)->righe)
                candidati_.aggiungi(riga.xml, riga.testo);
    }

    void nomi_funzioni() {
        std::vector<unsigned> nessuno;
        std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
        catalogo_->getFunzioni(funzioni, nessuno);
        for (const auto& [grandezza, elenco] : funzioni)
            for (const SFunzionePerGF& funzione : elenco)
                candidati_.aggiungi(funzione.nome, esadecimale(funzione.funpos, 8));
    }

    unsigned dettagli() const {
        try {
            return campi_.dettagli.empty() ? 0 : leggi_campo(*vocabolario(OPZIONE_DETTAGLI), campi_.dettagli);
        } catch (const std::exception&) {
            return 0;
        }
    }

    // The function that the words so far name. Half a command line may well name none.
    std::optional<kel_funpos> fid() const {
        try {
            if (campi_.dati())
                return componi(campi_);
            if (contesto_.argomenti.empty() || !di_identificatore(argomento(comando_, false, 0).first))
                return std::nullopt;
            return leggi_fid(*catalogo_, contesto_.argomenti.front());
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }

    void unita() {
        std::optional<kel_funpos> di = fid();
        if (argomento(comando_, false, 0).first == "FILE" && !campi_.dati())
            di = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);  // what a capture's unit is of
        if (di) {
            unita_di(*di);
            return;
        }
        for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv)
            if (!kelFidFineTabella(riga.chiave))
                for (int i = 0; i < riga.num_udm; ++i)
                    candidati_.aggiungi(riga.udm[i].dati.udm, riga.testo);
    }

    // The names in the file of channels that stands on the line.
    std::vector<NomeRecord> nomi_canali() {
        if (contesto_.argomenti.empty())
            return {};
        return nomi_record(*catalogo_, contesto_.argomenti.front(), contesto_.opzioni.contains(OPZIONE_COMPATTA));
    }

    void canali() {
        for (const NomeRecord& uno : nomi_canali())
            candidati_.aggiungi(uno.nome, uno.spiegazione);
    }

    // A unit for everything, or with the name of what it is for.
    void unita_canali() {
        const std::vector<NomeRecord> nomi = nomi_canali();
        if (nomi.empty())
            return unita();
        for (const NomeRecord& uno : nomi)
            for (const std::string& udm : uno.unita)
                candidati_.aggiungi(udm, "wherever a function has it");
        for (const NomeRecord& uno : nomi)
            for (const std::string& udm : uno.unita)
                candidati_.aggiungi(uno.nome + "=" + udm, uno.spiegazione);
    }

    void unita_di(kel_funpos di) {
        const std::string base = catalogo_->getUnitaBase(di);
        std::list<std::string> tutte;
        catalogo_->getFunzUIVs(di, tutte);
        for (const std::string& una : tutte) {
            const s_converter_data& dati = *catalogo_->getParamConv(di, una);
            std::string spiegazione = "base unit";
            if (una != base)
                spiegazione = base + " * " + breve(dati.gain) + (dati.offset != 0 ? " + " + breve(dati.offset) : "") +
                              (dati.reciproco != 0 ? ", reciprocal" : "");
            candidati_.aggiungi(una, spiegazione);
        }
    }

    // By name, and by code once a digit is there.
    void tipi() {
        for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo)
            candidati_.aggiungi(nome_campione(tipo), contenuto_campione(tipo));
        for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE && !candidati_.inizio().empty(); ++tipo)
            candidati_.aggiungi(std::to_string(tipo), contenuto_campione(tipo));
    }

    struct Possibili {
        std::map<unsigned, std::string> lati;
        std::map<unsigned, std::string> inout;
        int primo = -1;
        int ultimo = -1;
    };

    // What may be chosen at the function's position.
    Possibili possibili() const {
        Possibili trovate;
        if (const std::optional<kel_funpos> di = fid())
            catalogo_->getFunzDettagli(*di, trovate.lati, trovate.inout, trovate.primo, trovate.ultimo);
        return trovate;
    }

    // With hyphens a side of two words needs no quotes.
    static std::string con_tratti(std::string_view testo) {
        std::string parola = normale(testo);
        std::replace(parola.begin(), parola.end(), ' ', '-');
        return parola;
    }

    void lati() {
        const Possibili trovate = possibili();
        for (const auto& [bit, testo] : trovate.lati)
            candidati_.aggiungi(con_tratti(testo), testo);
        if (!trovate.lati.empty())
            return;
        for (const std::string& uno : nomi_lati())
            candidati_.aggiungi(uno, "");
        for (const char* angolo : {"front-left", "front-right", "rear-left", "rear-right"})
            candidati_.aggiungi(angolo, "");
    }

    void inout() {
        const Possibili trovate = possibili();
        for (const auto& [valore, testo] : trovate.inout)
            candidati_.aggiungi(con_tratti(testo), testo);
        if (trovate.inout.empty())
            nomi(*vocabolario(OPZIONE_INOUT));
    }

    void numeri() {
        const Possibili trovate = possibili();
        for (int n = trovate.primo; n >= 0 && n <= trovate.ultimo; ++n)
            candidati_.aggiungi(std::to_string(n), "");
    }

    // An identifier is completed as it is being written: 0x10 as well as 0x00000010.
    void esadecimali(kel_funpos uno) {
        const std::string& inizio = candidati_.inizio();
        const bool corto = inizio.size() > 2 && inizio[2] != '0';
        candidati_.aggiungi(esadecimale(uno, corto ? 1 : 8), catalogo_->getNomeFunzione(uno, false));
    }

    void identificatori() {
        const std::string& inizio = candidati_.inizio();
        if (inizio.empty() || !std::string_view("0x").starts_with(inizio.substr(0, 2))) {
            for (const t_SFunzioneVecchia& riga : funz_Kel)
                if (!kelFidFineTabella(riga.fid))
                    candidati_.aggiungi(riga.id, riga.testo);
            std::vector<const t_SFunzioneZumikoCam*> camera;
            catalogo_->getAllFunzZumikoCamBasePerSw(camera);
            catalogo_->getAllFunzZumikoCamEstesePerSw(camera);
            for (const t_SFunzioneZumikoCam* riga : camera)
                if (!kelFidFineTabella(riga->fid) && catalogo_->getFidDaID(riga->id) != 0)
                    candidati_.aggiungi(riga->id, riga->testo);
        }
        if (!inizio.empty() && inizio.front() != '0')
            return;
        std::vector<unsigned> nessuno;
        std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
        catalogo_->getFunzioni(funzioni, nessuno);
        for (const auto& [grandezza, elenco] : funzioni)
            for (const SFunzionePerGF& funzione : elenco)
                esadecimali(funzione.funpos);
        for (const unsigned dettagli : {FID_DETTAGLI_LAPTIME, FID_DETTAGLI_DATETIME, FID_DETTAGLI_GPS})
            for (unsigned spec = 0; spec == 0 || !specializzazioni(dettagli).empty(); ++spec) {
                if (search_sottocampi_struct(dettagli, spec) == nullptr)
                    break;
                pacchetto(dettagli, spec);
            }
        if (inizio.size() <= 2)
            return;
        // The sides only when the user has begun to write one: there are hundreds.
        for (const auto& [grandezza, elenco] : funzioni)
            for (const SFunzionePerGF& funzione : elenco)
                varianti(funzione.funpos);
    }

    void pacchetto(unsigned dettagli, unsigned spec) {
        esadecimali(kelFidComponi(FID_PHI_PACKAGE, dettagli, spec));
        for (const s_sottocampo* riga = search_sottocampi_struct(dettagli, spec); !kelFidFineTabella(riga->fid); ++riga)
            esadecimali(riga->fid);
    }

    void varianti(kel_funpos di) {
        Possibili trovate;
        catalogo_->getFunzDettagli(di, trovate.lati, trovate.inout, trovate.primo, trovate.ultimo);
        for (const auto& voce : trovate.lati)
            esadecimali(di | voce.first);
        for (const auto& voce : trovate.inout)
            esadecimali(di | kelFidBitInOut(voce.first));
    }

    const CLI::App& comando_;
    Contesto contesto_;
    Candidati& candidati_;
    CampiDati campi_;
    std::unique_ptr<IFunzioni> catalogo_{IFunzioni::CreateMe()};
};

}  // namespace

void completa(const CLI::App& programma, const std::vector<std::string>& parole) {
    const std::vector<const CLI::App*> comandi =
        programma.get_subcommands([](const CLI::App* c) { return c != nullptr; });
    const std::string ultima = parole.empty() ? "" : parole.back();
    const std::vector<std::string> prima(parole.begin(), parole.empty() ? parole.end() : parole.end() - 1);

    Candidati candidati(ultima);
    if (prima.empty()) {
        if (ultima.starts_with('-'))
            Completamento(programma, {}, candidati).parola();
        else
            for (const CLI::App* comando : comandi)
                candidati.aggiungi(comando->get_name(), comando->get_description());
    }
    for (const CLI::App* comando : comandi) {
        if (prima.empty() || comando->get_name() != prima.front())
            continue;
        const Contesto contesto = leggi_contesto(*comando, {prima.begin() + 1, prima.end()});
        const std::size_t uguale = ultima.find('=');
        const CLI::Option* opzione = nullptr;
        if (contesto.attesa == nullptr && !contesto.solo_argomenti && ultima.starts_with("--") &&
            uguale != std::string::npos)
            opzione = cerca_opzione(*comando, ultima.substr(0, uguale));
        if (opzione != nullptr && vuole_valore(*opzione)) {
            candidati = Candidati(ultima.substr(uguale + 1));
            candidati.premetti(ultima.substr(0, uguale + 1));
            Completamento(*comando, contesto, candidati).valore(*opzione);
        } else {
            Completamento(*comando, contesto, candidati).parola();
        }
    }
    scrivi_uscita(candidati.testo());
}

}  // namespace kel::strumento
