#include "laps/andamento.h"

namespace kel_registrazioni {

namespace {

void stira(std::vector<PuntoGiro>& punti, double lunghezza) {
    const double sua = punti.back().metri;
    double persi = 0;  // s
    for (std::size_t i = 1; i < punti.size(); ++i)
        persi += punti[i].staccato ? punti[i].secondi - punti[i - 1].secondi : 0;
    if (persi <= 0 || lunghezza < sua) {
        for (PuntoGiro& punto : punti)
            punto.metri *= lunghezza / sua;
        return;
    }
    double oltre = 0;
    double secondi_prima = 0;
    for (PuntoGiro& punto : punti) {
        if (punto.staccato)
            oltre += (lunghezza - sua) * (punto.secondi - secondi_prima) / persi;
        secondi_prima = punto.secondi;
        punto.metri += oltre;
    }
}

}  // namespace

std::vector<PuntoGiro> andamento(const Giro& giro, const Guida& guida, double lunghezza) {
    std::vector<PuntoGiro> punti;
    if (!giro.ms || !giro.inizio || giro.metri.value_or(0) <= 0)
        return punti;
    const double da = guida.metri(giro.sessione, *giro.inizio);
    const auto [primo, oltre] = fix_del_giro(giro, guida);
    punti.push_back({0, 0, {}, false});
    double ultimo = *giro.inizio;
    for (std::size_t i = primo; i < oltre; ++i) {
        const Fix& fix = guida.fix()[i];
        const auto velocita = fix.velocita || !fix.valido ? fix.velocita : guida.velocita(i);
        if (!velocita)
            continue;
        punti.push_back({guida.metri(i) - da, fix.tempo - *giro.inizio, velocita, fix.tempo - ultimo > guida.buco()});
        ultimo = fix.tempo;
    }
    punti.push_back({*giro.metri, *giro.fine - *giro.inizio, {}, *giro.fine - ultimo > guida.buco()});
    stira(punti, lunghezza);
    // At the line the speed is that of the fix beside it.
    if (punti.size() > 2) {
        punti.front().velocita = punti[1].velocita;
        punti.back().velocita = punti[punti.size() - 2].velocita;
    }
    return punti;
}

}  // namespace kel_registrazioni
