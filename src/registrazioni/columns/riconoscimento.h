// Which decoder a converter was set up with.
#ifndef KEL_COLUMNS_RICONOSCIMENTO_H
#define KEL_COLUMNS_RICONOSCIMENTO_H

#include <cstddef>

#include "columns/nuclei.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

// The first library tells nobody the names of its decoders; but a converter set up for a known channel holds the pointer.
// The pointers are gathered as they are asked for, and last as long as one call.
class Riconoscitore {
public:
    // `massimo`: how many decoders may be asked for; the frequent ones come first.
    Lettura lettura(f_valore_conv valore, std::size_t massimo) noexcept;

private:
    f_valore_conv valori_[num_letture];
    std::size_t noti_ = 0;
};

// The texts that are made here rather than through the converter's own function.
enum class Scrittura { numerica, propria };
Scrittura riconosci_testo(f_testo_conv testo) noexcept;

}  // namespace kel_colonne

#endif
