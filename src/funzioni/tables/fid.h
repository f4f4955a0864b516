// Identifiers composed from their fields, for the tables.
#ifndef KEL_TABLES_FID_H
#define KEL_TABLES_FID_H

#include <iterator>

#include "kelfunzioni.h"

namespace kel {

// The enumeration types let the compiler refuse a quantity, an object or a position in another one's place.
constexpr kel_funpos fid(GRANDEZZA_FISICA_FUNZKEL grandezza, OGGETTO_MISURATO_FUNZKEL oggetto = FID_OBJ_UNDEFINED,
                         POSIZIONE_FUNZKEL posizione = FID_POS_UNDEFINED) {
    return kelFidComponi(grandezza, oggetto, posizione);
}

// The bits of every field, in their place.
inline constexpr kel_funpos BIT_GRANDEZZA = kel_funpos{FID_MASK_PHI} << FID_SHIFT_PHI;
inline constexpr kel_funpos BIT_OGGETTO = kel_funpos{FID_MASK_OBJ} << FID_SHIFT_OBJ;
inline constexpr kel_funpos BIT_POSIZIONE = kel_funpos{FID_MASK_POS} << FID_SHIFT_POS;
inline constexpr kel_funpos BIT_INOUT = kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT;
inline constexpr kel_funpos BIT_NUMERATO = kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED;
inline constexpr kel_funpos BIT_LEFTRIGHT = kel_funpos{FID_MASK_LEFTRIGHT} << FID_SHIFT_LEFTRIGHT;
inline constexpr kel_funpos BIT_FRONTREAR = kel_funpos{FID_MASK_FRONTREAR} << FID_SHIFT_FRONTREAR;
inline constexpr kel_funpos BIT_UPDOWN = kel_funpos{FID_MASK_UPDOWN} << FID_SHIFT_UPDOWN;
inline constexpr kel_funpos BIT_IDENTIFICATORE =
    BIT_GRANDEZZA | BIT_OGGETTO | BIT_POSIZIONE | BIT_INOUT | BIT_NUMERATO | BIT_LEFTRIGHT | BIT_FRONTREAR | BIT_UPDOWN;
static_assert(BIT_IDENTIFICATORE == 0x1FFFFFFF, "fields from bit 0 to bit 28, without a gap");

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

// How many values of a field have a meaning: all limits are taken from the tables of their texts.
inline constexpr unsigned GRANDEZZE_NOTE = std::size(grandezza_fisica_FunzKel);
inline constexpr unsigned OGGETTI_NOTI = std::size(oggetto_misurato_FunzKel);
inline constexpr unsigned POSIZIONI_NOTE = std::size(posizione_FunzKel);

// The end marker has a quantity that no function has. Its object and position mean nothing by themselves: a new object or
// position may take their values, and the marker stays.
static_assert(GRANDEZZE_NOTE <= FID_PHI_FINE_TABELLA, "the format ends here: quantity 32 is the end marker");

// The key of an end row.
inline constexpr kel_funpos FINE_TABELLA =
    kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, FID_POS_FINE_TABELLA);
static_assert(FINE_TABELLA == 0x000B9D20, "programs recognise the end row by this value");

// The quantity table's end row has no position.
inline constexpr kel_funpos FINE_GRANDEZZE = kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, 0);
static_assert(FINE_GRANDEZZE == 0x1D20, "programs recognise the end row by this value");

// Some searches end at the first row with the quantity of the end marker, whatever its object and its position are.
constexpr bool grandezza_di_fine(kel_funpos fid) {
    return kelFidGrandezza(fid) == FID_PHI_FINE_TABELLA;
}

// An identifier whose quantity, object and position have descriptors, and whose unused bits are clear.
constexpr bool campi_noti(kel_funpos fid) {
    return kelFidGrandezza(fid) < GRANDEZZE_NOTE && kelFidOggetto(fid) < OGGETTI_NOTI &&
           kelFidPosizione(fid) < POSIZIONI_NOTE && (fid & ~BIT_IDENTIFICATORE) == 0;
}

}  // namespace kel

#endif
