// What stands on a command line before the word that is being completed.
#ifndef KELFUN_COMPLETION_CONTESTO_H
#define KELFUN_COMPLETION_CONTESTO_H

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kel::strumento {

/// The words before the one being completed, sorted into options and arguments.
struct Contesto {
    std::map<std::string, std::vector<std::string>> opzioni;  // values by long name; flags have none
    std::vector<std::string> argomenti;
    const CLI::Option* attesa = nullptr;  // the option whose value comes next
    bool solo_argomenti = false;          // after "--"
};

Contesto leggi_contesto(const CLI::App& comando, const std::vector<std::string>& prima);

/// "--unit", or nothing for an argument.
std::string nome_lungo(const CLI::Option& opzione);
bool vuole_valore(const CLI::Option& opzione);
/// Null when the command has no such option.
const CLI::Option* cerca_opzione(const CLI::App& comando, std::string_view nome);

/// Name and declaration of the n-th argument of a command; null when it takes no more.
/// @param campi_dati  the identifier is given by its fields: an argument "[ID]" is left out.
std::pair<std::string, const CLI::Option*> argomento(const CLI::App& comando, bool campi_dati, std::size_t n);

}  // namespace kel::strumento

#endif
