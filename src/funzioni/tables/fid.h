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
inline constexpr kel_funpos bit_grandezza = kel_funpos{FID_MASK_PHI} << FID_SHIFT_PHI;
inline constexpr kel_funpos bit_oggetto = kel_funpos{FID_MASK_OBJ} << FID_SHIFT_OBJ;
inline constexpr kel_funpos bit_posizione = kel_funpos{FID_MASK_POS} << FID_SHIFT_POS;
inline constexpr kel_funpos bit_inout = kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT;
inline constexpr kel_funpos bit_numerato = kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED;
inline constexpr kel_funpos bit_leftright = kel_funpos{FID_MASK_LEFTRIGHT} << FID_SHIFT_LEFTRIGHT;
inline constexpr kel_funpos bit_frontrear = kel_funpos{FID_MASK_FRONTREAR} << FID_SHIFT_FRONTREAR;
inline constexpr kel_funpos bit_updown = kel_funpos{FID_MASK_UPDOWN} << FID_SHIFT_UPDOWN;
inline constexpr kel_funpos bit_identificatore =
    bit_grandezza | bit_oggetto | bit_posizione | bit_inout | bit_numerato | bit_leftright | bit_frontrear | bit_updown;
static_assert(bit_identificatore == 0x1FFFFFFF, "fields from bit 0 to bit 28, without a gap");

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
inline constexpr unsigned grandezze_note = std::size(grandezza_fisica_FunzKel);
inline constexpr unsigned oggetti_noti = std::size(oggetto_misurato_FunzKel);
inline constexpr unsigned posizioni_note = std::size(posizione_FunzKel);

// The end marker has a quantity that no function has. Its object and position mean nothing by themselves: a new object or
// position may take their values, and the marker stays.
static_assert(grandezze_note <= FID_PHI_FINE_TABELLA, "the format ends here: quantity 32 is the end marker");

// The key of an end row.
inline constexpr kel_funpos fine_tabella =
    kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, FID_POS_FINE_TABELLA);
static_assert(fine_tabella == 0x000B9D20, "programs recognise the end row by this value");

// The quantity table's end row has no position.
inline constexpr kel_funpos fine_grandezze = kelFidComponi(FID_PHI_FINE_TABELLA, FID_OBJ_FINE_TABELLA, 0);
static_assert(fine_grandezze == 0x1D20, "programs recognise the end row by this value");

// Some searches end at the first row with the quantity of the end marker, whatever its object and its position are.
constexpr bool grandezza_di_fine(kel_funpos fid) {
    return kelFidGrandezza(fid) == FID_PHI_FINE_TABELLA;
}

// An identifier whose quantity, object and position have descriptors, and whose unused bits are clear.
constexpr bool campi_noti(kel_funpos fid) {
    return kelFidGrandezza(fid) < grandezze_note && kelFidOggetto(fid) < oggetti_noti &&
           kelFidPosizione(fid) < posizioni_note && (fid & ~bit_identificatore) == 0;
}

}  // namespace kel

#endif
