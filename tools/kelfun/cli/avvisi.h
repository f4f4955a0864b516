// Warnings about answers that follow the library's rules, but are not what most people expect.
#ifndef KELFUN_CLI_AVVISI_H
#define KELFUN_CLI_AVVISI_H

#include <optional>
#include <set>
#include <string>

#include "cli/opzioni.h"

namespace kel::strumento {

/// Lines on standard error that say so, none twice. With --strict they are errors: the answer is not given.
class Avvisi {
public:
    /// With --strict, refuses an answer that has a remark.
    /// @throws NonTrovato  with the remark.
    void pretendi(const std::optional<std::string>& avviso) const;
    /// Prints the remark, if there is one, for an answer that was not refused.
    void di(const std::optional<std::string>& avviso);
    /// Both: for what is known before anything is printed.
    void subito(const std::optional<std::string>& avviso);

private:
    friend void aggiungi_avvisi(Comando& comando, Avvisi& avvisi);

    bool stretti_ = false;
    std::string comando_;
    std::set<std::string> detti_;
};

/// Adds --strict to a command.
void aggiungi_avvisi(Comando& comando, Avvisi& avvisi);

}  // namespace kel::strumento

#endif
