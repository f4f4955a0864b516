// Unit texts and unit codes.
#include <cstring>
#include <iterator>

#include "kelfunzioni.h"

const char* kelFunGetUdmTxt(unsigned codice) noexcept {
    return codice < std::size(udm_codici) ? udm_codici[codice].testo : nullptr;
}

int kelFunGetUdmCode(const char* testo) noexcept {
    for (const s_codice_udm& riga : udm_codici)
        if (std::strcmp(riga.testo, testo) == 0)
            return riga.codice;
    return -1;
}
