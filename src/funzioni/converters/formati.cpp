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
constexpr f_valore_conv no = nullptr;
constexpr f_stato_conv muto = nullptr;  // no text for a status

// A channel of KEL_TIPO_NUMERO_TESTO_6 whose function is a gear has another value function than the row's: set-up puts
// `numero_o_cifra` in place of `numero`.
//   sample type                value                     reciprocal                  bit field                   text                     status       unit data
constexpr Formato formati[] = {
    {KEL_TIPO_INT32,            intero_lineare<int32_t>,  intero_reciproco<int32_t>,  no,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_INT16,            intero_lineare<int16_t>,  intero_reciproco<int16_t>,  no,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT8_INTERO,     intero_lineare<uint8_t>,  intero_reciproco<uint8_t>,  no,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT32,           intero_lineare<uint32_t>, intero_reciproco<uint32_t>, intero_campo_bit<uint32_t>, testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT16,           intero_lineare<uint16_t>, intero_reciproco<uint16_t>, intero_campo_bit<uint16_t>, testo_numerico,          testo_stato, true},
    {KEL_TIPO_UINT8,            intero_lineare<uint8_t>,  intero_reciproco<uint8_t>,  intero_campo_bit<uint8_t>,  testo_numerico,          testo_stato, true},
    {KEL_TIPO_FLOAT,            float_lineare,            float_reciproco,            no,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_LAP_2G,           pacchetto_senza_valore,   no,                         no,                         testo_tempo_pacchetto,   muto,        false},
    {KEL_TIPO_GPS_KEL,          pacchetto_senza_valore,   no,                         no,                         testo_gps_kel,           muto,        false},
    {KEL_TIPO_GPS_NAVSOL,       pacchetto_senza_valore,   no,                         no,                         testo_gps_navsol,        muto,        false},
    {KEL_TIPO_DATA_ORA,         pacchetto_senza_valore,   no,                         no,                         testo_data_ora,          muto,        false},
    {KEL_TIPO_MARCIA,           marcia,                   no,                         no,                         testo_marcia,            muto,        false},
    {KEL_TIPO_TEMPO_GIRO,       intero_lineare<int32_t>,  no,                         no,                         testo_tempo_giro,        muto,        true},
    {KEL_TIPO_LISTA_BIT,        lista_bit,                no,                         lista_bit_mascherata,       testo_numerico,          muto,        true},
    {KEL_TIPO_NESSUNO,          no,                       no,                         no,                         testo_assente,           muto,        false},
    {KEL_TIPO_NUMERO_TESTO_6,   numero,                   no,                         no,                         testo_copia_6,           muto,        false},
    {KEL_TIPO_NUMERO_TESTO_30,  numero,                   no,                         no,                         testo_copia_30,          muto,        false},
    {KEL_TIPO_LAP_1G,           pacchetto_senza_valore,   no,                         no,                         testo_lap_1g,            muto,        false},
    {KEL_TIPO_GPS_SATELLITI,    pacchetto_senza_valore,   no,                         no,                         testo_gps_satelliti,     muto,        false},
    {KEL_TIPO_OTTO_BYTE,        no,                       no,                         no,                         testo_assente,           muto,        false},
    {KEL_TIPO_MEZZO_FLOAT,      mezzo_lineare,            mezzo_reciproco,            no,                         testo_numerico,          testo_stato, true},
    {KEL_TIPO_COORDINATA,       intero_lineare<int32_t>,  intero_reciproco<int32_t>,  no,                         testo_coordinata,        testo_stato, true},
    {KEL_TIPO_TEMPO_PACCHETTO,  pacchetto_senza_valore,   no,                         no,                         testo_tempo_pacchetto,   muto,        false},
    {KEL_TIPO_NESSUNO_2,        no,                       no,                         no,                         testo_assente,           muto,        false},
    {KEL_TIPO_DIFFERENZA_TEMPO, intero_lineare<int32_t>,  no,                         no,                         testo_differenza_tempo,  muto,        true},
};
// clang-format on

consteval bool indice_uguale_codice() {
    uint32_t atteso = 0;
    for (const Formato& formato : formati)
        if (formato.tipo_campione != atteso++)
            return false;
    return true;
}
static_assert(indice_uguale_codice(), "row i describes sample type i");
static_assert(std::size(formati) == std::size(byte_campioni), "one row for each type of sample");

}  // namespace

const Formato* formato_campione(uint32_t tipo_campione) noexcept {
    return tipo_campione < std::size(formati) ? &formati[tipo_campione] : nullptr;
}

}  // namespace kel

unsigned kelFunGetSamplSize(unsigned codice) noexcept {
    static constexpr auto byte = kel::byte_per_codice();
    return codice < byte.size() ? byte[codice] : 0;
}
