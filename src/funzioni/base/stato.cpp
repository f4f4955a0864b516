#include "base/stato.h"

#include <cstring>

namespace kel {

void testo_stato(uint32_t stato, char* testo) noexcept {
    if ((stato & KEL_STATO_FUORI_SCALA) != 0)
        std::memcpy(testo, "---", 4);
    else if ((stato & KEL_STATO_MANCANTE) != 0)
        std::memcpy(testo, "   ", 4);
    else if ((stato & KEL_STATO_NON_VALIDO) != 0)
        std::memcpy(testo, "---", 4);
    else if ((stato & KEL_STATO_ERRORE) != 0)
        std::memcpy(testo, "Err", 4);
}

}  // namespace kel
