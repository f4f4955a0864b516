// What every function of the C face does around its work: no exception leaves it, and what went wrong is told.
#ifndef KEL_REGISTRAZIONI_CHIAMATA_H
#define KEL_REGISTRAZIONI_CHIAMATA_H

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>

#include "kelregistrazioni.h"
#include "recordings/tabella.h"

/// The table may outlive the handle: an Arrow stream holds it too.
struct s_kel_registrazione {
    std::shared_ptr<kel_registrazioni::Tabella> tabella;
};

namespace kel_registrazioni {

inline void di(s_kel_errore* errore, std::string_view testo) {
    if (errore == nullptr)
        return;
    const std::size_t quanti = std::min(testo.size(), std::size(errore->testo) - 1);
    *std::copy_n(testo.begin(), quanti, errore->testo) = '\0';
}

/// Runs some work; gives `fallito` where it throws.
template <typename Lavoro, typename Risultato>
Risultato chiama(s_kel_errore* errore, Risultato fallito, Lavoro&& lavoro) noexcept {
    try {
        return lavoro();
    } catch (const std::bad_alloc&) {
        di(errore, "out of memory");
    } catch (const std::exception& e) {
        di(errore, e.what());
    }
    return fallito;
}

/// The rows from `da` on, and all columns asked for, exist.
inline bool leggibili(const Tabella& tabella, std::uint64_t da, std::uint64_t quante,
                      std::span<const s_kel_lettura> letture) {
    return tabella.a_portata(da, quante) &&
           std::ranges::all_of(letture, [&](const s_kel_lettura& una) { return una.colonna < tabella.voci().size(); });
}

}  // namespace kel_registrazioni

#endif
