#include "gps/tempo_gps.h"

#include <chrono>
#include <cmath>
#include <iterator>
#include <string>

#include "gps/secondi_intercalari.h"

namespace kel_registrazioni {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days INIZIO = std::chrono::year(1980) / 1 / 6;  // of GPS time
constexpr std::int64_t MILLE = 1000;
constexpr std::int64_t GIORNO_S = 86400;
constexpr std::int64_t SETTIMANA_S = SETTIMANA_MS / MILLE;

// The GPS time at which the leap second of this row is over. From then on it counts, together with those before it.
std::int64_t dopo(std::size_t riga) {
    const std::int64_t giorni = (sys_days(GIORNI_INTERCALARI[riga]) - INIZIO).count();
    return giorni * GIORNO_S + static_cast<std::int64_t>(riga) + 1;
}

bool intercalare(std::int64_t gps_s) {
    const auto quanti = static_cast<std::size_t>(secondi_intercalari(gps_s));
    return quanti < std::size(GIORNI_INTERCALARI) && gps_s == dopo(quanti) - 1;
}

// A time of UTC in seconds since GPS time began, leap seconds not counted.
Utc calendario(std::int64_t secondi, unsigned millesimi) {
    const std::int64_t giorni = secondi / GIORNO_S;
    const auto nel_giorno = static_cast<unsigned>(secondi % GIORNO_S);
    const std::chrono::year_month_day data = INIZIO + days(giorni);
    return {static_cast<int>(data.year()),
            static_cast<unsigned>(data.month()),
            static_cast<unsigned>(data.day()),
            nel_giorno / 3600,
            nel_giorno / 60 % 60,
            nel_giorno % 60,
            millesimi};
}

std::int64_t secondi_da(const Utc& u) {
    const sys_days giorno = std::chrono::year(u.anno) / static_cast<int>(u.mese) / static_cast<int>(u.giorno);
    return (giorno - INIZIO).count() * GIORNO_S + (u.ora * 60 + u.minuto) * std::int64_t{60} + u.secondo;
}

}  // namespace

std::string Utc::testo() const {
    std::string testo = std::to_string(anno);  // from 1980 on; a message may claim a year of five digits
    const std::size_t da = testo.size();
    testo += "-00-00T00:00:00.000Z";
    const auto metti = [&testo, da](std::size_t ultima, unsigned numero) {
        for (std::size_t i = da + ultima; numero != 0; --i, numero /= 10)
            testo[i] = static_cast<char>('0' + numero % 10);
    };
    metti(2, mese);
    metti(5, giorno);
    metti(8, ora);
    metti(11, minuto);
    metti(14, secondo);
    metti(18, millesimi);
    return testo;
}

std::int64_t Utc::microsecondi() const {
    return (INIZIO.time_since_epoch().count() * GIORNO_S + secondi_da(*this)) * 1000000 +
           std::int64_t{millesimi} * MILLE;
}

int secondi_intercalari(std::int64_t gps_s) {
    std::size_t quanti = 0;
    while (quanti < std::size(GIORNI_INTERCALARI) && gps_s >= dopo(quanti))
        ++quanti;
    return static_cast<int>(quanti);
}

std::optional<Utc> utc_da_gps(int settimana, std::uint32_t settimana_ms) {
    if (settimana < 1 || settimana_ms >= SETTIMANA_MS)
        return std::nullopt;
    const std::int64_t gps_s = settimana * SETTIMANA_S + settimana_ms / MILLE;
    const auto millesimi = static_cast<unsigned>(settimana_ms % MILLE);
    const std::int64_t utc_s = gps_s - secondi_intercalari(gps_s);
    if (!intercalare(gps_s))
        return calendario(utc_s, millesimi);
    Utc utc = calendario(utc_s - 1, millesimi);
    ++utc.secondo;
    return utc;
}

std::optional<Utc> utc_da_data(int anno, unsigned mese, unsigned giorno, unsigned ora, unsigned minuto,
                               unsigned secondo, std::int32_t nano) {
    constexpr std::int32_t MILIARDO = 1000000000;
    constexpr double MILIONE = 1e6;
    const std::chrono::year_month_day data{std::chrono::year(anno), std::chrono::month(mese), std::chrono::day(giorno)};
    if (!data.ok() || anno < 1980 || ora > 23 || minuto > 59 || secondo > 60 || nano < -MILIARDO || nano > MILIARDO)
        return std::nullopt;
    Utc utc{anno, mese, giorno, ora, minuto, secondo, 0};
    // The message rounds its second, so that the fraction may be a little less than nothing.
    const auto frazione_ms = static_cast<std::int64_t>(std::lround(nano / MILIONE));
    if (frazione_ms >= 0 && frazione_ms < MILLE) {
        utc.millesimi = static_cast<unsigned>(frazione_ms);
        return utc;
    }
    const std::int64_t tutti_ms = secondi_da(utc) * MILLE + frazione_ms;
    if (tutti_ms < 0)
        return std::nullopt;
    return calendario(tutti_ms / MILLE, static_cast<unsigned>(tutti_ms % MILLE));
}

int settimana_gps(const Utc& utc, std::uint32_t settimana_ms) {
    const std::int64_t utc_s = secondi_da(utc);
    const std::int64_t gps_s = utc_s + secondi_intercalari(utc_s + static_cast<int>(std::size(GIORNI_INTERCALARI)));
    return static_cast<int>((gps_s - settimana_ms / MILLE + SETTIMANA_S / 2) / SETTIMANA_S);
}

}  // namespace kel_registrazioni
