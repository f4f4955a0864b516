// What the library of recordings calls the choices of the command line in its messages.
#ifndef KELFUN_DOMAIN_REGISTRAZIONI_H
#define KELFUN_DOMAIN_REGISTRAZIONI_H

#include "kelregistrazioni.h"

namespace kel::strumento {

inline constexpr s_kel_parole PAROLE{"--time", "--packed", "--line", "--min-lap", "--split"};

}  // namespace kel::strumento

#endif
