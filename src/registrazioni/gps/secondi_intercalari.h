// The leap seconds of UTC since GPS time began: when the next one begins to count.
//
// Source: IERS, Bulletin C (https://datacenter.iers.org, "leap second announcements"), up to number 70 of July 2025: no leap
// second was announced after that of 31 December 2016. Whoever adds a row here adds the first day on which it counts.
#ifndef KEL_REGISTRAZIONI_SECONDI_INTERCALARI_H
#define KEL_REGISTRAZIONI_SECONDI_INTERCALARI_H

#include <chrono>

namespace kel_registrazioni {

inline constexpr std::chrono::year_month_day GIORNI_INTERCALARI[] = {
    std::chrono::year(1981) / 7 / 1, std::chrono::year(1982) / 7 / 1, std::chrono::year(1983) / 7 / 1,
    std::chrono::year(1985) / 7 / 1, std::chrono::year(1988) / 1 / 1, std::chrono::year(1990) / 1 / 1,
    std::chrono::year(1991) / 1 / 1, std::chrono::year(1992) / 7 / 1, std::chrono::year(1993) / 7 / 1,
    std::chrono::year(1994) / 7 / 1, std::chrono::year(1996) / 1 / 1, std::chrono::year(1997) / 7 / 1,
    std::chrono::year(1999) / 1 / 1, std::chrono::year(2006) / 1 / 1, std::chrono::year(2009) / 1 / 1,
    std::chrono::year(2012) / 7 / 1, std::chrono::year(2015) / 7 / 1, std::chrono::year(2017) / 1 / 1,
};

}  // namespace kel_registrazioni

#endif
