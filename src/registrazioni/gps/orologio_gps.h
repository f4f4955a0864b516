// The receiver's time of week as a time that goes on counting.
#ifndef KEL_REGISTRAZIONI_OROLOGIO_GPS_H
#define KEL_REGISTRAZIONI_OROLOGIO_GPS_H

#include <cstdint>
#include <optional>

#include "gps/tempo_gps.h"

namespace kel_registrazioni {

class OrologioGps {
public:
    /// Seconds of the next time of week. One that is half a week or more before the last belongs to the next week.
    double secondi(std::uint32_t settimana_ms) {
        constexpr double SETTIMANA_S = 604800;
        if (ultimo_ && *ultimo_ > settimana_ms && *ultimo_ - settimana_ms > SETTIMANA_MS / 2)
            settimane_ += SETTIMANA_S;
        ultimo_ = settimana_ms;
        return settimane_ + settimana_ms / 1000.0;
    }

private:
    std::optional<std::uint32_t> ultimo_;
    double settimane_ = 0;  // s
};

}  // namespace kel_registrazioni

#endif
