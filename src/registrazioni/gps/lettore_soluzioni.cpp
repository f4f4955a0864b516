#include "gps/lettore_soluzioni.h"

#include <span>

#include "common/interi.h"

namespace kel_registrazioni {

bool LettoreSoluzioni::prendi(std::uint32_t settimana_ms, bool pvt) {
    if (epoca_ == settimana_ms && epoca_da_pvt_ != pvt) {
        ++conteggi_.stessa_epoca;
        return false;
    }
    epoca_ = settimana_ms;
    epoca_da_pvt_ = pvt;
    ++conteggi_.soluzioni;
    return true;
}

bool LettoreSoluzioni::prossima() {
    while (lettore_.prossimo(messaggio_)) {
        const auto& dati = messaggio_.dati;
        ++conteggi_.per_tipo[{messaggio_.classe, messaggio_.id}];
        const bool sol = messaggio_.classe == NAV_SOL_CLASSE && messaggio_.id == NAV_SOL_ID;
        const bool pvt = messaggio_.classe == NAV_PVT_CLASSE && messaggio_.id == NAV_PVT_ID;
        if (!sol && !pvt) {
            ++conteggi_.altri;
        } else if (dati.size() != (sol ? NAV_SOL_BYTE : NAV_PVT_BYTE)) {
            ++conteggi_.lunghezza_errata;
        } else if (prendi(intero<std::uint32_t>(dati, 0), pvt)) {
            const std::span<const std::uint8_t> tutti(dati);
            soluzione_ = sol ? da_nav_sol(tutti.first<NAV_SOL_BYTE>()) : da_nav_pvt(tutti.first<NAV_PVT_BYTE>());
            return true;
        }
    }
    return false;
}

}  // namespace kel_registrazioni
