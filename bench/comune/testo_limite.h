// A right-aligned numeric text in one register: the yardstick of the numeric texts.
#ifndef KEL_BENCH_TESTO_LIMITE_H
#define KEL_BENCH_TESTO_LIMITE_H

#include "comune/convertitore.h"

namespace prova {

/// Text of a number of at most 8 characters, by the rules of the converters' numeric text.
/// Not inlined: what it is compared with is a call as well.
void testo_limite(char* testo, float valore, const Forma& forma);

}  // namespace prova

#endif
