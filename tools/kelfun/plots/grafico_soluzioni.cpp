#include "plots/grafico_soluzioni.h"

namespace kel::strumento {

namespace {

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

void GraficoSoluzioni::aggiungi(const PuntoGps& punto) {
    const double tempo = secondi(punto.settimana_ms);
    grafico_.pannelli[VELOCITA].serie.aggiungi(tempo, punto.velocita);
    grafico_.pannelli[SATELLITI].serie.aggiungi(tempo, punto.satelliti);
    if (punto.longitudine && punto.latitudine && punto.velocita)
        grafico_.traccia.aggiungi(*punto.longitudine, *punto.latitudine, *punto.velocita);
    else
        grafico_.traccia.interrompi();
}

}  // namespace kel::strumento
