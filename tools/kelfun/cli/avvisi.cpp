#include "cli/avvisi.h"

#include "io/messaggi.h"
#include "text/errori.h"

namespace kel::strumento {

void Avvisi::pretendi(const std::optional<std::string>& avviso) const {
    if (avviso && stretti_)
        throw NonTrovato(*avviso);
}

void Avvisi::di(const std::optional<std::string>& avviso) {
    constexpr std::size_t MASSIMO = 1000;  // remarks that are remembered: standard input may have no end
    if (detti_.size() == MASSIMO)
        detti_.clear();
    if (avviso && detti_.insert(*avviso).second)
        messaggio("kelfun " + comando_, *avviso);
}

void Avvisi::subito(const std::optional<std::string>& avviso) {
    pretendi(avviso);
    di(avviso);
}

void aggiungi_avvisi(Comando& comando, Avvisi& avvisi) {
    avvisi.comando_ = comando.nome();
    comando.bandiera("--strict", avvisi.stretti_, "Refuse an answer that most people would not expect (exit status 1)");
}

}  // namespace kel::strumento
