// The decoders of computed subfields: the rows of the subfield tables point to them.
#ifndef KEL_PACKETS_DECODER_SOTTOCAMPI_H
#define KEL_PACKETS_DECODER_SOTTOCAMPI_H

#include "kelfunzioni.h"

namespace kel {

// Of the logger's GPS packet. Speed in km/h, 0 without a usable fix; coordinates in degrees, to which gain and offset
// of the unit are not applied.
float velocita_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float velocita_gps_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float latitudine_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float longitudine_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

// Of a NAV-SOL payload. Speed in cm/s, with or without a fix.
float velocita_navsol(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;
float velocita_navsol_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

}  // namespace kel

#endif
