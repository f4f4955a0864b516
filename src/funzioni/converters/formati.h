// The decoders of each sample format.
#ifndef KEL_CONVERTERS_FORMATI_H
#define KEL_CONVERTERS_FORMATI_H

#include "kelfunzioni.h"

namespace kel {

struct Formato {
    uint32_t tipo_campione;   // equals the row's index
    f_valore_conv lineare;    // value; null = none
    f_valore_conv reciproca;  // value in a unit with the reciprocal flag; null = as without
    f_valore_conv campo_bit;  // value of a bit field; null = as without
    f_testo_conv testo;       // text
    f_stato_conv stato;       // text of a status; null = none
    bool usa_dati;            // the value is converted into the unit, and needs the unit's data
};

// The format of a sample type code; null for a code that is none.
const Formato* formato_campione(uint32_t tipo_campione) noexcept;

}  // namespace kel

#endif
