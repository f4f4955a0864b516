#include "cli/opzioni.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace kel::strumento {

Opzione& Opzione::valore(const char* nome) {
    opzione_->type_name(nome);
    return *this;
}

Opzione& Opzione::scelta(const std::vector<std::string>& parole) {
    std::string tipo;
    for (const std::string& una : parole)
        tipo += (tipo.empty() ? "{" : ",") + una;
    opzione_->type_name(tipo + "}");
    opzione_->check(
        [nome = opzione_->get_name(), parole](const std::string& data) -> std::string {
            if (std::find(parole.begin(), parole.end(), data) == parole.end())
                throw ErroreUso("there is no " + nome + " '" + data + "'; " + forse(data, parole) +
                                "accepted: " + elenco(parole));
            return "";
        },
        "");
    return *this;
}

Opzione& Opzione::gruppo(const char* titolo) {
    opzione_->group(titolo);
    return *this;
}

Opzione& Opzione::obbligatoria() {
    opzione_->required();
    return *this;
}

Opzione& Opzione::ripetibile() {
    opzione_->allow_extra_args(false);  // else it takes every word up to the next option
    return *this;
}

Opzione& Opzione::esclude(const Opzione& altra) {
    opzione_->excludes(altra.opzione_);
    return *this;
}

std::string senza_segno(std::string parola) {
    if (parola.starts_with(SOLO_ARGOMENTO))
        parola.erase(0, 1);
    return parola;
}

namespace {

// Removes the mark of the words that came after "--".
CLI::Option* senza_segni(CLI::Option* opzione) {
    return opzione->transform(CLI::Validator(
        [](std::string& parola) {
            parola = senza_segno(std::move(parola));
            return std::string();
        },
        ""));
}

}  // namespace

Comando::Comando(CLI::App& programma, const char* nome, const char* descrizione)
    : comando_(programma.add_subcommand(nome, descrizione)) {}

Opzione Comando::opzione(const char* nome, std::string& valore, const char* aiuto) {
    return Opzione(senza_segni(comando_->add_option(nome, valore, aiuto)));
}

Opzione Comando::opzione(const char* nome, std::optional<std::string>& valore, const char* aiuto) {
    return Opzione(senza_segni(comando_->add_option(nome, valore, aiuto)));
}

Opzione Comando::opzione(const char* nome, std::vector<std::string>& valori, const char* aiuto) {
    return Opzione(senza_segni(comando_->add_option(nome, valori, aiuto)));
}

Opzione Comando::opzione(const char* nome, std::function<void(const std::string&)> leggi, const char* aiuto) {
    return Opzione(senza_segni(comando_->add_option_function(nome, leggi, aiuto)));
}

Opzione Comando::intero(const char* nome, std::optional<unsigned>& valore, unsigned minimo, unsigned massimo,
                        const char* aiuto) {
    const auto leggi = [nome = std::string(nome), &valore, minimo, massimo](const std::string& testo) {
        const auto letto = leggi_intero(testo, minimo, massimo);
        if (!letto)
            throw ErroreUso(nome + " '" + testo + "' is out of range; accepted: " + std::to_string(minimo) + " to " +
                            std::to_string(massimo));
        valore = static_cast<unsigned>(*letto);
    };
    // A few numbers are listed, so that the completion can offer them.
    std::string pochi;
    for (unsigned n = minimo; massimo - minimo < 10 && n <= massimo; ++n)
        pochi += (pochi.empty() ? "{" : ",") + std::to_string(n);
    return opzione(nome, leggi, aiuto).valore(pochi.empty() ? "N" : (pochi + "}").c_str());
}

void Comando::nascosta(const char* nome, std::function<void(const std::string&)> leggi) {
    comando_->add_option_function(nome, leggi)->trigger_on_parse()->group("");
}

Opzione Comando::bandiera(const char* nome, bool& data, const char* aiuto) {
    return Opzione(comando_->add_flag(nome, data, aiuto));
}

std::string Comando::nome() const {
    return comando_->get_name();
}

std::optional<Opzione> Comando::trova(const char* nome) const {
    CLI::Option* opzione = comando_->get_option_no_throw(nome);
    return opzione != nullptr ? std::optional<Opzione>(opzione) : std::nullopt;
}

void Comando::note(const std::string& testo) {
    comando_->footer(testo);
}

void Comando::esegue(std::function<void()> azione) {
    comando_->callback(std::move(azione));
}

std::vector<Comando> Comando::tutti(CLI::App& programma) {
    std::vector<Comando> comandi;
    for (CLI::App* comando : programma.get_subcommands([](const CLI::App*) { return true; }))
        comandi.push_back(Comando(comando));
    return comandi;
}

}  // namespace kel::strumento
