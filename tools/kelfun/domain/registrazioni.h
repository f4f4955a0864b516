// What the library of recordings knows is spoken of here by its own names.
#ifndef KELFUN_DOMAIN_REGISTRAZIONI_H
#define KELFUN_DOMAIN_REGISTRAZIONI_H

#include "registrazioni/common/parole.h"

namespace kel::strumento {

using namespace kel_registrazioni;

/// What its messages call the choices of the command line.
inline constexpr Parole PAROLE{"--time", "--packed", "--line", "--min-lap", "--split"};

}  // namespace kel::strumento

#endif
