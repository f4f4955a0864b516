// Which converters need a unit: all others are set up without one, whatever their record holds.
#ifndef KEL_TEST_UNITA_NECESSARIA_H
#define KEL_TEST_UNITA_NECESSARIA_H

#include "kelfunzioni.h"

namespace kel_test {

// Whether the set-up or the reads of a function of a channel look through the unit's data.
inline bool unita_necessaria(kel_funpos canale, unsigned tipo, kel_funpos fid) {
    if (kelFidGrandezza(canale) == FID_PHI_PACKAGE && canale != fid) {
        const s_sottocampo* riga =
            getDettagliSottocampo(search_sottocampi_struct(kelFidOggetto(canale), kelFidPosizione(canale)), fid);
        if (riga == nullptr)
            return false;  // no such subfield: nothing is decoded
        if (riga->tipo_campione == KEL_TIPO_CALCOLATO)
            return true;
        tipo = riga->tipo_campione;
    }
    switch (tipo) {
        case KEL_TIPO_INT32:
        case KEL_TIPO_INT16:
        case KEL_TIPO_UINT8_INTERO:
        case KEL_TIPO_UINT32:
        case KEL_TIPO_UINT16:
        case KEL_TIPO_UINT8:
        case KEL_TIPO_FLOAT:
        case KEL_TIPO_TEMPO_GIRO:
        case KEL_TIPO_LISTA_BIT:
        case KEL_TIPO_MEZZO_FLOAT:
        case KEL_TIPO_COORDINATA:
        case KEL_TIPO_DIFFERENZA_TEMPO:
            return true;
        default:
            return false;
    }
}

}  // namespace kel_test

#endif
