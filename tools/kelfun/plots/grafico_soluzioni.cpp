#include "plots/grafico_soluzioni.h"

#include "domain/fid_gps.h"

namespace kel::strumento {

namespace {

constexpr std::int64_t SETTIMANA_MS = 604800000;
constexpr double MILLE = 1000;

enum { VELOCITA, SATELLITI };

}  // namespace

GraficoSoluzioni::GraficoSoluzioni(const std::string& titolo, const std::string& udm_velocita) {
    grafico_.titolo = titolo;
    grafico_.asse = "time, s";
    grafico_.udm_velocita = udm_velocita;
    grafico_.pannelli = {{"Speed", udm_velocita, {}}, {"Satellites", "", {}}};
}

// Time of week begins again on Sundays.
double GraficoSoluzioni::secondi(std::uint32_t settimana_ms) {
    std::int64_t passo = std::int64_t{settimana_ms} - ultimo_ms_.value_or(settimana_ms);
    if (passo < -SETTIMANA_MS / 2)
        passo += SETTIMANA_MS;
    ultimo_ms_ = settimana_ms;
    secondi_ += static_cast<double>(passo) / MILLE;
    return secondi_;
}

void GraficoSoluzioni::aggiungi(const Soluzione& soluzione) {
    const double tempo = secondi(soluzione.settimana_ms);
    const auto velocita = static_cast<double>(soluzione.velocita);
    const bool fix = soluzione.fix >= GPS_FIX_MINIMO && soluzione.satelliti >= GPS_SATELLITI_MINIMI;
    grafico_.pannelli[VELOCITA].serie.aggiungi(tempo, fix ? std::optional(velocita) : std::nullopt);
    grafico_.pannelli[SATELLITI].serie.aggiungi(tempo, soluzione.satelliti);
    if (fix)
        grafico_.traccia.aggiungi(static_cast<double>(soluzione.longitudine), static_cast<double>(soluzione.latitudine),
                                  velocita);
    else
        grafico_.traccia.interrompi();
}

}  // namespace kel::strumento
