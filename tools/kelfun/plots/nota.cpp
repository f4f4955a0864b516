#include "plots/nota.h"

namespace kel::strumento {

std::string Nota::testo(std::size_t caratteri) const {
    const auto coda = [this](std::size_t quanti) {
        return quanti == 0 ? dopo : " and " + std::to_string(quanti) + " more" + dopo;
    };
    std::string detti;
    for (std::size_t i = 0; i < nomi.size(); ++i) {
        const std::string con = detti + (i == 0 ? "" : ", ") + nomi[i];
        const std::size_t restano = nomi.size() - i - 1;
        if (i > 0 && prima.size() + con.size() + coda(restano).size() > caratteri)
            return prima + detti + coda(restano + 1);
        detti = con;
    }
    return prima + detti + dopo;
}

}  // namespace kel::strumento
