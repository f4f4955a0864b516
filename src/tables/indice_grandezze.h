// Which row of the quantity table an identifier falls under, in two loads instead of a walk.
//
// The rows of particular objects lie in one array of places, shifted by quantity so that they interlock: the place of an
// object belongs to the quantity that is noted in it. Everything is computed from the table when it is compiled, and
// proved equal to the walk there.
#ifndef KEL_TABLES_INDICE_GRANDEZZE_H
#define KEL_TABLES_INDICE_GRANDEZZE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "tables/fid.h"

namespace kel {

struct IndiceGrandezze {
    static constexpr unsigned grandezze = FID_PHI_GEAR + 1;
    static constexpr unsigned oggetti = FID_OBJ_PREDICTIVE_VS_REF_DIFF + 1;
    static constexpr unsigned posti_massimi = oggetti + 9;
    static constexpr std::uint8_t nessuna = 0xFF;

    struct Grandezza {
        std::uint8_t generica = nessuna;  // the row without an object
        std::uint8_t inizio = 0;          // the place of its object 0
    };
    struct Posto {
        std::uint8_t riga = nessuna;
        std::uint8_t grandezza = nessuna;  // whose row it is
    };
    Grandezza per_grandezza[grandezze];
    Posto posti[posti_massimi];

    // The number of the row; `nessuna` when the quantity has none.
    constexpr unsigned riga(kel_funpos fid) const noexcept {
        const unsigned grandezza = kelFidGrandezza(fid);
        if (grandezza >= grandezze)
            return nessuna;
        const Grandezza di_questa = per_grandezza[grandezza];
        // Objects without a meaning share the place behind the last one, which is no row's.
        const Posto posto = posti[di_questa.inizio + std::min(kelFidOggetto(fid), oggetti)];
        // Both rows are at hand: a choice without a branch, since callers ask in no order.
        const unsigned particolare = posto.grandezza == grandezza ? 0xFF : 0;
        return (posto.riga & particolare) | (di_questa.generica & ~particolare);
    }
};

extern const IndiceGrandezze indice_grandezze;

}  // namespace kel

#endif
