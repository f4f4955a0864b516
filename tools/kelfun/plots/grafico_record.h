// A recording as a plot: its columns over time or distance, its laps, and the track of its first GPS packet.
#ifndef KELFUN_PLOTS_GRAFICO_RECORD_H
#define KELFUN_PLOTS_GRAFICO_RECORD_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "captures/canali_record.h"
#include "plots/grafico.h"
#include "plots/nota.h"
#include "plots/pannelli_record.h"
#include "plots/percorso.h"

namespace kel::strumento {

class GraficoRecord {
public:
    /// @param tutte     all columns of the channels, in their base units: for the laps, and the speed that distances
    ///                  are made of.
    /// @param colonne   those that the plot is of.
    /// @param pannelli  those that it shows over the axis, less the position where there is a track.
    /// @throws NonTrovato  when distances are asked for and no channel has a speed.
    GraficoRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali, std::span<const ColonnaRecord> tutte,
                  std::span<const ColonnaRecord> colonne, PannelliRecord pannelli, const Tratto& tratto);

    /// The samples of the next record. Where a GPS packet has no fix its values and the track are broken.
    void aggiungi(double tempo, const std::uint8_t* campioni);

    /// Completes the plot. Curves that never change are left out if others do.
    /// @return  what is to be said about it.
    std::vector<Nota> chiudi();

    Grafico& grafico() { return grafico_; }

private:
    // The fix of a GPS packet: without one, the values that the device shows of it are not drawn.
    struct Ricezione {
        std::size_t canale = 0;
        ColonnaRecord fix;
        ColonnaRecord satelliti;
        bool buona = true;  // in the current record
    };

    void trova_traccia(std::span<const s_kel_canale> canali, std::span<const ColonnaRecord> colonne);
    void trova_velocita(std::span<const ColonnaRecord> tutte);
    const Ricezione* ricezione(const ColonnaRecord& colonna) const;
    std::optional<double> valore(const ColonnaRecord& colonna, const std::uint8_t* campioni) const;
    void aggiungi_traccia(const std::uint8_t* campioni);
    void segna_giro(double x, const std::uint8_t* campioni);
    void interrompi(double x);
    std::vector<std::string> togli_fermi();

    PannelliRecord pannelli_;
    std::vector<Ricezione> ricezioni_;
    // Of the first GPS packet that the plot is of as a whole.
    std::optional<ColonnaRecord> longitudine_, latitudine_, velocita_;
    std::optional<ColonnaRecord> andatura_;  // km/h, to make distances of
    std::optional<ColonnaRecord> giro_;
    int prossimo_giro_ = 0;  // added to a channel's lap number to get that of the lap that runs
    std::optional<double> ultimo_giro_;
    bool troppi_giri_ = false;
    Percorso percorso_;
    Grafico grafico_;
};

}  // namespace kel::strumento

#endif
