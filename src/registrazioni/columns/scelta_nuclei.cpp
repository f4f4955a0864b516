// Which loops this processor can run.
#include "columns/nuclei.h"

#ifdef KEL_NUCLEI_AVX2
// The header calls the type as C does, which clang does not know in C++.
#define _Bool bool  // NOLINT(readability-identifier-naming): C's own name
#include <sys/platform/x86.h>
#undef _Bool
#endif

namespace kel_colonne {

// The C library has asked the processor and the system when the program was loaded: here its answer is only read.
InsiemiNuclei nuclei_possibili() noexcept {
    InsiemiNuclei possibili = {{&NUCLEI_BASE}, 1};
#ifdef KEL_NUCLEI_AVX2
    if (CPU_FEATURE_ACTIVE(AVX2) && CPU_FEATURE_ACTIVE(F16C))
        possibili.insiemi[possibili.numero++] = &NUCLEI_AVX2;
#endif
    return possibili;
}

const Nuclei& nuclei_migliori() noexcept {
    const InsiemiNuclei possibili = nuclei_possibili();
    return *possibili.insiemi[possibili.numero - 1];
}

}  // namespace kel_colonne
