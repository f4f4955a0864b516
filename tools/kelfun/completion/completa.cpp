#include "completion/completa.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string_view>

#include "captures/nomi_record.h"
#include "domain/campi.h"
#include "domain/identificatore.h"
#include "domain/tipi_campione.h"
#include "io/uscita.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

constexpr std::string_view FILE_DELLA_SHELL = ":files";

// The words before the one being completed, sorted into options and arguments.
struct Contesto {
    std::map<std::string, std::vector<std::string>> opzioni;  // values by long name; flags have none
    std::vector<std::string> argomenti;
    const CLI::Option* attesa = nullptr;  // the option whose value comes next
    bool solo_argomenti = false;          // after "--"
};

class Candidati {
public:
    explicit Candidati(std::string inizio) : inizio_(std::move(inizio)) {}

    /// What stands before each candidate within its word: "--unit=".
    void premetti(std::string testo) { prima_ = std::move(testo); }

    void aggiungi(std::string_view parola, std::string_view spiegazione) {
        if (!parola.starts_with(inizio_) || parola.empty() || !visti_.insert(std::string(parola)).second)
            return;
        testo_ += prima_ + std::string(parola);
        if (!spiegazione.empty())
            testo_ += "\t" + std::string(spiegazione);
        testo_ += "\n";
    }
    void file() { testo_ += std::string(FILE_DELLA_SHELL) + "\n"; }

    const std::string& inizio() const { return inizio_; }
    bool vuoti() const { return testo_.empty(); }
    const std::string& testo() const { return testo_; }

private:
    std::string inizio_;
    std::string prima_;
    std::string testo_;
    std::set<std::string> visti_;
};

std::string nomeLungo(const CLI::Option& opzione) {
    return opzione.get_lnames().empty() ? "" : "--" + opzione.get_lnames().front();
}

bool vuoleValore(const CLI::Option& opzione) {
    return opzione.get_items_expected_max() > 0;
}

const CLI::Option* cercaOpzione(const CLI::App& comando, std::string_view nome) {
    for (const CLI::Option* opzione : comando.get_options())
        if (opzione->nonpositional() && opzione->check_name(std::string(nome)))
            return opzione;
    return nullptr;
}

Contesto leggiContesto(const CLI::App& comando, const std::vector<std::string>& prima) {
    Contesto contesto;
    for (const std::string& parola : prima) {
        if (contesto.attesa != nullptr) {
            contesto.opzioni[nomeLungo(*contesto.attesa)].push_back(parola);
            contesto.attesa = nullptr;
        } else if (contesto.solo_argomenti || parola.size() < 2 || parola.front() != '-') {
            contesto.argomenti.push_back(parola);
        } else if (parola == "--") {
            contesto.solo_argomenti = true;
        } else {
            const std::size_t uguale = parola.find('=');
            const CLI::Option* opzione = cercaOpzione(comando, parola.substr(0, uguale));
            if (opzione == nullptr)
                continue;
            std::vector<std::string>& valori = contesto.opzioni[nomeLungo(*opzione)];
            if (uguale != std::string::npos)
                valori.push_back(parola.substr(uguale + 1));
            else if (vuoleValore(*opzione))
                contesto.attesa = opzione;
        }
    }
    return contesto;
}

// An argument may be named by several words: "[ID] VALUE" is an identifier, unless its fields are given, and values.
std::vector<std::string> nomiArgomento(const CLI::Option& argomento, bool campi_dati) {
    std::vector<std::string> nomi;
    for (std::string nome : dividi(argomento.get_name(true), ' ')) {
        if (nome.front() == '[') {
            if (campi_dati)
                continue;
            nome = nome.substr(1, nome.size() - 2);
        }
        nomi.push_back(nome);
    }
    return nomi;
}

// Name and declaration of the n-th argument of a command; null when it takes no more.
std::pair<std::string, const CLI::Option*> argomento(const CLI::App& comando, bool campi_dati, std::size_t n) {
    for (const CLI::Option* opzione : comando.get_options()) {
        if (!opzione->get_positional())
            continue;
        const std::vector<std::string> nomi = nomiArgomento(*opzione, campi_dati);
        const bool ripetuto = opzione->get_items_expected_max() > static_cast<int>(nomi.size());
        if (n < nomi.size())
            return {nomi[n], opzione};
        if (ripetuto && !nomi.empty())
            return {nomi.back(), opzione};
        n -= nomi.size();
    }
    return {"", nullptr};
}

bool diIdentificatore(std::string_view nome) {
    return nome == "ID" || nome == "REQUEST" || nome == "CHANNEL" || nome == "FILTER";
}

const Vocabolario* vocabolario(std::string_view opzione, unsigned dettagli) {
    static const Vocabolario tutti[] = {
        grandezze(),
        {"--object", "FID_OBJ_", oggetto_misurato_FunzKel, FID_MASK_OBJ},
        {"--position", "FID_POS_", posizione_FunzKel, FID_MASK_POS},
        {"--inout", "FID_INOUT_", inout_FunzKel, FID_MASK_INOUT},
        {"--details", "FID_DETTAGLI_", dettagli_FunzKel, FID_MASK_OBJ},
    };
    static const Vocabolario gps = {"--specialisation", "FID_SPEC_GPS_", specializzazione_gps_FunzKel, FID_MASK_POS};
    static const Vocabolario giro = {"--specialisation", "FID_SPEC_LAPTIME_", specializzazione_laptime_FunzKel,
                                     FID_MASK_POS};
    if (opzione == "--specialisation")
        return dettagli == FID_DETTAGLI_GPS ? &gps : dettagli == FID_DETTAGLI_LAPTIME ? &giro : nullptr;
    for (const Vocabolario& uno : tutti)
        if (uno.opzione == opzione)
            return &uno;
    return nullptr;
}

class Completamento {
public:
    Completamento(const CLI::App& comando, Contesto contesto, Candidati& candidati)
        : comando_(comando), contesto_(std::move(contesto)), candidati_(candidati) {
        const auto ultimo = [this](const char* nome) {
            const auto opzione = contesto_.opzioni.find(nome);
            return opzione == contesto_.opzioni.end() || opzione->second.empty() ? "" : opzione->second.back();
        };
        campi_.grandezza = ultimo("--quantity");
        campi_.oggetto = ultimo("--object");
        campi_.posizione = ultimo("--position");
        campi_.dettagli = ultimo("--details");
        campi_.specializzazione = ultimo("--specialisation");
    }

    void parola() {
        if (contesto_.attesa != nullptr)
            return valore(*contesto_.attesa);
        const std::string& inizio = candidati_.inizio();
        if (!contesto_.solo_argomenti && inizio.starts_with("-"))
            return opzioni();
        const auto [nome, dichiarato] = argomento(comando_, campi_.dati(), contesto_.argomenti.size());
        if (dichiarato != nullptr)
            posizionale(nome, *dichiarato);
        if (candidati_.vuoti() && inizio.empty() && !contesto_.solo_argomenti)
            opzioni();
    }

    void valore(const CLI::Option& opzione) {
        const std::string nome = nomeLungo(opzione);
        const std::string tipo = opzione.get_type_name();
        if (nome == "--side")
            lati();
        else if (nome == "--number" && cercaOpzione(comando_, "--quantity") != nullptr)
            numeri();
        else if (nome == "--inout")
            inout();
        else if (const Vocabolario* voci = vocabolario(nome, dettagli()))
            nomi(*voci);
        else if (nome == "--type")
            tipi();
        else if (nome == "--decimals")
            scelta({"0", "1", "2", "3"});
        else if (nome == "--format")
            scelta({"right", "left", "compact"});
        else if (nome == "--variant")
            scelta({"match", "full", "list"});
        else if (nome == "--code")
            scelta({"c", "cpp", "python"});
        else if (tipo == "UNIT")
            unita();
        else if (tipo == "[CHANNEL=]UNIT")
            unitaCanali();
        else if (tipo == "CHANNEL")
            for (const NomeRecord& uno : nomiCanali())
                candidati_.aggiungi(uno.nome, uno.spiegazione);
        else if (tipo == "ID")
            identificatori();
        else
            deiTipi(tipo);
    }

private:
    void scelta(std::initializer_list<std::string_view> parole) {
        for (const std::string_view una : parole)
            candidati_.aggiungi(una, "");
    }

    // What the declared type tells: a list of words, "TEXT:{a,b}", or a file.
    void deiTipi(const std::string& tipo) {
        const std::size_t apre = tipo.find('{');
        const std::size_t chiude = tipo.find('}', apre);
        if (apre != std::string::npos && chiude != std::string::npos) {
            for (const std::string& una : dividi(tipo.substr(apre + 1, chiude - apre - 1), ','))
                candidati_.aggiungi(una, "");
        } else if (tipo.find("FILE") != std::string::npos || tipo.find("PATH") != std::string::npos ||
                   tipo.find("DIR") != std::string::npos) {
            candidati_.file();
        }
    }

    void posizionale(const std::string& nome, const CLI::Option& dichiarato) {
        if (diIdentificatore(nome)) {
            if (nome == "FILTER")
                nomi(grandezze());
            identificatori();
        } else if (nome == "TEXT") {
            for (const char* opzione : {"--quantity", "--object", "--position"})
                nomi(*vocabolario(opzione, 0));
            if (candidati_.inizio().starts_with("FID_"))
                nomiXml();
            nomiFunzioni();
            identificatori();
        } else if (dichiarato.get_type_name().find('{') != std::string::npos) {
            deiTipi(dichiarato.get_type_name());
        } else if (nome != "VALUE" && nome != "HEX" && nome != "TIME") {
            candidati_.file();
        }
    }

    void opzioni() {
        for (const CLI::Option* opzione : comando_.get_options()) {
            const std::string nome = nomeLungo(*opzione);
            if (nome.empty() || opzione->get_group().empty())
                continue;
            const bool ripetibile = opzione->get_items_expected_max() > 1;
            bool esclusa = contesto_.opzioni.contains(nome) && !ripetibile;
            for (const CLI::Option* altra : opzione->get_excludes())
                esclusa = esclusa || contesto_.opzioni.contains(nomeLungo(*altra));
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

    void nomiXml() {
        for (const char* opzione : {"--quantity", "--object", "--position", "--inout", "--details"})
            for (const s_campo_fid& riga : vocabolario(opzione, 0)->righe)
                candidati_.aggiungi(riga.xml, riga.testo);
    }

    void nomiFunzioni() {
        std::vector<unsigned> nessuno;
        std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
        catalogo_->getFunzioni(funzioni, nessuno);
        for (const auto& [grandezza, elenco] : funzioni)
            for (const SFunzionePerGF& funzione : elenco)
                candidati_.aggiungi(funzione.nome, esadecimale(funzione.funpos, 8));
    }

    unsigned dettagli() const {
        try {
            return campi_.dettagli.empty() ? 0 : leggiCampo(*vocabolario("--details", 0), campi_.dettagli);
        } catch (const std::exception&) {
            return 0;
        }
    }

    // The function that the words so far name. Half a command line may well name none.
    std::optional<kel_funpos> fid() const {
        try {
            if (campi_.dati())
                return componi(campi_);
            if (contesto_.argomenti.empty() || !diIdentificatore(argomento(comando_, false, 0).first))
                return std::nullopt;
            return leggiFid(*catalogo_, contesto_.argomenti.front());
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }

    void unita() {
        std::optional<kel_funpos> di = fid();
        if (argomento(comando_, false, 0).first == "FILE" && !campi_.dati())
            di = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);  // what a capture's unit is of
        if (di) {
            unitaDi(*di);
            return;
        }
        for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv)
            if (!kelFidFineTabella(riga.chiave))
                for (int i = 0; i < riga.num_udm; ++i)
                    candidati_.aggiungi(riga.udm[i].dati.udm, riga.testo);
    }

    // The names in the file of channels that stands on the line.
    std::vector<NomeRecord> nomiCanali() {
        if (contesto_.argomenti.empty())
            return {};
        return nomiRecord(*catalogo_, contesto_.argomenti.front(),
                          contesto_.opzioni.contains("--packed") ? Disposizione::compatta : Disposizione::dichiarata);
    }

    // A unit for everything, or with the name of what it is for.
    void unitaCanali() {
        const std::vector<NomeRecord> nomi = nomiCanali();
        if (nomi.empty())
            return unita();
        for (const NomeRecord& uno : nomi)
            for (const std::string& udm : uno.unita)
                candidati_.aggiungi(udm, "wherever a function has it");
        for (const NomeRecord& uno : nomi)
            for (const std::string& udm : uno.unita)
                candidati_.aggiungi(uno.nome + "=" + udm, uno.spiegazione);
    }

    void unitaDi(kel_funpos di) {
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

    void tipi() {
        for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo)
            candidati_.aggiungi(std::to_string(tipo), contenutoCampione(tipo));
    }

    struct Scelte {
        std::map<unsigned, std::string> lati;
        std::map<unsigned, std::string> inout;
        int primo = -1;
        int ultimo = -1;
    };

    // What may be chosen at the function's position.
    Scelte scelte() const {
        Scelte trovate;
        if (const std::optional<kel_funpos> di = fid())
            catalogo_->getFunzDettagli(*di, trovate.lati, trovate.inout, trovate.primo, trovate.ultimo);
        return trovate;
    }

    // With hyphens a side of two words needs no quotes.
    static std::string conTratti(std::string_view testo) {
        std::string parola = normale(testo);
        std::replace(parola.begin(), parola.end(), ' ', '-');
        return parola;
    }

    void lati() {
        const Scelte trovate = scelte();
        for (const auto& [bit, testo] : trovate.lati)
            candidati_.aggiungi(conTratti(testo), testo);
        if (trovate.lati.empty())
            scelta({"left", "right", "center", "front", "rear", "xcenter", "up", "down", "zcenter", "front-left",
                    "front-right", "rear-left", "rear-right"});
    }

    void inout() {
        const Scelte trovate = scelte();
        for (const auto& [valore, testo] : trovate.inout)
            candidati_.aggiungi(conTratti(testo), testo);
        if (trovate.inout.empty())
            nomi(*vocabolario("--inout", 0));
    }

    void numeri() {
        const Scelte trovate = scelte();
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
                if (!kelFidFineTabella(riga->fid) && kelFunGetFidDaID(riga->id) != 0)
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
        Scelte trovate;
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
        if (ultima.starts_with("-"))
            Completamento(programma, {}, candidati).parola();
        else
            for (const CLI::App* comando : comandi)
                candidati.aggiungi(comando->get_name(), comando->get_description());
    }
    for (const CLI::App* comando : comandi) {
        if (prima.empty() || comando->get_name() != prima.front())
            continue;
        const Contesto contesto = leggiContesto(*comando, {prima.begin() + 1, prima.end()});
        const std::size_t uguale = ultima.find('=');
        const CLI::Option* opzione = nullptr;
        if (contesto.attesa == nullptr && !contesto.solo_argomenti && ultima.starts_with("--") &&
            uguale != std::string::npos)
            opzione = cercaOpzione(*comando, ultima.substr(0, uguale));
        if (opzione != nullptr && vuoleValore(*opzione)) {
            candidati = Candidati(ultima.substr(uguale + 1));
            candidati.premetti(ultima.substr(0, uguale + 1));
            Completamento(*comando, contesto, candidati).valore(*opzione);
        } else {
            Completamento(*comando, contesto, candidati).parola();
        }
    }
    scriviUscita(candidati.testo());
}

}  // namespace kel::strumento
