// The columns of a recording: what each channel, and each subfield of its packets, shows of a record of samples.
#ifndef KELFUN_CAPTURES_CANALI_RECORD_H
#define KELFUN_CAPTURES_CANALI_RECORD_H

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "IFunzioni.h"
#include "domain/registrazioni.h"
#include "output/documento.h"
#include "registrazioni/recordings/colonna.h"

namespace kel::strumento {

/// A column of a recording, and how it is shown.
class ColonnaRecord : public ColonnaDati {
public:
    using ColonnaDati::ColonnaDati;
    explicit ColonnaRecord(ColonnaDati colonna) : ColonnaDati(std::move(colonna)) {}

    Cella cella(const std::uint8_t* campioni, bool testi);

    /// The units that it can be shown in; none where its values have no unit, or always the same.
    std::vector<std::string> unita_possibili(const IFunzioni& catalogo) const;
    /// Whether it is WGS 84, and not what the library makes of the samples.
    bool wgs84() const { return campo().has_value(); }
    /// The unit that its values are in, "" for none.
    std::string unita() const;
    /// "Oil Pressure bar", or "oil_pressure_bar" for programs.
    std::string titolo() const;
    std::string chiave() const;
    std::size_t larghezza(bool testi) const;
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
std::vector<ColonnaRecord> colonne_record(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                          const SceltaColonne& scelta);

}  // namespace kel::strumento

#endif
