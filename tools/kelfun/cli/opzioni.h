// What the commands of kelfun accept. These two classes hide the argument parser, whose header adds seconds to the
// compilation of every source that includes it.
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

/// A mark before a word of the command line that came after "--": the word is an argument, even if it begins with a
/// hyphen. The parser cannot be told so of a single word. So the mark is set before parsing, and the commands'
/// arguments remove it.
constexpr char SOLO_ARGOMENTO = '\x1F';
/// A word without the mark.
std::string senza_segno(std::string parola);

/// An option or an argument. The command owns it: a copy of this object stands for the same option.
class Opzione {
public:
    explicit Opzione(CLI::Option* opzione) : opzione_(opzione) {}

    /// What --help calls its value; "" for an argument whose own name is enough.
    Opzione& valore(const char* nome);
    /// Accepts only these words. --help, the completion of shells and the error for another word take them from here.
    Opzione& scelta(const std::vector<std::string>& parole);
    /// The heading under which --help lists it.
    Opzione& gruppo(const char* titolo);
    Opzione& obbligatoria();
    /// May be given again and again, with one value each time.
    Opzione& ripetibile();
    /// Cannot be given together with another.
    Opzione& esclude(const Opzione& altra);

private:
    CLI::Option* opzione_;
};

/// A command. The program owns it: a copy of this object stands for the same command.
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
    /// Adds an option that no help shows. `leggi` is called as soon as the option is met.
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
