#include "plots/grafico_record.h"

#include <algorithm>

#include "domain/fid_gps.h"

namespace kel::strumento {

namespace {

bool delFix(kel_funpos fid) {
    return fid == GPS_VELOCITA || fid == GPS_LATITUDINE || fid == GPS_LONGITUDINE;
}

}  // namespace

GraficoRecord::GraficoRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                             std::vector<ColonnaRecord> colonne, const std::string& titolo, const std::string& asse)
    : colonne_(std::move(colonne)) {
    grafico_.titolo = titolo;
    grafico_.asse = asse;
    std::erase_if(colonne_, [](const ColonnaRecord& colonna) { return !colonna.haValore(); });
    const auto sottocampo = [&](std::size_t canale, kel_funpos fid) -> std::optional<ColonnaRecord> {
        for (const ColonnaRecord& colonna : colonne_)
            if (colonna.indice == canale && colonna.fid == fid && canali[canale].fid != fid)
                return colonna;
        return std::nullopt;
    };
    for (std::size_t i = 0; i < canali.size(); ++i) {
        const auto longitudine = sottocampo(i, GPS_LONGITUDINE);
        const auto latitudine = sottocampo(i, GPS_LATITUDINE);
        const auto velocita = sottocampo(i, GPS_VELOCITA);
        if (longitudine || latitudine || velocita)
            ricezioni_.push_back({i, ColonnaRecord(catalogo, canali[i], i, GPS_FIX),
                                  ColonnaRecord(catalogo, canali[i], i, GPS_SATELLITI)});
        if (longitudine_ || !longitudine || !latitudine || !velocita)
            continue;
        longitudine_ = longitudine;
        latitudine_ = latitudine;
        velocita_ = velocita;
        grafico_.udm_velocita = velocita->udm;
        // The track shows where, and better than two lines over time.
        std::erase_if(colonne_, [i](const ColonnaRecord& colonna) {
            return colonna.indice == i && (colonna.fid == GPS_LONGITUDINE || colonna.fid == GPS_LATITUDINE);
        });
    }
    for (const ColonnaRecord& colonna : colonne_)
        grafico_.pannelli.push_back({colonna.nomeMisurato(), colonna.unita(), {}});
}

const GraficoRecord::Ricezione* GraficoRecord::ricezione(const ColonnaRecord& colonna) const {
    for (const Ricezione& una : ricezioni_)
        if (una.canale == colonna.indice && !colonna.wgs84())
            return &una;
    return nullptr;
}

void GraficoRecord::aggiungi(double tempo, const std::uint8_t* campioni) {
    for (Ricezione& una : ricezioni_)
        una.buona = una.fix.valore(campioni).value_or(0) >= GPS_FIX_MINIMO &&
                    una.satelliti.valore(campioni).value_or(0) >= GPS_SATELLITI_MINIMI;
    for (std::size_t i = 0; i < colonne_.size(); ++i) {
        std::optional<double> valore;
        const Ricezione* sua = delFix(colonne_[i].fid) ? ricezione(colonne_[i]) : nullptr;
        if (sua == nullptr || sua->buona)
            valore = colonne_[i].valore(campioni);
        grafico_.pannelli[i].serie.aggiungi(tempo, valore);
    }
    if (longitudine_)
        aggiungiTraccia(campioni);
}

void GraficoRecord::aggiungiTraccia(const std::uint8_t* campioni) {
    const auto longitudine = longitudine_->valore(campioni);
    const auto latitudine = latitudine_->valore(campioni);
    const auto velocita = velocita_->valore(campioni);
    const Ricezione* sua = ricezione(*longitudine_);
    if ((sua == nullptr || sua->buona) && longitudine && latitudine && velocita)
        grafico_.traccia.aggiungi(*longitudine, *latitudine, *velocita);
    else
        grafico_.traccia.interrompi();
}

std::vector<std::string> GraficoRecord::chiudi() {
    const auto ferma = [](const Pannello& pannello) { return pannello.serie.minimo() >= pannello.serie.massimo(); };
    std::vector<std::string> tolti;
    if (std::all_of(grafico_.pannelli.begin(), grafico_.pannelli.end(), ferma))
        return tolti;
    for (const Pannello& pannello : grafico_.pannelli)
        if (ferma(pannello))
            tolti.push_back(pannello.nome);
    std::erase_if(grafico_.pannelli, ferma);
    return tolti;
}

}  // namespace kel::strumento
