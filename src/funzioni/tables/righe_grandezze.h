// Which row of the quantity table an identifier falls under: the row's number for every quantity and object, in 2 KB.
//
// The compiler fills the table by searching the quantity table row by row. A look-up is then one load, where the search
// compares up to 65 keys.
#ifndef KEL_TABLES_RIGHE_GRANDEZZE_H
#define KEL_TABLES_RIGHE_GRANDEZZE_H

#include <bit>
#include <cstdint>
#include <iterator>

#include "tables/fid.h"

namespace kel {

// Room for every quantity and every object that has a meaning. Of objects the next power of two is taken, so that the
// row of a quantity begins at a multiple of 64, which is a shift.
inline constexpr unsigned GRANDEZZE_CON_RIGA = GRANDEZZE_NOTE;
inline constexpr unsigned OGGETTI_CON_RIGA = std::bit_ceil(OGGETTI_NOTI);

// The number of the end row: where a search stops that finds nothing.
inline constexpr unsigned RIGA_FINE_GRANDEZZE = std::size(uib_grandezza_fisica_uiv) - 1;

struct RigheGrandezze {
    std::uint8_t numeri[GRANDEZZE_CON_RIGA][OGGETTI_CON_RIGA];

    // The number of the identifier's row; that of the end row when its quantity has none.
    constexpr unsigned riga(kel_funpos fid) const noexcept {
        const unsigned grandezza = kelFidGrandezza(fid);
        const unsigned oggetto = kelFidOggetto(fid);
        if (grandezza >= GRANDEZZE_CON_RIGA)
            return RIGA_FINE_GRANDEZZE;
        // An object that no row names falls under the generic row, as object 0 does.
        return numeri[grandezza][oggetto < OGGETTI_CON_RIGA ? oggetto : 0];
    }
};

// Declared hidden, so that code in other files knows that the address is fixed within the library, and does not load it
// from the table of exported addresses first.
[[gnu::visibility("hidden")]] extern const RigheGrandezze RIGHE_GRANDEZZE;

}  // namespace kel

#endif
