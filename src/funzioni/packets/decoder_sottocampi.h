// Decoders that rows of the subfield tables name. Apart from the other decoders, and including only the public headers,
// so that the tables can name them.
#ifndef KEL_PACKETS_DECODER_SOTTOCAMPI_H
#define KEL_PACKETS_DECODER_SOTTOCAMPI_H

#include "kelfunzioni.h"

namespace kel {

// Of the logger's GPS packet: km/h, 0 without a usable fix; degrees.
float velocita_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float velocita_gps_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float latitudine_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float longitudine_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

// Of a NAV-SOL payload: cm/s, whatever the fix.
float velocita_navsol(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float velocita_navsol_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

}  // namespace kel

#endif
