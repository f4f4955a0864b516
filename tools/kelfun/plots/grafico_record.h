// A recording as a plot: its columns over time, and the track of its first GPS packet.
#ifndef KELFUN_PLOTS_GRAFICO_RECORD_H
#define KELFUN_PLOTS_GRAFICO_RECORD_H

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "captures/canali_record.h"
#include "plots/grafico.h"

namespace kel::strumento {

class GraficoRecord {
public:
    /// @param colonne  what to draw; those without values are left out.
    GraficoRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali, std::vector<ColonnaRecord> colonne,
                  const std::string& titolo, const std::string& asse);

    /// The samples of the next record. Where a GPS packet has no fix its values and the track are broken.
    void aggiungi(double tempo, const std::uint8_t* campioni);

    /// What has been put in, without the series that never change where others do: the names of those left out.
    std::vector<std::string> chiudi();

    const Grafico& grafico() const { return grafico_; }

private:
    // A GPS packet's fix, to know when the values that the device shows of it are none. WGS 84 knows by itself.
    struct Ricezione {
        std::size_t canale = 0;
        ColonnaRecord fix;
        ColonnaRecord satelliti;
        bool buona = true;  // in the record at hand
    };

    const Ricezione* ricezione(const ColonnaRecord& colonna) const;
    void aggiungiTraccia(const std::uint8_t* campioni);

    std::vector<ColonnaRecord> colonne_;
    std::vector<Ricezione> ricezioni_;
    // Of the first GPS packet that is shown whole.
    std::optional<ColonnaRecord> longitudine_, latitudine_, velocita_;
    Grafico grafico_;
};

}  // namespace kel::strumento

#endif
