// Which decoder a converter was set up with.
#ifndef KEL_COLUMNS_RICONOSCIMENTO_H
#define KEL_COLUMNS_RICONOSCIMENTO_H

#include <cstddef>

#include "columns/nuclei.h"
#include "columns/testi.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

// The first library tells nobody the names of its decoders; but a converter set up for a known channel holds the pointer.
// The pointers are gathered as they are asked for, and last as long as one call.
class Riconoscitore {
public:
    // `massimo`: how many decoders may be asked for; the frequent ones come first.
    Lettura lettura(f_valore_conv valore, std::size_t massimo) noexcept;
    Scrittura scrittura(f_testo_conv testo) noexcept;

private:
    f_valore_conv valori_[NUM_LETTURE];
    f_testo_conv testi_[NUM_SCRITTURE];
    std::size_t valori_noti_ = 0;
    std::size_t testi_noti_ = 0;
};

}  // namespace kel_colonne

#endif
