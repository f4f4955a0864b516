// The channel set of a recording.
#ifndef KEL_REGISTRAZIONI_CANALI_H
#define KEL_REGISTRAZIONI_CANALI_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "common/parole.h"
#include "kelfunzioni.h"

namespace kel_registrazioni {

constexpr unsigned NUM_TIPI_CAMPIONE = KEL_TIPO_CALCOLATO;  ///< sample types 0 to one less
constexpr std::size_t CANALE_BYTE = 112;
constexpr std::size_t CANALI_MASSIMI = 65536;                 ///< a channel's index has 16 bits
constexpr std::size_t RECORD_MASSIMO = std::size_t{1} << 20;  ///< bytes; more is no logger's record

/// Where the samples of a channel set lie.
enum class Disposizione {
    dichiarata,  ///< where each channel record says; the record is as long as their sample buffers together
    compatta     ///< one behind the other in the order of the channels, each as long as its type
};

/// The channel set of a file: records of 112 bytes, little-endian, as they lie in the device's memory.
/// @throws Errore  when they are no such records: one line that names the channel at fault.
std::vector<s_kel_canale> leggi_canali(std::span<const std::uint8_t> byte, Disposizione disposizione,
                                       const Parole& parole = PAROLE_DELLA_FACCIA);

/// Bytes of one record of samples of a set that `leggi_canali` gave.
std::size_t dimensione_record(std::span<const s_kel_canale> canali);

/// A channel's name: the long one, else the short one, else that of its function.
std::string nome_canale(const s_kel_canale& canale);

}  // namespace kel_registrazioni

#endif
