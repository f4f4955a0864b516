// Which of many channels carries a function.
#include <cstdint>
#include <vector>

#include "comune/funzioni.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr unsigned QUANTI_CANALI = 10000;
constexpr unsigned ANTICIPO = 16;               // records
constexpr std::uint32_t OGGETTI_RICHIESTI = 8;  // the last objects: requested, but carried by no channel
constexpr kel_funpos TRE_CAMPI = 0x000FFFFF;
constexpr kel_funpos TUTTI_I_CAMPI = 0x1FFFFFFF;

std::vector<s_kel_canale>& canali() {
    static std::vector<s_kel_canale> tutti = [] {
        std::vector<s_kel_canale> fatti(QUANTI_CANALI);
        Casuale casuale(11);
        for (s_kel_canale& canale : fatti) {
            canale = {};
            // Every hundredth one is a packet.
            const bool pacchetto = sotto(casuale, 100) == 0;
            canale.fid = pacchetto ? kelFidComponi(FID_PHI_PACKAGE, 1 + 2 * sotto(casuale, 2), sotto(casuale, 2))
                                   : fid_qualsiasi(casuale, 1 + sotto(casuale, 25));
            const std::uint32_t oggetto = kelFidOggetto(canale.fid);
            if (oggetto >= std::size(oggetto_misurato_FunzKel) - OGGETTI_RICHIESTI)
                canale.fid -= OGGETTI_RICHIESTI << FID_SHIFT_OBJ;
        }
        return fatti;
    }();
    return tutti;
}

// A function that no channel carries: the whole set is looked at.
kel_funpos mai_portata(Casuale& casuale) {
    const std::uint32_t oggetto =
        static_cast<std::uint32_t>(std::size(oggetto_misurato_FunzKel)) - 1 - sotto(casuale, OGGETTI_RICHIESTI);
    return kelFidComponi(1 + sotto(casuale, 25), oggetto, 1 + sotto(casuale, 20)) |
           kelFidLati(sotto(casuale, 4), sotto(casuale, 4), 0);
}

// One pass over the identifiers, without an early end and without a branch in the loop.
template <kel_funpos Maschera>
unsigned passata(kel_funpos richiesta) {
    unsigned quanti = 0;
    const s_kel_canale* const primo = canali().data();
    for (unsigned i = 0; i < QUANTI_CANALI; ++i)
        quanti += ((primo[i].fid ^ richiesta) & Maschera) == 0 ? 1 : 0;
    return quanti;
}

// The same with the records prefetched: the limit is the speed of the memory.
template <kel_funpos Maschera>
unsigned passata_anticipata(kel_funpos richiesta) {
    unsigned quanti = 0;
    const s_kel_canale* const primo = canali().data();
    for (unsigned i = 0; i < QUANTI_CANALI; ++i) {
        __builtin_prefetch(primo + i + ANTICIPO);
        quanti += ((primo[i].fid ^ richiesta) & Maschera) == 0 ? 1 : 0;
    }
    return quanti;
}

s_set_canali set_intero() {
    s_set_canali set;
    kelFunInit(&set, canali().data(), QUANTI_CANALI, QUANTI_CANALI);
    return set;
}

template <kel_funpos Maschera, typename Cerca>
void primo(const std::string& riga, const char* nome, Cerca cerca) {
    const auto richieste = genera(mai_portata);
    serie(riga, Ruolo::nostro, nome, richieste,
          [set = set_intero(), cerca](kel_funpos richiesta) { return cerca(&set, richiesta); });
    serie(riga, Ruolo::pari, "plain pass", richieste, passata<Maschera>);
    serie(riga, Ruolo::limite, "pass with prefetch", richieste, passata_anticipata<Maschera>);
}

void elenco() {
    const std::string riga = "match, list";
    // One quantity: some hundred channels.
    const auto richieste = genera([](Casuale& casuale) -> kel_funpos { return 1 + sotto(casuale, 25); });
    serie(riga, Ruolo::nostro, "kelFunGetMatchChList", richieste,
          [set = set_intero(), trovati = std::vector<s_kel_canale*>(QUANTI_CANALI)](kel_funpos richiesta) mutable {
              unsigned numero = QUANTI_CANALI;
              kelFunGetMatchChList(&set, richiesta, trovati.data(), &numero);
              return numero;
          });
    constexpr kel_funpos grandezza = FID_MASK_PHI;
    serie(riga, Ruolo::pari, "plain pass", richieste, passata<grandezza>);
    serie(riga, Ruolo::limite, "pass with prefetch", richieste, passata_anticipata<grandezza>);
}

}  // namespace

void righe_canali() {
    primo<TRE_CAMPI>("match", "kelFunGetMatchCh",
                     [](const s_set_canali* set, kel_funpos fid) { return kelFunGetMatchCh(set, fid); });
    primo<TUTTI_I_CAMPI>("match, all fields", "kelFunGetMatchChFull",
                         [](const s_set_canali* set, kel_funpos fid) { return kelFunGetMatchChFull(set, fid); });
    elenco();
}
