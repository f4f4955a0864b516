// What a table of the second library says of itself and all its rows, into a digest.
#ifndef KEL_DIGEST_TABELLE_H
#define KEL_DIGEST_TABELLE_H

#include <vector>

#include "caso.h"
#include "impronta.h"
#include "kelregistrazioni.h"

namespace digest {

/// Parts of a degree, or of another unit, that positions and the numbers beside them are taken to.
inline constexpr double PARTI = 1e6;

/// A double, to so many parts of 1. Doubles are computed with sines of the machine's own C library: the last of their digits are
/// its choice.
void numero(Impronta& impronta, double valore, double parti);

/// A table whose rows are at hand: the digest is that of the loops for every processor, and how many other ways to the same rows
/// give others.
void tabella(Impronta& impronta, s_kel_registrazione* reg);

/// How many rows there are when the bytes are pushed in pieces, and what is left over.
void a_pezzi(Caso& caso, Impronta& impronta, s_kel_registrazione* reg, const std::vector<unsigned char>& byte);

}  // namespace digest

#endif
