// The packets whose subfields the library knows.
#ifndef KELFUN_DOMAIN_PACCHETTI_H
#define KELFUN_DOMAIN_PACCHETTI_H

#include <vector>

#include "kelfunzioni.h"

namespace kel::strumento {

struct Pacchetto {
    kel_funpos fid;
    const s_sottocampo* sottocampi;  ///< ends with the end marker
};

/// Every packet with a subfield table, by details and specialisation.
std::vector<Pacchetto> tutti_i_pacchetti();

}  // namespace kel::strumento

#endif
