// A channel record to ask the library about samples that stand alone.
#ifndef KELFUN_DOMAIN_CANALE_H
#define KELFUN_DOMAIN_CANALE_H

#include "kelfunzioni.h"

namespace kel::strumento {

/// A channel of a function and a sample type, its sample at the start of the buffer.
inline s_kel_canale canale(kel_funpos fid, unsigned tipo_campione) {
    s_kel_canale canale{};
    canale.fid = fid;
    canale.tipo_campione = tipo_campione;
    canale.dim_buffer = kelFunGetSamplSize(tipo_campione);
    return canale;
}

}  // namespace kel::strumento

#endif
