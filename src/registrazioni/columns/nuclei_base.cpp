// The loops for every processor of the target.
#define KEL_NUCLEI NUCLEI_BASE
#define KEL_NUCLEI_NOME "base"
#include "columns/nuclei_corpo.h"
