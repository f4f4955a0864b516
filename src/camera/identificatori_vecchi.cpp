// Functions of legacy textual identifiers.
#include <cstring>

#include "kelfunzioni.h"

// The end row is recognised before its text is compared, so the empty text is not found.
kel_funpos kelFunGetFidDaID(const char* id) noexcept {
    if (id == nullptr)
        return 0;
    for (const t_SFunzioneVecchia& riga : funz_Kel) {
        if (kelFidFineTabella(riga.fid) != 0)
            return 0;
        if (std::strcmp(riga.id, id) == 0)
            return riga.fid;
    }
    return 0;
}
