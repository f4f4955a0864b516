// What went wrong, inside the library: the C face catches it and hands out its text.
#ifndef KEL_REGISTRAZIONI_ERRORE_H
#define KEL_REGISTRAZIONI_ERRORE_H

#include <stdexcept>

namespace kel_registrazioni {

/// Bytes that cannot be used. The text is one line: what was wrong, and where.
struct Errore : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace kel_registrazioni

#endif
