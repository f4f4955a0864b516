// Look-ups in the subfield tables.
#ifndef KEL_PACKETS_RICERCA_SOTTOCAMPI_H
#define KEL_PACKETS_RICERCA_SOTTOCAMPI_H

#include "kelfunzioni.h"

namespace kel {

// The subfield table of a kind of packet; null when there is none.
const s_sottocampo* tabella_sottocampi(unsigned dettagli, unsigned spec) noexcept;

// The row of a subfield within a kind of packet; null when the packet does not have it.
const s_sottocampo* cerca_sottocampo(unsigned dettagli, unsigned spec, kel_funpos fid) noexcept;

// Whether a row is the end of its table. Only the quantity of its identifier, the low seven bits, is compared.
constexpr bool fine_sottocampi_qui(const s_sottocampo& riga) noexcept {
    return kelFidGrandezza(riga.fid) == FID_PHI_FINE_TABELLA;
}

}  // namespace kel

#endif
