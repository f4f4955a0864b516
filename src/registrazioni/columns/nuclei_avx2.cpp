// The loops for processors with AVX2 and conversions of 16-bit floats: compiled with these instructions.
#define KEL_NUCLEI NUCLEI_AVX2
#define KEL_NUCLEI_NOME "AVX2"
#include "columns/nuclei_corpo.h"
