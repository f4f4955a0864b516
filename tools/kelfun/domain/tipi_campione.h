// The sample types by code.
#ifndef KELFUN_DOMAIN_TIPI_CAMPIONE_H
#define KELFUN_DOMAIN_TIPI_CAMPIONE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelfunzioni.h"

namespace kel::strumento {

/// How many there are: the codes that a channel record may have are 0 to one less.
constexpr unsigned NUM_TIPI_CAMPIONE = KEL_TIPO_CALCOLATO;

/// What a sample of a type holds. `tipo` is below NUM_TIPI_CAMPIONE, here and below.
const char* contenuto_campione(unsigned tipo);

/// The name of a type's constant: "KEL_TIPO_INT16".
const char* costante_campione(unsigned tipo);

/// The name of a type: "int16". No two have the same.
const char* nome_campione(unsigned tipo);

/// "int16 (1)".
std::string nome_con_codice(unsigned tipo);

/// The names of all types in the order of their codes.
const std::vector<std::string>& nomi_campioni();

/// The type of a name, capitals or not, of a constant ("KEL_TIPO_INT16") or of a code in decimal.
std::optional<unsigned> leggi_tipo_campione(std::string_view testo);

/// The sample type of a packet channel, known from its function; nothing for other functions.
std::optional<unsigned> tipo_pacchetto(kel_funpos fid);

}  // namespace kel::strumento

#endif
