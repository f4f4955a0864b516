// Functions of legacy textual identifiers.
#include <cstring>

#include "kelfunzioni.h"
#include "tables/funz_kel.h"

// The empty text, which is that of the end row, is not found.
kel_funpos kelFunGetFidDaID(const char* id) noexcept {
    if (id == nullptr)
        return 0;
    const t_SFunzioneVecchia& riga = funz_Kel[kel::indice_kel_id.riga(kel::chiave_testo(id))];
    return std::strcmp(riga.id, id) == 0 ? riga.fid : 0;
}
