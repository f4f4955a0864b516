// How many bytes a sample of each type has.
#ifndef KEL_TABLES_BYTE_CAMPIONE_H
#define KEL_TABLES_BYTE_CAMPIONE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "kelfunzioni.h"

namespace kel {

struct ByteCampione {
    std::uint8_t tipo_campione;  // equals the row's index
    std::uint8_t byte;           // 0: the type has no sample
};

// clang-format off
//   sample type                bytes
inline constexpr auto BYTE_CAMPIONI = std::to_array<ByteCampione>({
    {KEL_TIPO_INT32,            4},
    {KEL_TIPO_INT16,            2},
    {KEL_TIPO_UINT8_INTERO,     1},
    {KEL_TIPO_UINT32,           4},
    {KEL_TIPO_UINT16,           2},
    {KEL_TIPO_UINT8,            1},
    {KEL_TIPO_FLOAT,            4},
    {KEL_TIPO_LAP_2G,           28},
    {KEL_TIPO_GPS_KEL,          56},
    {KEL_TIPO_GPS_NAVSOL,       52},
    {KEL_TIPO_DATA_ORA,         44},
    {KEL_TIPO_MARCIA,           2},
    {KEL_TIPO_TEMPO_GIRO,       4},
    {KEL_TIPO_LISTA_BIT,        1},
    {KEL_TIPO_NESSUNO,          0},
    {KEL_TIPO_NUMERO_TESTO_6,   8},
    {KEL_TIPO_NUMERO_TESTO_30,  32},
    {KEL_TIPO_LAP_1G,           8},
    {KEL_TIPO_GPS_SATELLITI,    64},
    {KEL_TIPO_OTTO_BYTE,        8},
    {KEL_TIPO_MEZZO_FLOAT,      2},
    {KEL_TIPO_COORDINATA,       4},
    {KEL_TIPO_TEMPO_PACCHETTO,  32},
    {KEL_TIPO_NESSUNO_2,        0},
    {KEL_TIPO_DIFFERENZA_TEMPO, 4},
});
// clang-format on

// Derived here alone: the other tables of sample types must have as many rows.
inline constexpr std::uint32_t TIPI_CAMPIONE = KEL_TIPO_DIFFERENZA_TEMPO + 1;
static_assert(std::size(BYTE_CAMPIONI) == TIPI_CAMPIONE, "one row for each type of sample");

constexpr bool righe_per_tipo() {
    std::uint32_t atteso = 0;
    for (const ByteCampione& riga : BYTE_CAMPIONI)
        if (riga.tipo_campione != atteso++)
            return false;
    return true;
}
static_assert(righe_per_tipo(), "row i is of sample type i");

// The numbers alone, by the code, for the look-up of programs.
consteval std::array<std::uint8_t, std::size(BYTE_CAMPIONI)> byte_per_codice() {
    std::array<std::uint8_t, std::size(BYTE_CAMPIONI)> byte = {};
    for (std::size_t i = 0; i < byte.size(); ++i)
        byte[i] = BYTE_CAMPIONI[i].byte;
    return byte;
}

// For the proofs of tables; 0 for a code that is no type of samples.
constexpr unsigned byte_campione(std::uint32_t tipo_campione) {
    return tipo_campione < std::size(BYTE_CAMPIONI) ? BYTE_CAMPIONI[tipo_campione].byte : 0;
}

}  // namespace kel

#endif
