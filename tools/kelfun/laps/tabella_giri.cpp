#include "laps/tabella_giri.h"

#include <optional>

#include "CLaptimeAndStrings.h"
#include "text/chiavi.h"

namespace kel::strumento {

namespace {

Cella tempo(const std::optional<int>& ms) {
    return ms ? Cella::testo(CLaptimeAndStrings::LapTimeToStringa(*ms)) : Cella();
}

Cella millisecondi(const std::optional<int>& ms) {
    return ms ? Cella::intero(*ms) : Cella();
}

Cella reale(const std::optional<double>& valore, int decimali) {
    return valore ? Cella::reale(*valore, decimali) : Cella();
}

}  // namespace

TabellaGiri::TabellaGiri(std::span<const Giro> giri, AspettoGiri aspetto)
    : aspetto_(std::move(aspetto)),
      settori_(giri.empty() ? 0 : giri.front().settori.size()),
      migliore_(migliore(giri)) {}

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

std::vector<Cella> TabellaGiri::celle(const Giro& giro) const {
    std::vector<Cella> tutte = {Cella::intero(giro.numero),
                                giro.inizio ? Cella::reale(*giro.inizio - aspetto_.origini[giro.sessione], 3) : Cella(),
                                tempo(giro.ms)};
    if (aspetto_.per_programmi)
        tutte.push_back(millisecondi(giro.ms));
    tutte.push_back(distacco(giro));
    for (std::size_t i = 0; i < settori_; ++i) {
        tutte.push_back(tempo(giro.settori[i]));
        if (aspetto_.per_programmi)
            tutte.push_back(millisecondi(giro.settori[i]));
    }
    for (const auto& velocita : {giro.massima, giro.minima})
        tutte.push_back(velocita ? Cella::reale(*velocita * aspetto_.fattore, 1) : Cella());
    if (aspetto_.per_programmi)
        tutte.push_back(reale(giro.metri, 1));
    tutte.push_back(Cella::intero(static_cast<std::int64_t>(giro.campioni)));
    tutte.push_back(&giro == migliore_               ? Cella::testo("best")
                    : giro.stato == StatoGiro::buono ? Cella()
                                                     : Cella::testo(nome(giro.stato)));
    return tutte;
}

// The gap to the best lap; laps that do not count have none.
Cella TabellaGiri::distacco(const Giro& giro) const {
    if (!giro.chiuso() || giro.stato != StatoGiro::buono)
        return {};
    return Cella::reale((*giro.ms - *migliore_->ms) / 1000.0, 3);
}

}  // namespace kel::strumento
