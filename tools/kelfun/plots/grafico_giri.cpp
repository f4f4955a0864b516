#include "plots/grafico_giri.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <vector>

#include "CLaptimeAndStrings.h"

namespace kel::strumento {

namespace {

std::string nome_giro(const s_kel_giro& giro) {
    return "Lap " + std::to_string(giro.numero) + "  " + CLaptimeAndStrings::LapTimeToStringa(giro.ms);
}

Serie velocita(std::span<const s_kel_punto_giro> punti, double fattore) {
    Serie serie;
    for (const s_kel_punto_giro& punto : punti) {
        if (punto.staccato != 0)
            serie.aggiungi(punto.metri, std::nullopt);
        serie.aggiungi(punto.metri,
                       std::isnan(punto.velocita) ? std::nullopt : std::optional(punto.velocita * fattore));
    }
    return serie;
}

// The time at a distance, s; nothing outside of the lap and where the way is not known.
std::optional<double> tempo_a(std::span<const s_kel_punto_giro> punti, double metri) {
    const auto dopo = std::ranges::lower_bound(punti, metri, {}, &s_kel_punto_giro::metri);
    if (dopo == punti.end())
        return std::nullopt;
    if (dopo->metri <= metri)
        return dopo->secondi;
    if (dopo == punti.begin() || dopo->staccato != 0)
        return std::nullopt;
    const s_kel_punto_giro& prima = *std::prev(dopo);
    return prima.secondi + (metri - prima.metri) / (dopo->metri - prima.metri) * (dopo->secondi - prima.secondi);
}

// Time lost since the line: above 0 the lap is behind.
Serie distacco(std::span<const s_kel_punto_giro> punti, std::span<const s_kel_punto_giro> riferimento) {
    Serie serie;
    for (const s_kel_punto_giro& punto : punti) {
        const auto suo = tempo_a(riferimento, punto.metri);
        if (punto.staccato != 0)
            serie.aggiungi(punto.metri, std::nullopt);
        // Rounded to a microsecond: the rounding errors of equal times would be drawn as a curve.
        serie.aggiungi(punto.metri,
                       suo ? std::optional(std::round((punto.secondi - *suo) * 1e6) / 1e6 + 0.0) : std::nullopt);
    }
    return serie;
}

// The length that all laps are stretched to: that of the reference. If it lost the fix, a part of its length is a
// guess; then it is that of the first lap that did not.
double lunghezza_comune(const Giri& giri, std::span<const s_kel_giro* const> scelti, const s_kel_giro& riferimento) {
    std::vector<const s_kel_giro*> tutti = {&riferimento};
    tutti.insert(tutti.end(), scelti.begin(), scelti.end());
    for (const s_kel_giro* giro : tutti) {
        const std::vector<s_kel_punto_giro> punti = giri.andamento(*giro, giro->metri);
        if (!punti.empty() &&
            std::none_of(punti.begin(), punti.end(), [](const s_kel_punto_giro& punto) { return punto.staccato != 0; }))
            return giro->metri;
    }
    return riferimento.metri;
}

void disegna_traccia(Traccia& traccia, const s_kel_giro& giro, const Giri& giri, double fattore) {
    for (const s_kel_fix& fix : giri.fix(giro))
        if (!std::isnan(fix.latitudine))
            traccia.aggiungi(fix.longitudine, fix.latitudine, std::isnan(fix.velocita) ? 0 : fix.velocita * fattore);
        else if (std::isnan(fix.velocita))
            traccia.interrompi();
}

}  // namespace

Grafico grafico_giri(const Giri& giri, std::span<const s_kel_giro* const> scelti, const s_kel_giro& riferimento,
                     const std::string& udm, double fattore, bool insieme) {
    Grafico grafico;
    grafico.ascissa = Ascissa::distanza;
    grafico.udm_velocita = udm;
    const double lunghezza = lunghezza_comune(giri, scelti, riferimento);
    const std::vector<s_kel_punto_giro> base = giri.andamento(riferimento, lunghezza);
    if (insieme)
        grafico.pannelli.push_back({"Speed", udm, {}});
    Pannello distacchi{"Gap to lap " + std::to_string(riferimento.numero), "s", {}, insieme ? 0.6 : 1.0};
    for (const s_kel_giro* giro : scelti) {
        const std::vector<s_kel_punto_giro> punti = giri.andamento(*giro, lunghezza);
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
    disegna_traccia(grafico.traccia, riferimento, giri, fattore);
    return grafico;
}

}  // namespace kel::strumento
