// Every operation of the library on arguments by chance, its results into a digest. One case is one call of the
// operation of its name, and what had to be called before it.
#ifndef KEL_DIGEST_FAMIGLIE_H
#define KEL_DIGEST_FAMIGLIE_H

#include <span>

#include "caso.h"
#include "impronta.h"

namespace digest {

struct Famiglia {
    const char* nome;  ///< the operation, as it is exported; of two rows with one operation, followed by what differs
    unsigned ogni;     ///< one case in so many rounds: what fills containers takes its time
    void (*prova)(Caso& caso, Impronta& impronta);
};

/// The flat functions. These cases allocate nothing and call nothing but the library and themselves.
std::span<const Famiglia> famiglie_flat();
/// The operations of the catalogue, the converter object and the lap time texts.
std::span<const Famiglia> famiglie_oggetti();
/// Columns, of the second library.
std::span<const Famiglia> famiglie_colonne();
/// Recordings, u-blox streams, laps and Arrow, of the second library.
std::span<const Famiglia> famiglie_registrazioni();

}  // namespace digest

#endif
