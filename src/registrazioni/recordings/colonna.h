// The columns of a recording: what each channel, and each subfield of its packets, says of a record of samples.
#ifndef KEL_REGISTRAZIONI_COLONNA_H
#define KEL_REGISTRAZIONI_COLONNA_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "gps/campi_gps.h"
#include "gps/ultima_soluzione.h"

namespace kel_registrazioni {

/// A channel, a subfield of a packet channel, or what a GPS packet says in WGS 84, in one unit.
class ColonnaDati {
public:
    /// @param canale    of a set that `leggi_canali` gave; it is not kept.
    /// @param funzione  the channel's, or that of a subfield of its packet.
    ColonnaDati(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale, kel_funpos funzione);

    /// A field of the solution that a GPS packet holds, from the packet's own numbers.
    /// @param soluzione  of the channel: its columns share it.
    ColonnaDati(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale, CampoGps campo,
                std::shared_ptr<UltimaSoluzione> soluzione);

    /// Shows another unit of its function; false when the function has no such unit.
    bool mostra_in(const IFunzioni& catalogo, const s_kel_canale& canale, const std::string& nuova);

    /// The value of a record's samples, where it has values and is no field of a solution; nothing for a reserved value.
    std::optional<double> valore(const std::uint8_t* campioni) const;
    /// The solution that its field is of; only where there is a field.
    const Soluzione& soluzione(const std::uint8_t* campioni) const;

    bool ha_valore() const;
    /// Whether its values are in a unit of its function, so that another may be chosen.
    bool con_unita() const { return misura_ == Misura::funzione && (!campo_ || campo_ == CampoGps::velocita); }
    /// The field of a solution in WGS 84; nothing for what the library makes of the samples.
    std::optional<CampoGps> campo() const { return campo_; }
    /// A packet as a whole: it has a text and no value.
    bool pacchetto_intero() const { return pacchetto_intero_; }
    /// Its name with what is to be said of its values: "Position Accuracy low byte".
    std::string nome_misurato() const;
    /// The factor of a speed in WGS 84, from m/s to its unit; else 1.
    double fattore() const { return fattore_; }
    int decimali() const { return decimali_; }
    /// What reads it out of a record of samples; of a field, only where its payload lies.
    const s_kel_converter& convertitore() const { return conv_; }

    std::string nome;    ///< of the channel or the subfield; unique among the columns
    std::size_t indice;  ///< of the channel in its set
    kel_funpos fid;
    std::string udm;  ///< the unit shown

private:
    // How the unit goes with the values, which are not always in the unit of their function.
    enum class Misura { funzione, byte_basso, decimilionesimi };

    bool pacchetto_intero_ = false;
    Misura misura_ = Misura::funzione;
    std::optional<CampoGps> campo_;
    std::shared_ptr<UltimaSoluzione> soluzione_;  // where there is such a field
    double fattore_ = 1;
    int decimali_ = 0;
    s_kel_converter conv_{};
};

/// Which columns a channel set has.
struct SceltaTabella {
    bool testi = false;        ///< the text of each packet too
    bool dispositivo = false;  ///< GPS packets as the device shows them, not in WGS 84
};

/// The columns of a channel set, in its order, a packet's subfields behind it.
std::vector<ColonnaDati> colonne(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                 const SceltaTabella& scelta);

}  // namespace kel_registrazioni

#endif
