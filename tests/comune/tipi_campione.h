// How many sample types there are: the tests of all formats try the codes below it.
#ifndef KEL_TEST_TIPI_CAMPIONE_H
#define KEL_TEST_TIPI_CAMPIONE_H

#include "kelfunzioni.h"

namespace kel_test {

// The test SampleSize.OfEveryCodeIsThatOfTheTable holds it against tests/model/tables/campioni.tsv.
inline constexpr unsigned TIPI_CAMPIONE = KEL_TIPO_DIFFERENZA_TEMPO + 1;

}  // namespace kel_test

#endif
