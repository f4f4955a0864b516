#include "converters/formati.h"

#include <iterator>

#include "base/stato.h"
#include "converters/decoder_coordinata.h"
#include "converters/decoder_float.h"
#include "converters/decoder_interi.h"
#include "converters/decoder_lista_bit.h"
#include "converters/decoder_marcia.h"
#include "converters/decoder_numero_testo.h"
#include "converters/decoder_tempi.h"
#include "converters/testo_numerico.h"
#include "packets/decoder_pacchetti.h"
#include "tables/byte_campione.h"

namespace kel {
namespace {

// clang-format off
constexpr f_valore_conv NO = nullptr;
constexpr f_stato_conv MUTO = nullptr;  // no text for a status

// A channel of KEL_TIPO_NUMERO_TESTO_6 whose function is a gear has another value function than the row's: set-up puts
// `numero_o_cifra` in place of `numero`.
//   sample type                value                     reciprocal                  bit field                   text                     status       unit data
constexpr Formato FORMATI[] = {
    {KEL_TIPO_INT32,            intero_lineare<int32_t>,  intero_reciproco<int32_t>,  NO,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_INT16,            intero_lineare<int16_t>,  intero_reciproco<int16_t>,  NO,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT8_INTERO,     intero_lineare<uint8_t>,  intero_reciproco<uint8_t>,  NO,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT32,           intero_lineare<uint32_t>, intero_reciproco<uint32_t>, intero_campo_bit<uint32_t>, testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT16,           intero_lineare<uint16_t>, intero_reciproco<uint16_t>, intero_campo_bit<uint16_t>, testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT8,            intero_lineare<uint8_t>,  intero_reciproco<uint8_t>,  intero_campo_bit<uint8_t>,  testo_numerico,          testo_stato, true},
    {KEL_TIPO_FLOAT,            float_lineare,            float_reciproco,            NO,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_LAP_2G,           pacchetto_senza_valore,   NO,                         NO,                         testo_tempo_pacchetto,   MUTO,        false},
    {KEL_TIPO_GPS_KEL,          pacchetto_senza_valore,   NO,                         NO,                         testo_gps_kel,           MUTO,        false},
    {KEL_TIPO_GPS_NAVSOL,       pacchetto_senza_valore,   NO,                         NO,                         testo_gps_navsol,        MUTO,        false},
    {KEL_TIPO_DATA_ORA,         pacchetto_senza_valore,   NO,                         NO,                         testo_data_ora,          MUTO,        false},
    {KEL_TIPO_MARCIA,           marcia,                   NO,                         NO,                         testo_marcia,            MUTO,        false},
    {KEL_TIPO_TEMPO_GIRO,       intero_lineare<int32_t>,  NO,                         NO,                         testo_tempo_giro,        MUTO,        true},
    {KEL_TIPO_LISTA_BIT,        lista_bit,                NO,                         lista_bit_mascherata,       testo_numerico,          MUTO,        true},
    {KEL_TIPO_NESSUNO,          NO,                       NO,                         NO,                         testo_assente,           MUTO,        false},
    {KEL_TIPO_NUMERO_TESTO_6,   numero,                   NO,                         NO,                         testo_copia_6,           MUTO,        false},
    {KEL_TIPO_NUMERO_TESTO_30,  numero,                   NO,                         NO,                         testo_copia_30,          MUTO,        false},
    {KEL_TIPO_LAP_1G,           pacchetto_senza_valore,   NO,                         NO,                         testo_lap_1g,            MUTO,        false},
    {KEL_TIPO_GPS_SATELLITI,    pacchetto_senza_valore,   NO,                         NO,                         testo_gps_satelliti,     MUTO,        false},
    {KEL_TIPO_OTTO_BYTE,        NO,                       NO,                         NO,                         testo_assente,           MUTO,        false},
    {KEL_TIPO_MEZZO_FLOAT,      mezzo_lineare,            mezzo_reciproco,            NO,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_COORDINATA,       intero_lineare<int32_t>,  intero_reciproco<int32_t>,  NO,                         testo_coordinata,        testo_stato, true},
    {KEL_TIPO_TEMPO_PACCHETTO,  pacchetto_senza_valore,   NO,                         NO,                         testo_tempo_pacchetto,   MUTO,        false},
    {KEL_TIPO_NESSUNO_2,        NO,                       NO,                         NO,                         testo_assente,           MUTO,        false},
    {KEL_TIPO_DIFFERENZA_TEMPO, intero_lineare<int32_t>,  NO,                         NO,                         testo_differenza_tempo,  MUTO,        true},
};
// clang-format on

consteval bool indice_uguale_codice() {
    uint32_t atteso = 0;
    for (const Formato& formato : FORMATI)
        if (formato.tipo_campione != atteso++)
            return false;
    return true;
}
static_assert(indice_uguale_codice(), "row i describes sample type i");
static_assert(std::size(FORMATI) == std::size(BYTE_CAMPIONI), "one row for each type of sample");

}  // namespace

const Formato* formato_campione(uint32_t tipo_campione) noexcept {
    return tipo_campione < std::size(FORMATI) ? &FORMATI[tipo_campione] : nullptr;
}

}  // namespace kel

unsigned kelFunGetSamplSize(unsigned codice) noexcept {
    static constexpr auto byte = kel::byte_per_codice();
    return codice < byte.size() ? byte[codice] : 0;
}
