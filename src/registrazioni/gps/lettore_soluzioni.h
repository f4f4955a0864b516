// The solutions of a u-blox stream: NAV-SOL, NAV-PVT, and one an epoch where a capture has both.
#ifndef KEL_REGISTRAZIONI_LETTORE_SOLUZIONI_H
#define KEL_REGISTRAZIONI_LETTORE_SOLUZIONI_H

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <utility>

#include "gps/flusso_ubx.h"
#include "gps/navpvt.h"
#include "gps/soluzione.h"

namespace kel_registrazioni {

/// What was found among the messages, the good ones alone.
struct ConteggiSoluzioni {
    std::uint64_t soluzioni = 0;         ///< shown, of either kind
    std::uint64_t stessa_epoca = 0;      ///< left out, because the other kind of message came first
    std::uint64_t altri = 0;             ///< messages of other kinds
    std::uint64_t lunghezza_errata = 0;  ///< NAV-SOL and NAV-PVT of another length
    std::map<std::pair<std::uint8_t, std::uint8_t>, std::uint64_t> per_tipo;  ///< all messages, by class and id
};

class LettoreSoluzioni {
public:
    explicit LettoreSoluzioni(LettoreUbx::Fonte fonte) : lettore_(std::move(fonte)) {}

    /// The next solution; false at the end of the stream, and where nothing more has come yet. If both messages describe an
    /// epoch (a time of week), the one that comes first is taken, so that nothing has to wait.
    bool prossima();

    /// Where its message has its payload, bytes from the start of the stream; and whether it is a NAV-PVT.
    std::uint64_t posto() const { return lettore_.posto(); }
    bool da_pvt() const { return epoca_da_pvt_; }
    /// The payload.
    std::span<const std::uint8_t> payload() const { return messaggio_.dati; }
    std::size_t in_attesa() const { return lettore_.in_attesa(); }

    const Soluzione& soluzione() const { return soluzione_; }

    const ConteggiUbx& byte() const { return lettore_.conteggi(); }
    const ConteggiSoluzioni& conteggi() const { return conteggi_; }

private:
    bool prendi(std::uint32_t settimana_ms, bool pvt);

    LettoreUbx lettore_;
    MessaggioUbx messaggio_;
    ConteggiSoluzioni conteggi_;
    Soluzione soluzione_;
    std::optional<std::uint32_t> epoca_;  // of the last solution
    bool epoca_da_pvt_ = false;
};

}  // namespace kel_registrazioni

#endif
