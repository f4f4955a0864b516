// The words that a shell is offered.
#ifndef KELFUN_COMPLETION_CANDIDATI_H
#define KELFUN_COMPLETION_CANDIDATI_H

#include <set>
#include <string>
#include <string_view>

namespace kel::strumento {

/// Candidates for one word, those alone that begin as it does, none twice.
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
        testo_ += '\n';
    }
    /// Asks the shell for the names of its files.
    void file() { testo_ += ":files\n"; }

    const std::string& inizio() const { return inizio_; }
    bool vuoti() const { return testo_.empty(); }
    const std::string& testo() const { return testo_; }

private:
    std::string inizio_;
    std::string prima_;
    std::string testo_;
    std::set<std::string> visti_;
};

}  // namespace kel::strumento

#endif
