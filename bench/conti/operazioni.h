// Every operation on fixed inputs. Their instructions, stack and code are counted.
#ifndef KEL_BENCH_CONTI_OPERAZIONI_H
#define KEL_BENCH_CONTI_OPERAZIONI_H

#include <span>

#include "kelfunzioni.h"

namespace conti {

struct Operazione {
    const char* nome;   ///< the function's name as a debugger shows it, then, after a blank, which inputs
    unsigned chiamate;  ///< calls that one `esegui` makes
    void (*esegui)();   ///< makes the calls
    const s_kel_converter* conv = nullptr;  ///< converter whose decoders the calls end up in, if any
};

std::span<const Operazione> operazioni_flat();
std::span<const Operazione> operazioni_oggetti();

/// Makes the compiler take a value for used, so that it does not remove the call that made it.
template <typename T>
void usa(const T& valore) {
    asm volatile("" : : "r"(&valore) : "memory");
}

}  // namespace conti

#endif
