// Which channel carries a function.
#include "converters/sottocampi.h"
#include "kelfunzioni.h"

namespace {

bool pacchetto(kel_funpos fid) noexcept {
    return kelFidGrandezza(fid) == FID_PHI_PACKAGE;
}

bool ha_sottocampo(kel_funpos canale, kel_funpos richiesta) noexcept {
    return kel::cerca_sottocampo(kelFidOggetto(canale), kelFidPosizione(canale), richiesta) != nullptr;
}

// A field of a request: 0 matches anything.
constexpr bool campo_uguale(kel_funpos richiesta, kel_funpos canale, kel_funpos maschera) noexcept {
    return (richiesta & maschera) == 0 || (richiesta & maschera) == (canale & maschera);
}

constexpr kel_funpos bit_grandezza = kel_funpos{FID_MASK_PHI} << FID_SHIFT_PHI;
constexpr kel_funpos bit_oggetto = kel_funpos{FID_MASK_OBJ} << FID_SHIFT_OBJ;
constexpr kel_funpos bit_posizione = kel_funpos{FID_MASK_POS} << FID_SHIFT_POS;
constexpr kel_funpos bit_inout = kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT;
constexpr kel_funpos bit_numerato = kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED;
constexpr kel_funpos bit_leftright = kel_funpos{FID_MASK_LEFTRIGHT} << FID_SHIFT_LEFTRIGHT;
constexpr kel_funpos bit_frontrear = kel_funpos{FID_MASK_FRONTREAR} << FID_SHIFT_FRONTREAR;
constexpr kel_funpos bit_updown = kel_funpos{FID_MASK_UPDOWN} << FID_SHIFT_UPDOWN;

bool tre_campi(kel_funpos richiesta, kel_funpos canale) noexcept {
    return campo_uguale(richiesta, canale, bit_grandezza) && campo_uguale(richiesta, canale, bit_oggetto) &&
           campo_uguale(richiesta, canale, bit_posizione);
}

// Bit 22 is matched as a field of one bit: a request without it accepts channels with it. The pieces of bits 23 to 28
// are compared one by one even where they are one instance number: clients depend on what that finds.
bool tutti_i_campi(kel_funpos richiesta, kel_funpos canale) noexcept {
    return tre_campi(richiesta, canale) && campo_uguale(richiesta, canale, bit_numerato) &&
           campo_uguale(richiesta, canale, bit_inout) && campo_uguale(richiesta, canale, bit_leftright) &&
           campo_uguale(richiesta, canale, bit_frontrear) && campo_uguale(richiesta, canale, bit_updown);
}

// A packet channel matches by its subfields, and by its own identifier like any other channel.
template <bool Confronto(kel_funpos, kel_funpos) noexcept>
s_kel_canale* primo_canale(const s_set_canali* set, kel_funpos richiesta) noexcept {
    if (set->canali == nullptr)
        return nullptr;
    for (unsigned i = 0; i < set->usati; ++i) {
        const kel_funpos fid = set->canali[i].fid;
        if ((pacchetto(fid) && ha_sottocampo(fid, richiesta)) || Confronto(richiesta, fid))
            return &set->canali[i];
    }
    return nullptr;
}

}  // namespace

s_kel_canale* kelFunGetMatchCh(const s_set_canali* set, kel_funpos fid) noexcept {
    return primo_canale<tre_campi>(set, fid);
}

s_kel_canale* kelFunGetMatchChFull(const s_set_canali* set, kel_funpos fid) noexcept {
    return primo_canale<tutti_i_campi>(set, fid);
}

int kelFunGetMatchChList(const s_set_canali* set, kel_funpos fid, s_kel_canale** trovati, unsigned* numero) noexcept {
    if (set->canali == nullptr || trovati == nullptr)
        return 0;
    unsigned quanti = 0;
    for (unsigned i = 0; i < set->usati; ++i) {
        const kel_funpos canale = set->canali[i].fid;
        if (!(pacchetto(canale) ? ha_sottocampo(canale, fid) : tre_campi(fid, canale)))
            continue;
        trovati[quanti++] = &set->canali[i];
        // Only equality right after a store ends the walk: a capacity of 0 never does.
        if (quanti == *numero)
            return 1;
    }
    if (quanti == 0)
        return 0;
    *numero = quanti;
    return 1;
}
