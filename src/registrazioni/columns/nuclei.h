// The loops that read many samples of one format, built once for each instruction set.
//
// A set of them is constant and comes from a file of its own, nuclei_*.cpp, all of which compile nuclei_corpo.h. Which set a
// processor can run is asked anew in each call of kelColLeggi, so that the library has nothing to keep.
#ifndef KEL_COLUMNS_NUCLEI_H
#define KEL_COLUMNS_NUCLEI_H

#include <cstddef>
#include <cstdint>

#include "columns/campo.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

// How a converter's function reads a sample: one for each decoder of the first library that has loops of its own.
enum class Lettura : std::uint8_t {
    int16_lineare,
    uint16_lineare,
    float_lineare,
    uint8_lineare,
    int32_lineare,
    uint32_lineare,
    mezzo_lineare,
    marcia,
    numero,
    costante_zero,
    uint16_campo_bit,
    uint32_campo_bit,
    uint8_campo_bit,
    lista_bit,
    lista_bit_mascherata,
    int16_reciproco,
    uint16_reciproco,
    float_reciproco,
    uint8_reciproco,
    int32_reciproco,
    uint32_reciproco,
    mezzo_reciproco,
    latitudine_gps,
    longitudine_gps,
    velocita_gps,
    velocita_gps_reciproca,
    velocita_navsol,
    velocita_navsol_reciproca,
    sconosciuta  // through the converter's own function
};

// Whether it converts with the unit's gain and offset.
constexpr bool usa_dati(Lettura lettura) noexcept {
    switch (lettura) {
        case Lettura::marcia:
        case Lettura::numero:
        case Lettura::costante_zero:
        case Lettura::latitudine_gps:
        case Lettura::longitudine_gps:
        case Lettura::sconosciuta:
            return false;
        default:
            return true;
    }
}

inline constexpr std::size_t NUM_LETTURE = static_cast<std::size_t>(Lettura::sconosciuta);

// What a loop needs of a converter.
struct Conversione {
    const s_kel_converter* conv;
    float gain;
    float offset;
    std::uint32_t maschera;
    std::uint32_t pos_bit;  // below 32
    std::uint32_t num_bit;  // at most 8
};

// Values of at most `CAMPIONI_PER_BLOCCO` samples; true when all of them are good.
using f_valori = bool (*)(const unsigned char* campioni, std::size_t passo, std::size_t numero,
                          const Conversione& conversione, float* valori);
// Their status words; true, and nothing written, when all are 0.
using f_stati = bool (*)(const unsigned char* campioni, std::size_t numero, unsigned char* stati);

inline constexpr std::size_t CAMPIONI_PER_BLOCCO = 1024;

// How one format is read. Where `byte` is not 0, samples that lie apart are first brought together, and the loops are given
// samples that lie side by side. `stati` is null where every sample is good.
struct Nucleo {
    unsigned byte;
    f_valori valori;
    f_stati stati;
};

struct Nuclei {
    const char* nome;
    Nucleo letture[NUM_LETTURE];
    // Brings samples of 1, 2 or 4 bytes together.
    void (*raccogli)(const unsigned char* campioni, std::size_t passo, std::size_t numero, unsigned byte, void* densi);
    // The bitmap of the samples whose status is 0; spare bits are 0.
    void (*bit_validi)(const unsigned char* stati, std::size_t numero, unsigned char* validi);
    // The texts of numbers in a field, and of lap times, as words of eight characters; `entrano` tells which of them fit.
    void (*numeri_in_parole)(const float* valori, std::size_t numero, const Campo& campo, std::uint64_t* parole,
                             unsigned char* entrano);
    void (*tempi_in_parole)(const std::int32_t* tempi, std::size_t numero, bool compatto, bool decimi,
                            std::uint64_t* parole, unsigned char* entrano);
    // Copies past the caches what is too much for them; null where the machine has no such stores.
    void (*copia_oltre)(const float* da, std::size_t numero, float* a);
    // Makes such copies visible before whatever the thread writes next; null with it.
    void (*fine_oltre)();
};

extern const Nuclei NUCLEI_BASE;
#ifdef KEL_NUCLEI_AVX2
extern const Nuclei NUCLEI_AVX2;
#endif

// The sets that this processor can run, the fastest last.
struct InsiemiNuclei {
    const Nuclei* insiemi[4];
    unsigned numero;
};
InsiemiNuclei nuclei_possibili() noexcept;

// The fastest of them.
const Nuclei& nuclei_migliori() noexcept;

}  // namespace kel_colonne

#endif
