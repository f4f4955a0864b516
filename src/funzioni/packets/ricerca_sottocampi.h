// Look-ups in the subfield tables.
#ifndef KEL_PACKETS_RICERCA_SOTTOCAMPI_H
#define KEL_PACKETS_RICERCA_SOTTOCAMPI_H

#include "kelfunzioni.h"
#include "tables/fid.h"

namespace kel {

// The subfield table of a kind of packet; null when there is none.
const s_sottocampo* tabella_sottocampi(unsigned dettagli, unsigned spec) noexcept;

// The row of a subfield within a kind of packet; null when the packet does not have it.
const s_sottocampo* cerca_sottocampo(unsigned dettagli, unsigned spec, kel_funpos fid) noexcept;

// Whether a row is the end of its table.
constexpr bool fine_sottocampi_qui(const s_sottocampo& riga) noexcept {
    return grandezza_di_fine(riga.fid);
}

}  // namespace kel

#endif
