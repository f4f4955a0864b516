// Which row of the quantity table an identifier falls under, in one load: a walk's answer for every quantity and object.
//
// The answers are computed by the walk when the table is compiled.
#ifndef KEL_TABLES_RIGHE_GRANDEZZE_H
#define KEL_TABLES_RIGHE_GRANDEZZE_H

#include <cstdint>
#include <iterator>

#include "tables/fid.h"

namespace kel {

// Powers of two, and room for all rows: no row has a quantity or an object beyond them.
inline constexpr unsigned grandezze_con_riga = 32;
inline constexpr unsigned oggetti_con_riga = 64;

// Where a walk stops that finds nothing.
inline constexpr unsigned riga_fine_grandezze = std::size(uib_grandezza_fisica_uiv) - 1;

struct RigheGrandezze {
    std::uint8_t numeri[grandezze_con_riga][oggetti_con_riga];

    // The number of the row; that of the end row when the quantity has none.
    constexpr unsigned riga(kel_funpos fid) const noexcept {
        const unsigned grandezza = kelFidGrandezza(fid);
        const unsigned oggetto = kelFidOggetto(fid);
        if (grandezza >= grandezze_con_riga)
            return riga_fine_grandezze;
        // An object that no row names falls under the generic row, as object 0 does.
        return numeri[grandezza][oggetto < oggetti_con_riga ? oggetto : 0];
    }
};

// Not exported, and said so where it is used: its address is then known without a load.
[[gnu::visibility("hidden")]] extern const RigheGrandezze righe_grandezze;

}  // namespace kel

#endif
