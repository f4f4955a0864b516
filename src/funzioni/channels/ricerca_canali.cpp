// Which channel carries a function.
#include <cstddef>

#include "kelfunzioni.h"
#include "packets/ricerca_sottocampi.h"
#include "tables/fid.h"

namespace {

bool pacchetto(kel_funpos fid) noexcept {
    return kelFidGrandezza(fid) == FID_PHI_PACKAGE;
}

bool ha_sottocampo(kel_funpos canale, kel_funpos richiesta) noexcept {
    return kel::cerca_sottocampo(kelFidOggetto(canale), kelFidPosizione(canale), richiesta) != nullptr;
}

// Quantity, object and position.
constexpr kel_funpos TRE_CAMPI[] = {kel::BIT_GRANDEZZA, kel::BIT_OGGETTO, kel::BIT_POSIZIONE};

// Bit 22 is a field of one bit like the others: a request without it accepts channels with it. Bits 23 to 28 are
// compared as three sides also where they are an instance number: clients depend on the channels that this finds.
constexpr kel_funpos TUTTI_I_CAMPI[] = {kel::BIT_GRANDEZZA, kel::BIT_OGGETTO,   kel::BIT_POSIZIONE, kel::BIT_NUMERATO,
                                        kel::BIT_INOUT,     kel::BIT_LEFTRIGHT, kel::BIT_FRONTREAR, kel::BIT_UPDOWN};

// A request. A field of 0 in it accepts every value, so that only the bits of the other fields are compared.
class Richiesta {
public:
    template <std::size_t N>
    Richiesta(kel_funpos fid, const kel_funpos (&campi)[N]) noexcept : fid_(fid) {
        for (const kel_funpos campo : campi)
            if ((fid & campo) != 0)
                bit_ |= campo;
    }

    kel_funpos fid() const noexcept { return fid_; }
    bool accetta(kel_funpos canale) const noexcept { return ((canale ^ fid_) & bit_) == 0; }

private:
    kel_funpos fid_;
    kel_funpos bit_ = 0;
};

// A packet channel matches by its subfields, and by its own identifier like any other channel.
s_kel_canale* primo_canale(const s_set_canali* set, const Richiesta& richiesta) noexcept {
    if (set->canali == nullptr)
        return nullptr;
    for (unsigned i = 0; i < set->usati; ++i) {
        const kel_funpos fid = set->canali[i].fid;
        if (richiesta.accetta(fid) || (pacchetto(fid) && ha_sottocampo(fid, richiesta.fid())))
            return &set->canali[i];
    }
    return nullptr;
}

}  // namespace

s_kel_canale* kelFunGetMatchCh(const s_set_canali* set, kel_funpos fid) noexcept {
    return primo_canale(set, Richiesta(fid, TRE_CAMPI));
}

s_kel_canale* kelFunGetMatchChFull(const s_set_canali* set, kel_funpos fid) noexcept {
    return primo_canale(set, Richiesta(fid, TUTTI_I_CAMPI));
}

int kelFunGetMatchChList(const s_set_canali* set, kel_funpos fid, s_kel_canale** trovati, unsigned* numero) noexcept {
    if (set->canali == nullptr || trovati == nullptr)
        return 0;
    const Richiesta richiesta(fid, TRE_CAMPI);
    unsigned quanti = 0;
    for (unsigned i = 0; i < set->usati; ++i) {
        const kel_funpos canale = set->canali[i].fid;
        if (!(pacchetto(canale) ? ha_sottocampo(canale, fid) : richiesta.accetta(canale)))
            continue;
        trovati[quanti++] = &set->canali[i];
        // The capacity is compared only after a channel was stored: a capacity of 0 never ends the search.
        if (quanti == *numero)
            return 1;
    }
    if (quanti == 0)
        return 0;
    *numero = quanti;
    return 1;
}
