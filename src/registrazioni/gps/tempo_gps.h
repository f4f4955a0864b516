// Times of GPS and UTC.
//
// GPS time runs evenly since 6 January 1980; UTC has had leap seconds since, and lies behind by their number.
#ifndef KEL_REGISTRAZIONI_TEMPO_GPS_H
#define KEL_REGISTRAZIONI_TEMPO_GPS_H

#include <cstdint>
#include <optional>
#include <string>

namespace kel_registrazioni {

constexpr std::int64_t SETTIMANA_MS = 604800000;

/// A time of UTC as a calendar has it. The second is 60 in a leap second.
struct Utc {
    int anno = 0;
    unsigned mese = 0;
    unsigned giorno = 0;
    unsigned ora = 0;
    unsigned minuto = 0;
    unsigned secondo = 0;
    unsigned millesimi = 0;

    /// "2024-03-28T17:14:05.250Z": ISO 8601.
    std::string testo() const;
    /// Microseconds since 1970, leap seconds not counted: one of them is the second behind it.
    std::int64_t microsecondi() const;
};

/// The leap seconds between GPS and UTC at a time of GPS, seconds since its beginning. Behind the last one that is known
/// their number stays.
int secondi_intercalari(std::int64_t gps_s);

/// UTC of a week and a time of week; nothing for a week that is none (below 1) and a time beyond the week's end.
std::optional<Utc> utc_da_gps(int settimana, std::uint32_t settimana_ms);

/// A date and a time of day as a message gives them, `nano` nanoseconds (which may be negative) from the second; nothing
/// where they are no time.
std::optional<Utc> utc_da_data(int anno, unsigned mese, unsigned giorno, unsigned ora, unsigned minuto,
                               unsigned secondo, std::int32_t nano);

/// The GPS week of a time of UTC whose time of week is known.
int settimana_gps(const Utc& utc, std::uint32_t settimana_ms);

}  // namespace kel_registrazioni

#endif
