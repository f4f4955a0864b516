// The sample types by code.
#ifndef KELFUN_DOMAIN_TIPI_CAMPIONE_H
#define KELFUN_DOMAIN_TIPI_CAMPIONE_H

#include <optional>

#include "kelfunzioni.h"

namespace kel::strumento {

constexpr unsigned NUM_TIPI_CAMPIONE = 25;

/// What a sample of a type holds; codes 0 to 24.
const char* contenutoCampione(unsigned tipo);

/// The name of a type's constant; codes 0 to 24.
const char* costanteCampione(unsigned tipo);

/// The sample type of a packet channel, known from its function; nothing for other functions.
std::optional<unsigned> tipoPacchetto(kel_funpos fid);

}  // namespace kel::strumento

#endif
