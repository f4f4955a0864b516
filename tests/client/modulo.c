/* A module of another language, with the static library in it: it shows one function, and nothing of the library. */
#include <kelfunzioni.h>

const char* nome_unita(unsigned fid);

const char* nome_unita(unsigned fid) {
    return kelFunGetUnitaBase(fid);
}
