// From a unit code to its text, and back.
#include "tables/codici_udm.h"

const char* kelFunGetUdmTxt(unsigned codice) noexcept {
    return codice < std::size(udm_codici) ? udm_codici[codice].testo : nullptr;
}

int kelFunGetUdmCode(const char* testo) noexcept {
    const std::string_view cercato(testo);
    const std::size_t riga = kel::INDICE_CODICI_UDM.riga(cercato);
    return kel::INDICE_CODICI_UDM.uguale(riga, udm_codici[riga].testo, cercato) ? udm_codici[riga].codice : -1;
}
