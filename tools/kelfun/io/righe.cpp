#include "io/righe.h"

#include <array>
#include <utility>

namespace kel::strumento {

std::optional<std::string> Righe::prossima() {
    std::size_t fine = letti_.find('\n', dati_);
    while (fine == std::string::npos && !finito_) {
        letti_.erase(0, std::exchange(dati_, 0));
        const std::size_t cercati = letti_.size();
        std::array<std::uint8_t, 65536> pezzo{};
        const std::size_t quanti = ingresso_.leggi(pezzo.data(), pezzo.size());
        letti_.append(pezzo.begin(), pezzo.begin() + static_cast<std::ptrdiff_t>(quanti));
        finito_ = quanti == 0;
        fine = letti_.find('\n', cercati);
    }
    if (fine == std::string::npos && dati_ == letti_.size())
        return std::nullopt;
    ++numero_;
    std::string riga = letti_.substr(dati_, fine == std::string::npos ? fine : fine - dati_);
    dati_ = fine == std::string::npos ? letti_.size() : fine + 1;
    if (riga.ends_with('\r'))
        riga.pop_back();
    return riga;
}

std::vector<std::string> leggi_righe(const std::string& nome) {
    Righe righe(nome);
    std::vector<std::string> tutte;
    while (auto riga = righe.prossima())
        tutte.push_back(std::move(*riga));
    return tutte;
}

}  // namespace kel::strumento
