// The channel set: the caller's array of channel records.
//
// Which indices are accepted differs from function to function. Clients depend on each of these bounds.
#include <cstddef>
#include <cstdint>

#include "kelfunzioni.h"

namespace {

// The address of a name, computed from the layout of the records without reading any: clients get one also for the
// record right after those in use, and for a set without an array.
const char* testo_del_canale(const s_set_canali* set, unsigned indice, std::size_t campo) noexcept {
    if (indice > set->totale || indice > set->usati)
        return nullptr;
    const std::uintptr_t canali = reinterpret_cast<std::uintptr_t>(set->canali);
    return reinterpret_cast<const char*>(canali + std::uintptr_t{indice} * sizeof(s_kel_canale) + campo);
}

}  // namespace

void kelFunInit(s_set_canali* set, s_kel_canale* canali, unsigned totale, unsigned usati) noexcept {
    *set = {canali, totale, usati};
}

s_kel_canale* kelFunGetFreeCh(s_set_canali* set) noexcept {
    if (set->canali == nullptr || set->usati >= set->totale)
        return nullptr;
    s_kel_canale* canale = &set->canali[set->usati];
    *canale = {};
    canale->indice = static_cast<std::uint16_t>(set->usati);
    ++set->usati;
    return canale;
}

int kelFunFreeLastCh(s_set_canali* set) noexcept {
    if (set->canali == nullptr || set->usati == 0)
        return 0;
    --set->usati;
    return 1;
}

s_kel_canale* kelFunGetCanale(const s_set_canali* set, unsigned indice) noexcept {
    if (set->canali == nullptr || indice >= set->totale || indice >= set->usati)
        return nullptr;
    return &set->canali[indice];
}

unsigned kelFunGetNumChUsed(const s_set_canali* set) noexcept {
    return set->usati;
}

unsigned kelFunGetNumChTot(const s_set_canali* set) noexcept {
    return set->totale;
}

unsigned kelFunGetSizeBufferValori(const s_set_canali* set) noexcept {
    unsigned somma = 0;
    if (set->canali != nullptr)
        for (unsigned i = 0; i < set->usati; ++i)
            somma += set->canali[i].dim_buffer;
    return somma;
}

const char* kelFunGetNomeCanale(const s_set_canali* set, unsigned indice) noexcept {
    return testo_del_canale(set, indice, offsetof(s_kel_canale, nome));
}

const char* kelFunGetNomeCanaleShort(const s_set_canali* set, unsigned indice) noexcept {
    return testo_del_canale(set, indice, offsetof(s_kel_canale, breve));
}
