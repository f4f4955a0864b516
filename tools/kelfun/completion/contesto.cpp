#include "completion/contesto.h"

#include <CLI/CLI.hpp>

#include "text/parole.h"

namespace kel::strumento {

std::string nome_lungo(const CLI::Option& opzione) {
    return opzione.get_lnames().empty() ? "" : "--" + opzione.get_lnames().front();
}

bool vuole_valore(const CLI::Option& opzione) {
    return opzione.get_items_expected_max() > 0;
}

const CLI::Option* cerca_opzione(const CLI::App& comando, std::string_view nome) {
    for (const CLI::Option* opzione : comando.get_options())
        if (opzione->nonpositional() && opzione->check_name(std::string(nome)))
            return opzione;
    return nullptr;
}

Contesto leggi_contesto(const CLI::App& comando, const std::vector<std::string>& prima) {
    Contesto contesto;
    for (const std::string& parola : prima) {
        if (contesto.attesa != nullptr) {
            contesto.opzioni[nome_lungo(*contesto.attesa)].push_back(parola);
            contesto.attesa = nullptr;
        } else if (contesto.solo_argomenti || parola.size() < 2 || parola.front() != '-') {
            contesto.argomenti.push_back(parola);
        } else if (parola == "--") {
            contesto.solo_argomenti = true;
        } else {
            const std::size_t uguale = parola.find('=');
            const CLI::Option* opzione = cerca_opzione(comando, parola.substr(0, uguale));
            if (opzione == nullptr)
                continue;
            std::vector<std::string>& valori = contesto.opzioni[nome_lungo(*opzione)];
            if (uguale != std::string::npos)
                valori.push_back(parola.substr(uguale + 1));
            else if (vuole_valore(*opzione))
                contesto.attesa = opzione;
        }
    }
    return contesto;
}

namespace {

// An argument may be named by several words: "[ID] VALUE" is an identifier, unless its fields are given, and values.
std::vector<std::string> nomi_argomento(const CLI::Option& argomento, bool campi_dati) {
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

}  // namespace

std::pair<std::string, const CLI::Option*> argomento(const CLI::App& comando, bool campi_dati, std::size_t n) {
    for (const CLI::Option* opzione : comando.get_options()) {
        if (!opzione->get_positional())
            continue;
        const std::vector<std::string> nomi = nomi_argomento(*opzione, campi_dati);
        const bool ripetuto = opzione->get_items_expected_max() > static_cast<int>(nomi.size());
        if (n < nomi.size())
            return {nomi[n], opzione};
        if (ripetuto && !nomi.empty())
            return {nomi.back(), opzione};
        n -= nomi.size();
    }
    return {"", nullptr};
}

}  // namespace kel::strumento
