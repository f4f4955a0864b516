#include "orologio.h"

#include <chrono>

namespace kel::simulatore {

Utc utc(std::uint32_t settimana, std::uint32_t settimana_ms) {
    using namespace std::chrono;
    constexpr sys_days EPOCA_GPS = year{1980} / January / 6;
    constexpr seconds INTERCALARI{18};  // leap seconds between the two times
    const sys_time<milliseconds> ora = EPOCA_GPS + weeks{settimana} + milliseconds{settimana_ms} - INTERCALARI;
    const auto mezzanotte = floor<days>(ora);
    const year_month_day data{mezzanotte};
    const hh_mm_ss orario{ora - mezzanotte};
    return {static_cast<unsigned>(static_cast<int>(data.year())),
            static_cast<unsigned>(data.month()),
            static_cast<unsigned>(data.day()),
            static_cast<unsigned>(orario.hours().count()),
            static_cast<unsigned>(orario.minutes().count()),
            static_cast<unsigned>(orario.seconds().count()),
            static_cast<unsigned>(orario.subseconds().count())};
}

}  // namespace kel::simulatore
