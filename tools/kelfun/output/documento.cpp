#include "output/documento.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "io/colore.h"
#include "io/uscita.h"
#include "output/cifre.h"
#include "output/scritture.h"
#include "text/errori.h"
#include "text/larghezza.h"
#include "text/mostrabile.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

// Texts hold the bytes of samples and of recorded names as they are: what a terminal would obey is made visible.
std::string per_persone(const Cella& cella) {
    return mostrabile(cella.per_persone());
}

std::size_t colonne_di(const std::string& testo) {
    return static_cast<std::size_t>(larghezza_testo(testo));
}

nlohmann::ordered_json json(const Cella& cella) {
    return std::visit(
        [](const auto& valore) -> nlohmann::ordered_json {
            using Tipo = std::decay_t<decltype(valore)>;
            if constexpr (std::is_same_v<Tipo, std::monostate>)
                return nullptr;
            else
                return valore;  // a number that is not finite becomes null
        },
        cella.valore());
}

// Doubles by their shortest decimals, which the writer of JSON does not always find.
std::string scritto_json(const Cella& cella) {
    if (const auto* reale = std::get_if<double>(&cella.valore())) {
        char testo[CIFRE_MASSIME];
        return {testo, scrivi_double(testo, *reale)};
    }
    return json(cella).dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

/// An object as it is put together: a name that occurs twice keeps its place and takes the later value.
class Oggetto {
public:
    void metti(std::string_view nome, std::string valore) {
        const auto posto = std::ranges::find(membri_, nome, &Membro::first);
        if (posto != membri_.end())
            posto->second = std::move(valore);
        else
            membri_.emplace_back(nome, std::move(valore));
    }
    std::string scritto() const {
        std::string testo = "{";
        for (const auto& [nome, valore] : membri_)
            testo += (testo.size() > 1 ? "," : "") + testo_json(nome) + ":" + valore;
        return testo + "}";
    }

private:
    using Membro = std::pair<std::string, std::string>;
    std::vector<Membro> membri_;
};

std::string testo_csv(const Cella& cella) {
    if (const auto* lista = std::get_if<std::vector<std::string>>(&cella.valore()))
        return mostrabile(elenco(*lista));
    if (const auto* testo = std::get_if<std::string>(&cella.valore()))
        return mostrabile(*testo);
    if (std::holds_alternative<std::monostate>(cella.valore()))
        return "";
    if (const auto* logico = std::get_if<bool>(&cella.valore()))
        return *logico ? "true" : "false";
    return scritto_json(cella);
}

}  // namespace

Documento::Documento(std::FILE* file, Aspetto aspetto)
    : file_(file), forma_(aspetto.forma), colori_(aspetto.colori), scelta_(std::move(aspetto.tabella)) {}

// Whether a table that begins is to be printed. Without --table, CSV prints the first table that is not the properties.
bool Documento::vale(std::string_view tabella) {
    viste_.emplace_back(tabella);
    if (scelta_.empty() && forma_ == Forma::csv && tabella != PROPRIETA)
        scelta_ = tabella;
    return scelta_.empty() ? forma_ != Forma::csv : scelta_ == tabella;
}

void Documento::scrivi(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), file_);
}

std::string Documento::colorato(std::string_view colore, std::string_view testo) const {
    if (!colori_ || colore.empty() || testo.empty())
        return std::string(testo);
    return std::string(colore) + std::string(testo) + std::string(NORMALE);
}

void Documento::proprieta(std::string_view chiave, std::string_view titolo, const Cella& valore) {
    proprieta_.push_back({std::string(chiave), std::string(titolo), valore});
}

void Documento::inizia(std::string_view chiave, std::string_view titolo, std::vector<Colonna> colonne, bool flusso) {
    chiudi_proprieta();
    chiudi();
    muta_ = !vale(chiave);
    if (muta_)
        return;
    tabella_ = chiave;
    colonne_ = std::move(colonne);
    flusso_ = flusso;
    aperta_ = true;
    righe_ = 0;
    for (Colonna& colonna : colonne_)
        colonna.larghezza = std::max(flusso ? colonna.larghezza : 0, colonna.titolo.size());
    if (forma_ == Forma::ndjson)
        return;
    if (forma_ == Forma::json)
        scrivi((scritto_ ? ",\n  " : "{\n  ") + testo_json(chiave) + ": [");
    else if (scritto_)
        scrivi("\n");
    scritto_ = true;
    if (forma_ == Forma::tabella && !titolo.empty())
        scrivi(colorato(GRASSETTO, titolo) + "\n");
    if (forma_ == Forma::csv || (forma_ == Forma::tabella && flusso_))
        testata();
}

void Documento::riga(std::vector<Cella> celle) {
    if (muta_)
        return;
    celle.resize(colonne_.size());
    ++righe_;
    if (forma_ == Forma::csv) {
        std::vector<std::string> testi;
        testi.reserve(celle.size());
        for (const Cella& cella : celle)
            testi.push_back(testo_csv(cella));
        riga_csv(testi);
    } else if (forma_ != Forma::tabella) {
        riga_json(celle);
    } else if (flusso_) {
        riga_per_persone(celle);
    } else {
        celle_.push_back(std::move(celle));
    }
}

// Two columns of one name are one member of an object: such rows are left to `riga`.
RigheDati* Documento::righe_dati() {
    if (dati_ || muta_ || !aperta_ || forma_ == Forma::tabella || righe_ != 0)
        return dati_.get();
    std::set<std::string_view> chiavi = {"table"};
    RigheDati::Aspetto aspetto;
    aspetto.csv = forma_ == Forma::csv;
    for (const Colonna& colonna : colonne_) {
        if (!chiavi.insert(colonna.chiave).second && !aspetto.csv)
            return nullptr;
        const bool prima = &colonna == &colonne_.front();
        const std::string nome = testo_json(colonna.chiave) + ":";
        aspetto.davanti.push_back(aspetto.csv ? (prima ? "" : ",") : (prima ? "{" : ",") + nome);
    }
    if (forma_ == Forma::ndjson)
        aspetto.davanti.front().insert(1, "\"table\":" + testo_json(tabella_) + ",");
    aspetto.inizio = forma_ == Forma::json ? "\n    " : "";
    aspetto.tra = forma_ == Forma::json ? ",\n    " : "";
    aspetto.dietro = aspetto.csv ? "\n" : forma_ == Forma::json ? "}" : "}\n";
    dati_ = std::make_unique<RigheDati>(file_, std::move(aspetto));
    return dati_.get();
}

void Documento::chiudi() {
    if (!aperta_)
        return;
    aperta_ = false;
    if (dati_) {
        dati_->svuota();
        righe_ += dati_->righe();
        dati_.reset();
    }
    if (forma_ == Forma::json)
        scrivi(righe_ > 0 ? "\n  ]" : "]");
    if (forma_ != Forma::tabella || flusso_)
        return;
    for (const auto& celle : celle_)
        for (std::size_t i = 0; i < celle.size(); ++i)
            colonne_[i].larghezza = std::max(colonne_[i].larghezza, colonne_di(per_persone(celle[i])));
    testata();
    for (const auto& celle : celle_)
        riga_per_persone(celle);
    celle_.clear();
}

void Documento::chiudi_proprieta() {
    if (proprieta_.empty() || !vale(PROPRIETA)) {
        proprieta_.clear();
        return;
    }
    if (forma_ == Forma::tabella) {
        proprieta_per_persone();
    } else if (forma_ == Forma::csv) {
        scrivi("property,value\n");
        for (const Proprieta& p : proprieta_)
            riga_csv({p.chiave, testo_csv(p.valore)});
    } else if (forma_ == Forma::ndjson) {
        Oggetto oggetto;
        oggetto.metti("table", testo_json(PROPRIETA));
        for (const Proprieta& p : proprieta_)
            oggetto.metti(p.chiave, scritto_json(p.valore));
        scrivi(oggetto.scritto() + "\n");
    } else {
        for (const Proprieta& p : proprieta_)
            scrivi((&p != &proprieta_.front() || scritto_ ? ",\n  " : "{\n  ") + testo_json(p.chiave) + ": " +
                   scritto_json(p.valore));
    }
    scritto_ = true;
    proprieta_.clear();
}

void Documento::proprieta_per_persone() {
    std::size_t larghezza = 0;
    for (const Proprieta& p : proprieta_)
        larghezza = std::max(larghezza, p.titolo.size());
    for (const Proprieta& p : proprieta_) {
        const std::string testo = per_persone(p.valore);
        scrivi(colorato(GRASSETTO, p.titolo) + std::string(larghezza - p.titolo.size() + 2, ' ') +
               (p.valore.identificatore() ? colorato(CIANO, testo) : testo) + "\n");
    }
}

void Documento::testata() {
    std::vector<std::string> chiavi;
    std::vector<Cella> titoli;
    for (const Colonna& colonna : colonne_) {
        chiavi.push_back(colonna.chiave);
        titoli.push_back(Cella::testo(colonna.titolo));
    }
    if (forma_ == Forma::csv)
        riga_csv(chiavi);
    else
        riga_per_persone(titoli, GRASSETTO);
}

void Documento::riga_json(const std::vector<Cella>& celle) {
    Oggetto oggetto;
    if (forma_ == Forma::ndjson)
        oggetto.metti("table", testo_json(tabella_));
    for (std::size_t i = 0; i < celle.size(); ++i)
        oggetto.metti(colonne_[i].chiave, scritto_json(celle[i]));
    if (forma_ == Forma::ndjson)
        scrivi(oggetto.scritto() + "\n");
    else
        scrivi((righe_ > 1 ? ",\n    " : "\n    ") + oggetto.scritto());
}

void Documento::riga_per_persone(const std::vector<Cella>& celle, std::string_view colore) {
    std::string riga;
    std::size_t mancano = 0;  // blanks to write before the next text; at the end of a line none are written
    for (std::size_t i = 0; i < celle.size(); ++i) {
        const std::string testo = per_persone(celle[i]);
        const std::size_t larga = colonne_di(testo);
        const std::size_t spazi = std::max(colonne_[i].larghezza, larga) - larga;
        const bool destra = colonne_[i].lato == Lato::destra;
        mancano += (i > 0 ? 2 : 0) + (destra ? spazi : 0);
        const std::size_t fine = testo.find_last_not_of(' ') + 1;
        if (fine > 0)
            riga += std::string(std::exchange(mancano, 0), ' ') +
                    colorato(celle[i].identificatore() ? CIANO : colore, testo.substr(0, fine));
        mancano += testo.size() - fine + (destra ? 0 : spazi);
    }
    scrivi(riga + "\n");
}

void Documento::riga_csv(const std::vector<std::string>& testi) {
    std::string riga;
    for (std::size_t i = 0; i < testi.size(); ++i)
        riga += (i > 0 ? "," : "") + citato_csv(testi[i]);
    scrivi(riga + "\n");
}

void Documento::fine() {
    chiudi_proprieta();
    chiudi();
    if (!scelta_.empty() && std::find(viste_.begin(), viste_.end(), scelta_) == viste_.end())
        throw NonTrovato("this answer has no table '" + scelta_ + "'; it has: " + elenco(viste_));
    if (forma_ == Forma::json)
        scrivi(scritto_ ? "\n}\n" : "{}\n");
    manda_uscita(file_);
}

}  // namespace kel::strumento
