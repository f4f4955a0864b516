// Look-ups in general-purpose hash maps: what a program would use for a table of its own.
#ifndef KEL_BENCH_MAPPE_H
#define KEL_BENCH_MAPPE_H

#include <string>
#include <unordered_map>

#ifdef KEL_PARI_ABSL
#include <absl/container/flat_hash_map.h>
#endif

#include "comune/prova.h"

namespace prova {

/// Registers a look-up in a std::unordered_map and in an absl::flat_hash_map.
///
/// @param righe    pairs of a key and a value; of equal keys the first counts.
/// @param opera    function of a map and an input that gives the result. The map has `find` and `end`.
template <typename Chiave, typename Righe, typename Ingresso, typename Opera>
void pari_mappe(const std::string& riga, const Righe& righe, const Ingressi<Ingresso>& ingressi, Opera opera) {
    using Valore = typename Righe::value_type::second_type;
    const auto con = [&](const char* nome, auto mappa) {
        for (const auto& [chiave, valore] : righe)
            mappa.emplace(chiave, valore);
        const auto condivisa = std::make_shared<const decltype(mappa)>(std::move(mappa));
        serie(riga, Ruolo::pari, nome, ingressi,
              [condivisa, opera](const Ingresso& ingresso) { return opera(*condivisa, ingresso); });
    };
    con("unordered_map", std::unordered_map<Chiave, Valore>());
#ifdef KEL_PARI_ABSL
    con("flat_hash_map", absl::flat_hash_map<Chiave, Valore>());
#endif
}

/// The value of a key, or `assente`.
template <typename Mappa, typename Chiave>
typename Mappa::mapped_type in_mappa(const Mappa& mappa, const Chiave& chiave,
                                     typename Mappa::mapped_type assente = {}) {
    const auto trovata = mappa.find(chiave);
    return trovata != mappa.end() ? trovata->second : assente;
}

}  // namespace prova

#endif
