#include "laps/tabella_giri.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "CLaptimeAndStrings.h"
#include "text/chiavi.h"

namespace kel::strumento {

namespace {

Cella tempo(std::int32_t ms) {
    return ms >= 0 ? Cella::testo(CLaptimeAndStrings::LapTimeToStringa(ms)) : Cella();
}

Cella millisecondi(std::int32_t ms) {
    return ms >= 0 ? Cella::intero(ms) : Cella();
}

Cella reale(double valore, int decimali) {
    return std::isnan(valore) ? Cella() : Cella::reale(valore, decimali);
}

}  // namespace

TabellaGiri::TabellaGiri(std::span<const s_kel_giro> giri, AspettoGiri aspetto)
    : aspetto_(std::move(aspetto)), settori_(giri.empty() ? 0 : giri.front().num_settori) {}

std::vector<Colonna> TabellaGiri::colonne() const {
    std::vector<Colonna> tutte = {
        {"lap", "LAP", Lato::destra}, {"start_s", "START s", Lato::destra}, {"time", "TIME", Lato::destra}};
    if (aspetto_.per_programmi)
        tutte.push_back({"time_ms", "TIME ms", Lato::destra});
    tutte.push_back({"gap_s", "GAP s", Lato::destra});
    for (std::size_t i = 1; i <= settori_; ++i) {
        const std::string n = std::to_string(i);
        tutte.push_back({"sector_" + n, "SECTOR " + n, Lato::destra});
        if (aspetto_.per_programmi)
            tutte.push_back({"sector_" + n + "_ms", "SECTOR " + n + " ms", Lato::destra});
    }
    tutte.push_back({chiave_con_udm("top_speed", aspetto_.udm), "TOP " + aspetto_.udm, Lato::destra});
    tutte.push_back({chiave_con_udm("least_speed", aspetto_.udm), "LEAST " + aspetto_.udm, Lato::destra});
    if (aspetto_.per_programmi)
        tutte.push_back({"distance_m", "DISTANCE m", Lato::destra});
    tutte.push_back({"samples", "SAMPLES", Lato::destra});
    tutte.push_back({"note", "NOTE"});
    return tutte;
}

std::vector<Cella> TabellaGiri::celle(const s_kel_giro& giro) const {
    std::vector<Cella> tutte = {Cella::intero(giro.numero), reale(giro.inizio, 3), tempo(giro.ms)};
    if (aspetto_.per_programmi)
        tutte.push_back(millisecondi(giro.ms));
    tutte.push_back(reale(giro.distacco, 3));
    for (std::size_t i = 0; i < settori_; ++i) {
        tutte.push_back(tempo(giro.settori[i]));
        if (aspetto_.per_programmi)
            tutte.push_back(millisecondi(giro.settori[i]));
    }
    for (const double velocita : {giro.massima, giro.minima})
        tutte.push_back(reale(velocita * aspetto_.fattore, 1));
    if (aspetto_.per_programmi)
        tutte.push_back(reale(giro.metri, 1));
    tutte.push_back(Cella::intero(static_cast<std::int64_t>(giro.campioni)));
    tutte.push_back(giro.migliore != 0             ? Cella::testo("best")
                    : giro.stato == KEL_GIRO_BUONO ? Cella()
                                                   : Cella::testo(kelGiriNomeStato(giro.stato)));
    return tutte;
}

}  // namespace kel::strumento
