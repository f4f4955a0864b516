#include "plots/grafico.h"

#include <algorithm>

namespace kel::strumento {

bool Pannello::vuoto() const {
    return std::all_of(curve.begin(), curve.end(), [](const Curva& curva) { return curva.serie.vuota(); });
}

double Pannello::minimo() const {
    double tutti = 0;
    bool trovato = false;
    for (const Curva& curva : curve)
        if (!curva.serie.vuota()) {
            tutti = trovato ? std::min(tutti, curva.serie.minimo()) : curva.serie.minimo();
            trovato = true;
        }
    return tutti;
}

double Pannello::massimo() const {
    double tutti = minimo();
    for (const Curva& curva : curve)
        if (!curva.serie.vuota())
            tutti = std::max(tutti, curva.serie.massimo());
    return tutti;
}

std::pair<double, double> Grafico::estremi() const {
    double primo = 0;
    double ultimo = 0;
    bool trovato = false;
    for (const Pannello& pannello : pannelli)
        for (const Curva& curva : pannello.curve) {
            if (curva.serie.vuota())
                continue;
            const auto& punti = curva.serie.punti();
            primo = trovato ? std::min(primo, punti.front().x) : punti.front().x;
            ultimo = trovato ? std::max(ultimo, punti.back().x) : punti.back().x;
            trovato = true;
        }
    return {primo, ultimo > primo ? ultimo : primo + 1};
}

Pannello pannello_singolo(const std::string& nome, const std::string& udm) {
    Pannello pannello{nome, udm, {}};
    pannello.curve.push_back({nome, {}});
    return pannello;
}

}  // namespace kel::strumento
