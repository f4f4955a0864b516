// The function of a legacy identifier, which is a text.
#include <string_view>

#include "kelfunzioni.h"
#include "tables/funz_kel.h"

// The index leaves the end row out, so the empty text is not found.
kel_funpos kelFunGetFidDaID(const char* id) noexcept {
    if (id == nullptr)
        return 0;
    const std::string_view testo(id);
    const std::size_t numero = kel::INDICE_KEL_ID.riga(testo);
    const t_SFunzioneVecchia& riga = funz_Kel[numero];
    return kel::INDICE_KEL_ID.uguale(numero, riga.id, testo) ? riga.fid : 0;
}
