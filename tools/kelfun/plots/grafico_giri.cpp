#include "plots/grafico_giri.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "registrazioni/laps/andamento.h"

namespace kel::strumento {

namespace {

std::string nome_giro(const Giro& giro) {
    return "Lap " + std::to_string(giro.numero) + "  " + CLaptimeAndStrings::LapTimeToStringa(*giro.ms);
}

Serie velocita(std::span<const PuntoGiro> punti, double fattore) {
    Serie serie;
    for (const PuntoGiro& punto : punti) {
        if (punto.staccato)
            serie.aggiungi(punto.metri, std::nullopt);
        serie.aggiungi(punto.metri, punto.velocita ? std::optional(*punto.velocita * fattore) : std::nullopt);
    }
    return serie;
}

// Time lost since the line: above 0 the lap is behind.
Serie distacco(std::span<const PuntoGiro> punti, std::span<const PuntoGiro> riferimento) {
    Serie serie;
    for (const PuntoGiro& punto : punti) {
        const auto suo = tempo_a(riferimento, punto.metri);
        if (punto.staccato)
            serie.aggiungi(punto.metri, std::nullopt);
        // Rounded to a microsecond: the rounding errors of equal times would be drawn as a curve.
        serie.aggiungi(punto.metri,
                       suo ? std::optional(std::round((punto.secondi - *suo) * 1e6) / 1e6 + 0.0) : std::nullopt);
    }
    return serie;
}

// The length that all laps are stretched to: that of the reference. If it lost the fix, a part of its length is a
// guess; then it is that of the first lap that did not.
double lunghezza_comune(const Guida& guida, std::span<const Giro* const> scelti, const Giro& riferimento) {
    std::vector<const Giro*> tutti = {&riferimento};
    tutti.insert(tutti.end(), scelti.begin(), scelti.end());
    for (const Giro* giro : tutti) {
        const std::vector<PuntoGiro> punti = andamento(*giro, guida, giro->metri.value_or(0));
        if (!punti.empty() &&
            std::none_of(punti.begin(), punti.end(), [](const PuntoGiro& punto) { return punto.staccato; }))
            return *giro->metri;
    }
    return riferimento.metri.value_or(0);
}

void disegna_traccia(Traccia& traccia, const Giro& giro, const Guida& guida, double fattore) {
    const auto [primo, oltre] = fix_del_giro(giro, guida);
    for (std::size_t i = primo; i < oltre; ++i) {
        const Fix& fix = guida.fix()[i];
        if (fix.valido)
            traccia.aggiungi(fix.longitudine, fix.latitudine, guida.velocita(i).value_or(0) * fattore);
        else if (!fix.velocita)
            traccia.interrompi();
    }
}

}  // namespace

Grafico grafico_giri(const Guida& guida, std::span<const Giro* const> scelti, const Giro& riferimento,
                     const std::string& udm, double fattore, bool insieme) {
    Grafico grafico;
    grafico.ascissa = Ascissa::distanza;
    grafico.udm_velocita = udm;
    const double lunghezza = lunghezza_comune(guida, scelti, riferimento);
    const std::vector<PuntoGiro> base = andamento(riferimento, guida, lunghezza);
    if (insieme)
        grafico.pannelli.push_back({"Speed", udm, {}});
    Pannello distacchi{"Gap to lap " + std::to_string(riferimento.numero), "s", {}, insieme ? 0.6 : 1.0};
    for (const Giro* giro : scelti) {
        const std::vector<PuntoGiro> punti = andamento(*giro, guida, lunghezza);
        if (punti.empty())
            continue;
        if (!insieme)
            grafico.pannelli.push_back({nome_giro(*giro), udm, {}});
        grafico.pannelli.back().curve.push_back({nome_giro(*giro), velocita(punti, fattore)});
        // The reference is drawn too, as a line at 0, so that each lap has the same colour in both panels. A terminal
        // has no colours.
        if (!insieme && giro == &riferimento)
            continue;
        distacchi.curve.push_back({"Lap " + std::to_string(giro->numero), distacco(punti, base)});
    }
    std::erase_if(grafico.pannelli, [](const Pannello& pannello) { return pannello.curve.empty(); });
    const bool sola = insieme && scelti.size() == 1 && scelti.front() == &riferimento;
    if (!distacchi.curve.empty() && !sola)
        grafico.pannelli.push_back(std::move(distacchi));
    disegna_traccia(grafico.traccia, riferimento, guida, fattore);
    return grafico;
}

}  // namespace kel::strumento
