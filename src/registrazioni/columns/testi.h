// Texts of many samples.
#ifndef KEL_COLUMNS_TESTI_H
#define KEL_COLUMNS_TESTI_H

#include <cstddef>

#include "columns/nuclei.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

inline constexpr std::size_t BYTE_TESTO = 32;

// How a converter's text function writes a sample: one for each that is written here.
enum class Scrittura : std::uint8_t {
    numero,
    tempo_giro,
    coordinata,
    differenza_tempo,
    tempo_pacchetto,
    gps,
    navsol,
    copia_6,
    copia_30,
    data_ora,
    lap_1g,
    satelliti,
    sconosciuta  // through the converter's own function
};

inline constexpr std::size_t NUM_SCRITTURE = static_cast<std::size_t>(Scrittura::sconosciuta);

// The samples of one block, and the texts that they become.
struct BloccoTesti {
    const unsigned char* campioni;
    std::size_t passo;
    std::size_t numero;  // at most `CAMPIONI_PER_BLOCCO`
    char* testi;
};

// Numbers, of values and status words that have been read already.
void scrivi_numeri(const Nuclei& nuclei, s_kel_converter& conv, const BloccoTesti& blocco, const float* valori,
                   const unsigned char* stati) noexcept;

// All others.
void scrivi_testi(const Nuclei& nuclei, Scrittura scrittura, s_kel_converter& conv, const BloccoTesti& blocco) noexcept;

}  // namespace kel_colonne

#endif
