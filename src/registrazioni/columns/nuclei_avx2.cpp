// The loops for processors with AVX2: compiled with its instructions.
#define KEL_NUCLEI nuclei_avx2
#define KEL_NUCLEI_NOME "AVX2"
#include "columns/nuclei_corpo.h"
