// Identifiers composed from their fields, for the tables.
#ifndef KEL_TABLES_FID_H
#define KEL_TABLES_FID_H

#include "kelfunzioni.h"

namespace kel {

// The enumerations keep quantity, object and position from changing places.
constexpr kel_funpos fid(GRANDEZZA_FISICA_FUNZKEL grandezza, OGGETTO_MISURATO_FUNZKEL oggetto = FID_OBJ_UNDEFINED,
                         POSIZIONE_FUNZKEL posizione = FID_POS_UNDEFINED) {
    return kelFidComponi(grandezza, oggetto, posizione);
}

// Side bits, to be added to an identifier with `|`.
constexpr kel_funpos destra_sinistra(unsigned leftright) {
    return kelFidLati(leftright, 0, 0);
}
constexpr kel_funpos davanti_dietro(unsigned frontrear) {
    return kelFidLati(0, frontrear, 0);
}
constexpr kel_funpos alto_basso(unsigned updown) {
    return kelFidLati(0, 0, updown);
}

// The key of an end row: quantity, object and position each one past their last value.
inline constexpr kel_funpos fine_tabella =
    kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, FID_POS_FINE_TABELLA);
static_assert(fine_tabella == 0x000B9D20, "clients recognise the end row by this value");

// The quantity table's end row has no position.
inline constexpr kel_funpos fine_grandezze = kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, 0);
static_assert(fine_grandezze == 0x1D20, "clients recognise the end row by this value");

// An identifier whose quantity, object and position are known, and whose unused bits are clear.
constexpr bool campi_noti(kel_funpos fid) {
    return kelFidGrandezza(fid) <= FID_PHI_GEAR && kelFidOggetto(fid) <= FID_OBJ_PREDICTIVE_VS_REF_DIFF &&
           kelFidPosizione(fid) <= FID_POS_DIFFERENTIAL && fid >> 29 == 0;
}

}  // namespace kel

#endif
