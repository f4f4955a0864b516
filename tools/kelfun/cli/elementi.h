// What a command is to answer one by one: its arguments, and the lines of standard input in place of "-".
#ifndef KELFUN_CLI_ELEMENTI_H
#define KELFUN_CLI_ELEMENTI_H

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "io/messaggi.h"
#include "io/righe.h"
#include "text/errori.h"

namespace kel::strumento {

/// Arguments of a command that are read and answered in their order. A wrong argument ends the command before anything
/// is printed. A line of standard input is answered before the next one is awaited; a wrong one is reported with its
/// number and left out.
class Elementi {
public:
    Elementi(std::string comando, std::vector<std::string> testi)
        : comando_("kelfun " + std::move(comando)), testi_(std::move(testi)) {}

    /// Whether lines are awaited: what is printed must not wait for all of them.
    bool con_righe() const { return std::find(testi_.begin(), testi_.end(), "-") != testi_.end(); }

    /// @param leggi   makes a value of a text; throws ErroreUso or NonTrovato for a wrong one. Arguments are read
    ///               first.
    /// @param inizia  called once, before the first answer or when the first line has come.
    /// @param mostra  answers a value.
    /// @returns whether there was anything to answer, right or wrong.
    template <typename Leggi, typename Inizia, typename Mostra>
    bool rispondi(Leggi leggi, Inizia inizia, Mostra mostra) {
        using Valore = decltype(leggi(std::string()));
        std::vector<std::optional<Valore>> letti;  // none for "-"
        for (const std::string& testo : testi_)
            letti.push_back(testo == "-" ? std::nullopt : std::optional<Valore>(leggi(testo)));
        bool iniziato = false;
        const auto comincia = [&] {
            if (!std::exchange(iniziato, true))
                inizia();
        };
        for (std::optional<Valore>& valore : letti) {
            if (valore) {
                comincia();
                mostra(std::move(*valore));
                continue;
            }
            Righe righe("-");
            while (const auto riga = righe.prossima()) {
                comincia();
                if (auto letto = di_riga(leggi, *riga, righe.numero()))
                    mostra(std::move(*letto));
            }
        }
        return iniziato;
    }

    /// What a line that was left out makes of the exit status, once everything else has been answered.
    /// @throws NonTrovato  when there was one.
    void fine() const {
        if (scartate_ != 0)
            throw NonTrovato(std::to_string(scartate_) + (scartate_ == 1 ? " line was" : " lines were") + " left out");
    }

private:
    template <typename Leggi>
    auto di_riga(Leggi& leggi, const std::string& riga, std::size_t numero)
        -> std::optional<decltype(leggi(std::string()))> {
        const auto scarta = [&](const std::runtime_error& e) {
            ++scartate_;
            messaggio(comando_, "line " + std::to_string(numero) + ": " + e.what());
        };
        try {
            return leggi(riga);
        } catch (const ErroreUso& e) {
            scarta(e);
        } catch (const NonTrovato& e) {
            scarta(e);
        }
        return std::nullopt;
    }

    std::string comando_;
    std::vector<std::string> testi_;
    std::size_t scartate_ = 0;
};

}  // namespace kel::strumento

#endif
