#include "plots/grafico_soluzioni.h"

namespace kel::strumento {

namespace {

constexpr double MILLE = 1000;
constexpr std::int64_t SETTIMANA_MS = std::int64_t{7} * 24 * 3600 * 1000;

enum { VELOCITA, SATELLITI };

}  // namespace

GraficoSoluzioni::GraficoSoluzioni(const std::string& udm_velocita, double per_ms, const Tratto& tratto)
    : percorso_(tratto), per_ms_(per_ms) {
    grafico_.ascissa = tratto.ascissa;
    grafico_.udm_velocita = udm_velocita;
    grafico_.pannelli = {pannello_singolo("Speed", udm_velocita), pannello_singolo("Satellites", "")};
    grafico_.pannelli[SATELLITI].altezza = 0.5;
}

// Seconds since the first solution, or since the first one after time ran backwards. Time of week starts again on
// Sundays: a step back of most of a week is then a step forward.
double GraficoSoluzioni::secondi(std::uint32_t settimana_ms) {
    std::int64_t passo = std::int64_t{settimana_ms} - ultimo_ms_.value_or(settimana_ms);
    if (passo < -SETTIMANA_MS / 2)
        passo += SETTIMANA_MS;
    ultimo_ms_ = settimana_ms;
    secondi_ = passo < 0 ? 0 : secondi_ + static_cast<double>(passo) / MILLE;
    return secondi_;
}

void GraficoSoluzioni::aggiungi(const PuntoGps& punto) {
    const auto x = percorso_.colloca(secondi(punto.settimana_ms),
                                     punto.velocita ? std::optional(*punto.velocita * per_ms_) : std::nullopt);
    if (!x)
        return;
    if (percorso_.interrotto()) {
        for (Pannello& pannello : grafico_.pannelli)
            pannello.curve.front().serie.aggiungi(*x, std::nullopt);
        grafico_.traccia.interrompi();
    }
    grafico_.pannelli[VELOCITA].curve.front().serie.aggiungi(*x, punto.velocita);
    grafico_.pannelli[SATELLITI].curve.front().serie.aggiungi(*x, punto.satelliti);
    if (punto.longitudine && punto.latitudine && punto.velocita)
        grafico_.traccia.aggiungi(*punto.longitudine, *punto.latitudine, *punto.velocita);
    else
        grafico_.traccia.interrompi();
}

std::vector<Nota> GraficoSoluzioni::chiudi() {
    percorso_.verifica();
    grafico_.sessioni = percorso_.sessioni();
    const std::string nota = percorso_.nota();
    return nota.empty() ? std::vector<Nota>() : std::vector<Nota>{{nota, {}, ""}};
}

}  // namespace kel::strumento
