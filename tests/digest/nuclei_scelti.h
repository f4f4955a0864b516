// Which loops the columns of recordings are read with: those of an instruction set, or the library's own choice.
//
// The linker leads the calls of kelColLeggi in this program's objects here (--wrap): recordings read their columns by it, and
// no program can ask the library for a set.
#ifndef KEL_DIGEST_NUCLEI_SCELTI_H
#define KEL_DIGEST_NUCLEI_SCELTI_H

#include "columns/nuclei.h"

namespace digest {

/// In this thread, from now on; null: the library's own choice.
void scegli_nuclei(const kel_colonne::Nuclei* nuclei);

}  // namespace digest

#endif
