// What the commands of kelfun accept. The argument parser stands behind these two classes: its header takes seconds in
// every source that includes it.
#ifndef KELFUN_CLI_OPZIONI_H
#define KELFUN_CLI_OPZIONI_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kel::strumento {

/// What stands before a word of the command line that is an argument whatever it begins with, as all are after "--". The
/// parser has no way of its own to say so of one word; the arguments of commands take it off.
constexpr char SOLO_ARGOMENTO = '\x1F';
/// A word without it.
std::string senzaSegno(std::string parola);

/// An option or an argument of a command, which owns it: copies are the same option.
class Opzione {
public:
    explicit Opzione(CLI::Option* opzione) : opzione_(opzione) {}

    /// What --help calls its value; nothing for an argument that its own name tells.
    Opzione& valore(const char* nome);
    /// Takes one of these words alone. --help, the completion of shells and the error for another word know them from here.
    Opzione& scelta(const std::vector<std::string>& parole);
    /// The heading of --help that it stands under.
    Opzione& gruppo(const char* titolo);
    Opzione& obbligatoria();
    /// May be given again and again, with one value each time.
    Opzione& ripetibile();
    /// Not together with another.
    Opzione& esclude(const Opzione& altra);

private:
    CLI::Option* opzione_;
};

/// A command, which the program owns: copies are the same command.
class Comando {
public:
    /// Adds a command to the program.
    Comando(CLI::App& programma, const char* nome, const char* descrizione);

    /// Adds an option ("--unit") or an argument ("FILE"), and where its value goes.
    Opzione opzione(const char* nome, std::string& valore, const char* aiuto);
    Opzione opzione(const char* nome, std::optional<std::string>& valore, const char* aiuto);
    Opzione opzione(const char* nome, std::vector<std::string>& valori, const char* aiuto);
    /// Adds an option, and what is done with its value once the whole command line has been read.
    Opzione opzione(const char* nome, std::function<void(const std::string&)> leggi, const char* aiuto);
    /// Adds an option that takes a whole number within bounds, which the error for any other word names.
    Opzione intero(const char* nome, std::optional<unsigned>& valore, unsigned minimo, unsigned massimo,
                   const char* aiuto);
    /// Adds an option that no help shows; what it does is done at once.
    void nascosta(const char* nome, std::function<void(const std::string&)> leggi);
    /// Adds an option without a value.
    Opzione bandiera(const char* nome, bool& data, const char* aiuto);

    std::string nome() const;
    /// An option that was added.
    std::optional<Opzione> trova(const char* nome) const;

    /// Text that --help shows below the options.
    void note(const std::string& testo);
    /// What the command does once its arguments have been read.
    void esegue(std::function<void()> azione);

    /// All commands of a program.
    static std::vector<Comando> tutti(CLI::App& programma);

private:
    explicit Comando(CLI::App* comando) : comando_(comando) {}

    CLI::App* comando_;
};

}  // namespace kel::strumento

#endif
