#include "io/righe.h"

#include <algorithm>
#include <array>
#include <utility>

#include "io/ingresso.h"

namespace kel::strumento {

std::vector<std::string> leggiRighe(const std::string& nome) {
    Ingresso ingresso(nome);
    std::array<std::uint8_t, 65536> pezzo{};
    std::string testo;
    while (const std::size_t letti = ingresso.leggi(pezzo.data(), pezzo.size()))
        testo.append(pezzo.begin(), pezzo.begin() + static_cast<std::ptrdiff_t>(letti));
    std::vector<std::string> righe;
    for (std::size_t da = 0; da < testo.size();) {
        const std::size_t fine = std::min(testo.find('\n', da), testo.size());
        righe.push_back(testo.substr(da, fine - da));
        if (righe.back().ends_with('\r'))
            righe.back().pop_back();
        da = fine + 1;
    }
    return righe;
}

std::vector<std::string> conRigheDiIngresso(const std::vector<std::string>& argomenti) {
    std::vector<std::string> tutti;
    for (const std::string& argomento : argomenti) {
        if (argomento != "-") {
            tutti.push_back(argomento);
            continue;
        }
        for (std::string& riga : leggiRighe("-"))
            tutti.push_back(std::move(riga));
    }
    return tutti;
}

}  // namespace kel::strumento
