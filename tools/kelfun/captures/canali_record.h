// The columns of a recording: what each channel, and each subfield of its packets, shows of a record of samples.
#ifndef KELFUN_CAPTURES_CANALI_RECORD_H
#define KELFUN_CAPTURES_CANALI_RECORD_H

#include <cstddef>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "captures/registrazione.h"

namespace kel::strumento {

/// A column of a recording, and how it is shown.
class ColonnaRecord {
public:
    /// @param colonna  below `kelRegNumColonne`.
    ColonnaRecord(const IFunzioni& catalogo, const Registrazione& reg, unsigned colonna);

    /// Shows another unit of its function, in the recording too; false when the function has no such unit.
    bool mostra_in(const Registrazione& reg, const std::string& nuova);

    /// The units that it can be shown in; none where its values have no unit, or always the same.
    std::vector<std::string> unita_possibili(const IFunzioni& catalogo) const;

    bool ha_valore() const { return valori != KEL_VALORI_NESSUNO && campo != KEL_CAMPO_UTC; }
    /// Whether it is WGS 84, and not what the library makes of the samples.
    bool wgs84() const { return campo != KEL_CAMPO_NESSUNO; }
    /// Its name with what is to be said of its values: "Position Accuracy low byte".
    const std::string& nome_misurato() const { return misurato_; }
    /// "Oil Pressure bar", or "oil_pressure_bar" for programs.
    std::string titolo() const;
    std::string chiave() const;
    std::size_t larghezza(bool testi) const;

    unsigned quale;      ///< in the recording
    std::string nome;    ///< of the channel or the subfield
    std::size_t indice;  ///< of its channel in the set
    kel_funpos fid;
    std::string udm;         ///< the unit that its values are in, "" for none
    std::string udm_scelta;  ///< the same as the catalogue has it: "#" for none
    eKelValori valori;
    eKelCampo campo;
    int decimali;
    bool interna;    ///< read out of the packet of its channel
    bool pacchetto;  ///< a packet as a whole: it has a text and no value

private:
    bool con_unita_;
    bool numerica_ = false;  // its texts are as wide as numbers
    std::string misurato_;
};

/// What a user wants to see of a recording.
struct SceltaColonne {
    std::vector<std::string> solo;   ///< names or identifiers of channels and subfields; none: all
    std::vector<std::string> unita;  ///< "UNIT" for everything that knows it, or "NAME=UNIT"
    bool testi = false;              ///< texts of the library in place of values
};

/// All columns of a recording, in its order, a packet's subfields behind it.
std::vector<ColonnaRecord> colonne_record(const IFunzioni& catalogo, const Registrazione& reg);

/// Those that a user wants to see, in the units that he wants.
/// @throws ErroreUso  for a name that no channel has and a unit that its function does not know.
std::vector<ColonnaRecord> colonne_scelte(IFunzioni& catalogo, const Registrazione& reg, const SceltaColonne& scelta);

}  // namespace kel::strumento

#endif
