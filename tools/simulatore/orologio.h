// GPS time and UTC.
#ifndef KELSIM_OROLOGIO_H
#define KELSIM_OROLOGIO_H

#include <cstdint>

namespace kel::simulatore {

constexpr std::uint32_t SETTIMANA_MS = 604800000;  ///< milliseconds in a week

/// Date and time of day, UTC.
struct Utc {
    unsigned anno = 0, mese = 0, giorno = 0, ore = 0, minuti = 0, secondi = 0, millesimi = 0;
};

/// @param settimana     GPS week, counted from 6 January 1980 and never wrapped.
/// @param settimana_ms  time of that week, ms. GPS time is 18 s ahead of UTC, as it has been since 2017.
Utc utc(std::uint32_t settimana, std::uint32_t settimana_ms);

}  // namespace kel::simulatore

#endif
