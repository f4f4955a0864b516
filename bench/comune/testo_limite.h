// A right-aligned numeric text in one register: the limit of the rows of numeric texts.
#ifndef KEL_BENCH_TESTO_LIMITE_H
#define KEL_BENCH_TESTO_LIMITE_H

#include "comune/convertitore.h"

namespace prova {

/// Text of a number of at most 8 characters, by the rules of the converters' numeric text.
/// Not inlined, because the function that it is compared with is a call as well.
void testo_limite(char* testo, float valore, const Forma& forma);

}  // namespace prova

#endif
