// A recording as a plot: its columns over time or distance, its laps, and the track of its first GPS packet.
#ifndef KELFUN_PLOTS_GRAFICO_RECORD_H
#define KELFUN_PLOTS_GRAFICO_RECORD_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "captures/blocco_record.h"
#include "captures/canali_record.h"
#include "captures/registrazione.h"
#include "plots/grafico.h"
#include "plots/nota.h"
#include "plots/pannelli_record.h"
#include "plots/percorso.h"

namespace kel::strumento {

class GraficoRecord {
public:
    /// @param reg       must live as long as this.
    /// @param tutte     all columns of the channels, in their base units: for the laps, and the speed that distances
    ///                  are made of.
    /// @param colonne   those that the plot is of.
    /// @param pannelli  those that it shows over the axis, less the position where there is a track.
    /// @throws NonTrovato  when distances are asked for and no channel has a speed.
    GraficoRecord(const Registrazione& reg, std::span<const ColonnaRecord> tutte,
                  std::span<const ColonnaRecord> colonne, PannelliRecord pannelli, const Tratto& tratto);

    /// What the next rows are to be read into.
    BloccoRecord& blocco() { return *blocco_; }
    /// Takes them. Where a GPS packet has no fix its values and the track are broken.
    void aggiungi();

    /// Completes the plot. Curves that never change are left out if others do.
    /// @return  what is to be said about it.
    std::vector<Nota> chiudi();

    Grafico& grafico() { return grafico_; }

private:
    // A column to be read, by its place in the block.
    struct Letta {
        std::size_t voce = 0;
        std::size_t indice = 0;  // of its channel
        bool del_fix = false;    // nothing without a fix, though the device has a value
    };
    // The fix of a GPS packet: without one, the values that the device shows of it are not drawn.
    struct Ricezione {
        std::size_t canale = 0;
        std::optional<std::size_t> fix, satelliti;
        bool buona = true;  // in the current record
    };

    Letta leggi(const ColonnaRecord& colonna);
    void trova_ricezioni(std::span<const ColonnaRecord> tutte);
    void trova_traccia(std::span<const ColonnaRecord> colonne);
    void trova_velocita(std::span<const ColonnaRecord> tutte, std::span<const ColonnaRecord> colonne);
    void leggi_andature();
    std::optional<double> valore(const Letta& letta, std::size_t riga) const;
    void aggiungi_riga(std::size_t riga);
    void aggiungi_traccia(std::size_t riga);
    void segna_giro(double x, std::size_t riga);
    void interrompi(double x);
    std::vector<std::string> togli_fermi();

    const Registrazione* reg_;
    std::vector<VoceBlocco> voci_;
    std::optional<BloccoRecord> blocco_;
    PannelliRecord pannelli_;
    std::vector<std::vector<Letta>> curve_;  // of each panel
    std::vector<Ricezione> ricezioni_;
    // Of the first GPS packet that the plot is of as a whole.
    std::optional<Letta> longitudine_, latitudine_, velocita_;
    std::optional<ColonnaRecord> andatura_;  // km/h, to make distances of
    std::string andatura_scelta_;            // the unit that the recording shows it in
    std::optional<BloccoRecord> andature_;
    std::optional<Letta> giro_;
    int prossimo_giro_ = 0;  // added to a channel's lap number to get that of the lap that runs
    std::optional<double> ultimo_giro_;
    bool troppi_giri_ = false;
    Percorso percorso_;
    Grafico grafico_;
};

}  // namespace kel::strumento

#endif
