// What messages call the choices of whoever reads: the members of the C face, or the options of a program on top of it.
#ifndef KEL_REGISTRAZIONI_PAROLE_H
#define KEL_REGISTRAZIONI_PAROLE_H

#include "kelregistrazioni.h"

namespace kel_registrazioni {

using Parole = s_kel_parole;

/// The face's own words. They stand once in read-only data; a copy on the stack is made from writable data by gcc for ARM.
inline constexpr Parole PAROLE_DELLA_FACCIA{"orario", "compatta", "linea", "minimo", "intermedi"};

/// Those that a caller gives, and the face's own where he gives none.
inline Parole parole_di(const s_kel_parole* date) {
    const auto oppure = [date](const char* s_kel_parole::*quale) {
        return date != nullptr && date->*quale != nullptr ? date->*quale : PAROLE_DELLA_FACCIA.*quale;
    };
    return {oppure(&Parole::orario), oppure(&Parole::compatta), oppure(&Parole::linea), oppure(&Parole::minimo),
            oppure(&Parole::intermedio)};
}

}  // namespace kel_registrazioni

#endif
