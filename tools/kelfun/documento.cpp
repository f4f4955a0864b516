#include "documento.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

#include "errori.h"
#include "numeri.h"

namespace kel::strumento {

namespace {

// Sample bytes reach texts as they are; a terminal must not be given control characters.
std::string innocuo(const std::string& testo) {
    std::string uscita;
    for (const char c : testo) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F)
            uscita += c;
        else
            uscita += "\\x" + esadecimale(byte, 2).substr(2);
    }
    return uscita;
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

std::string testoJson(const nlohmann::ordered_json& valore) {
    return valore.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string testoCsv(const Cella& cella) {
    if (const auto* testo = std::get_if<std::string>(&cella.valore()))
        return innocuo(*testo);
    if (std::holds_alternative<std::monostate>(cella.valore()))
        return "";
    if (const auto* logico = std::get_if<bool>(&cella.valore()))
        return *logico ? "true" : "false";
    return testoJson(json(cella));
}

}  // namespace

Documento::Documento(std::FILE* file, Forma forma) : file_(file), forma_(forma) {}

void Documento::scrivi(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), file_);
}

void Documento::proprieta(std::string_view chiave, std::string_view titolo, const Cella& valore) {
    proprieta_.push_back({std::string(chiave), std::string(titolo), valore});
}

void Documento::inizia(std::string_view chiave, std::string_view titolo, std::vector<Colonna> colonne, bool flusso) {
    chiudiProprieta();
    chiudi();
    colonne_ = std::move(colonne);
    flusso_ = flusso;
    aperta_ = true;
    righe_ = 0;
    if (forma_ == Forma::json) {
        scrivi(scritto_ ? ",\n  " : "{\n  ");
        scrivi(testoJson(chiave) + ": [");
        scritto_ = true;
        return;
    }
    if (scritto_)
        scrivi("\n");
    scritto_ = true;
    if (forma_ == Forma::tabella && !titolo.empty())
        scrivi(std::string(titolo) + "\n");
    std::vector<std::string> testata;
    for (Colonna& colonna : colonne_) {
        colonna.larghezza = std::max(flusso ? colonna.larghezza : 0, colonna.titolo.size());
        testata.push_back(forma_ == Forma::csv ? colonna.chiave : colonna.titolo);
    }
    if (forma_ == Forma::csv)
        rigaCsv(testata);
    else if (flusso_)
        rigaPerPersone(testata);
}

void Documento::riga(std::vector<Cella> celle) {
    celle.resize(colonne_.size());
    ++righe_;
    if (forma_ == Forma::json) {
        nlohmann::ordered_json oggetto = nlohmann::ordered_json::object();
        for (std::size_t i = 0; i < celle.size(); ++i)
            oggetto[colonne_[i].chiave] = json(celle[i]);
        scrivi(righe_ > 1 ? ",\n    " : "\n    ");
        scrivi(testoJson(oggetto));
    } else if (forma_ == Forma::csv) {
        std::vector<std::string> testi;
        testi.reserve(celle.size());
        for (const Cella& cella : celle)
            testi.push_back(testoCsv(cella));
        rigaCsv(testi);
    } else if (flusso_) {
        std::vector<std::string> testi;
        testi.reserve(celle.size());
        for (const Cella& cella : celle)
            testi.push_back(innocuo(cella.perPersone()));
        rigaPerPersone(testi);
    } else {
        celle_.push_back(std::move(celle));
    }
}

void Documento::chiudi() {
    if (!aperta_)
        return;
    aperta_ = false;
    if (forma_ == Forma::json) {
        scrivi(righe_ > 0 ? "\n  ]" : "]");
        return;
    }
    if (forma_ == Forma::csv || flusso_)
        return;
    std::vector<std::vector<std::string>> testi(1);
    for (const Colonna& colonna : colonne_)
        testi.front().push_back(colonna.titolo);
    for (const auto& celle : celle_) {
        auto& riga = testi.emplace_back();
        for (std::size_t i = 0; i < celle.size(); ++i) {
            riga.push_back(innocuo(celle[i].perPersone()));
            colonne_[i].larghezza = std::max(colonne_[i].larghezza, riga.back().size());
        }
    }
    celle_.clear();
    for (const auto& riga : testi)
        rigaPerPersone(riga);
}

void Documento::chiudiProprieta() {
    if (proprieta_.empty())
        return;
    std::size_t larghezza = 0;
    for (const Proprieta& p : proprieta_)
        larghezza = std::max(larghezza, p.titolo.size());
    if (forma_ == Forma::csv)
        scrivi("property,value\n");
    for (const Proprieta& p : proprieta_) {
        if (forma_ == Forma::json)
            scrivi((scritto_ ? ",\n  " : "{\n  ") + testoJson(p.chiave) + ": " + testoJson(json(p.valore)));
        else if (forma_ == Forma::csv)
            rigaCsv({p.chiave, testoCsv(p.valore)});
        else
            scrivi(p.titolo + std::string(larghezza - p.titolo.size() + 2, ' ') + innocuo(p.valore.perPersone()) +
                   "\n");
        scritto_ = true;
    }
    proprieta_.clear();
}

void Documento::rigaPerPersone(const std::vector<std::string>& testi) {
    std::string riga;
    for (std::size_t i = 0; i < testi.size(); ++i) {
        const std::size_t larghezza = colonne_[i].larghezza;
        const std::string spazi(larghezza > testi[i].size() ? larghezza - testi[i].size() : 0, ' ');
        if (i > 0)
            riga += "  ";
        riga += colonne_[i].lato == Lato::destra ? spazi + testi[i] : testi[i] + spazi;
    }
    riga.erase(riga.find_last_not_of(' ') + 1);
    scrivi(riga + "\n");
}

void Documento::rigaCsv(const std::vector<std::string>& testi) {
    std::string riga;
    for (std::size_t i = 0; i < testi.size(); ++i) {
        if (i > 0)
            riga += ',';
        if (testi[i].find_first_of(",\"") == std::string::npos) {
            riga += testi[i];
            continue;
        }
        riga += '"';
        for (const char c : testi[i])
            riga += c == '"' ? std::string("\"\"") : std::string(1, c);
        riga += '"';
    }
    scrivi(riga + "\n");
}

void Documento::fine() {
    chiudiProprieta();
    chiudi();
    if (forma_ == Forma::json)
        scrivi(scritto_ ? "\n}\n" : "{}\n");
    if (std::fflush(file_) != 0 || std::ferror(file_) != 0)
        throw NonTrovato(std::string("cannot write the output: ") + std::strerror(errno));
}

}  // namespace kel::strumento
