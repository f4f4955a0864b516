// Names and units of columns behind the C face.
#include <algorithm>

#include "common/nomi.h"
#include "kelregistrazioni.h"

size_t kelRegChiave(const char* testo, char* chiave, size_t capienza) noexcept {
    if (capienza == 0)
        return kel_registrazioni::chiave(testo, nullptr, 0);
    const size_t quanti = kel_registrazioni::chiave(testo, chiave, capienza - 1);
    chiave[std::min(quanti, capienza - 1)] = '\0';
    return quanti;
}

const char* kelRegMisura(const char* udm) noexcept {
    return kel_registrazioni::misura(udm);
}
