#include "cli/opzioni.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace kel::strumento {

Opzione& Opzione::valore(const char* nome) {
    opzione_->type_name(nome);
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

Comando::Comando(CLI::App& programma, const char* nome, const char* descrizione)
    : comando_(programma.add_subcommand(nome, descrizione)) {}

Opzione Comando::opzione(const char* nome, std::string& valore, const char* aiuto) {
    return Opzione(comando_->add_option(nome, valore, aiuto));
}

Opzione Comando::opzione(const char* nome, std::optional<std::string>& valore, const char* aiuto) {
    return Opzione(comando_->add_option(nome, valore, aiuto));
}

Opzione Comando::opzione(const char* nome, std::vector<std::string>& valori, const char* aiuto) {
    return Opzione(comando_->add_option(nome, valori, aiuto));
}

Opzione Comando::opzione(const char* nome, std::function<void(const std::string&)> leggi, const char* aiuto) {
    return Opzione(comando_->add_option_function(nome, leggi, aiuto));
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
