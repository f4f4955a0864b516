// The columns of a recording: what each channel, and each subfield of its packets, shows of a record of samples.
#ifndef KELFUN_CAPTURES_CANALI_RECORD_H
#define KELFUN_CAPTURES_CANALI_RECORD_H

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "captures/ultima_soluzione.h"
#include "captures/vista_gps.h"
#include "output/documento.h"

namespace kel::strumento {

/// A channel, a subfield of a packet channel, or what a GPS packet says in WGS 84, in one unit.
class ColonnaRecord {
public:
    /// @param canale    of a set that `leggiCanali` gave; it is not kept.
    /// @param funzione  the channel's, or that of a subfield of its packet.
    ColonnaRecord(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale,
                  kel_funpos funzione);

    /// A field of the solution that a GPS packet holds, from the packet's own numbers.
    /// @param soluzione  of the channel: its columns share it.
    ColonnaRecord(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale, CampoGps campo,
                  std::shared_ptr<UltimaSoluzione> soluzione);

    /// Shows another unit of its function; false when the function has no such unit.
    bool mostraIn(const IFunzioni& catalogo, const s_kel_canale& canale, const std::string& nuova);

    /// The value of a record's samples; nothing when the sample has none, or holds a reserved value.
    std::optional<double> valore(const std::uint8_t* campioni) const;
    /// The library's text of it.
    std::string testo(const std::uint8_t* campioni);
    Cella cella(const std::uint8_t* campioni, bool testi);

    /// The units that it can be shown in; none where its values have no unit, or always the same.
    std::vector<std::string> unitaPossibili(const IFunzioni& catalogo) const;

    bool haValore() const;
    /// Whether it is WGS 84, and not what the library makes of the samples.
    bool wgs84() const { return campo_.has_value(); }
    /// Its name with what is to be said of its values: "Position Accuracy low byte".
    std::string nomeMisurato() const;
    /// The unit that its values are in, "" for none.
    std::string unita() const;
    /// "Oil Pressure bar", or "oil_pressure_bar" for programs.
    std::string titolo() const;
    std::string chiave() const;
    std::size_t larghezza(bool testi) const;

    std::string nome;    ///< of the channel or the subfield; unique among the columns
    std::size_t indice;  ///< of the channel in its set
    kel_funpos fid;
    std::string udm;  ///< the unit shown

private:
    // How the unit goes with the values, which are not always in the unit of their function.
    enum class Misura { funzione, byte_basso, decimilionesimi };

    const Soluzione& soluzione(const std::uint8_t* campioni) const;

    bool pacchetto_intero_ = false;
    Misura misura_ = Misura::funzione;
    std::optional<CampoGps> campo_;
    std::shared_ptr<UltimaSoluzione> soluzione_;  // where there is such a field
    double fattore_ = 1;                          // of a speed in WGS 84: from m/s to its unit
    int decimali_ = 0;
    s_kel_converter conv_{};
};

/// What a user wants to see of a recording.
struct SceltaColonne {
    std::vector<std::string> solo;   ///< names or identifiers of channels and subfields; none: all
    std::vector<std::string> unita;  ///< "UNIT" for everything that knows it, or "NAME=UNIT"
    bool testi = false;              ///< texts of the library in place of values
    bool dispositivo = false;        ///< GPS packets as the device shows them, not in WGS 84
};

/// The columns of a channel set, in its order, a packet's subfields behind it.
/// @throws ErroreUso  for a name that no channel has and a unit that its function does not know.
std::vector<ColonnaRecord> colonneRecord(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                         const SceltaColonne& scelta);

}  // namespace kel::strumento

#endif
