#include "gps/navpvt.h"

#include <algorithm>
#include <cmath>

#include "common/interi.h"

namespace kel_registrazioni {

namespace {

constexpr double MILLE = 1000;           // the message counts in mm and mm/s
constexpr double DECIMILIONESIMI = 1e7;  // and in these of a degree
constexpr double CENTIMETRI = 100;
constexpr std::uint8_t DATA_NOTA = 0x01;
constexpr std::uint8_t ORA_NOTA = 0x02;
constexpr std::uint8_t SECONDO_NOTO = 0x04;  // which leap seconds there are
constexpr std::uint8_t UTC_NOTA = DATA_NOTA | ORA_NOTA | SECONDO_NOTO;
constexpr std::uint8_t FIX_E_DIFFERENZIALE = 0x03;  // the same in both messages
constexpr std::uint8_t SETTIMANA_E_ORA_NOTE = 0x0C;

using Byte = std::span<const std::uint8_t, NAV_PVT_BYTE>;

double i32(Byte payload, std::size_t da) {
    return intero<std::int32_t>(payload, da);
}

std::optional<Utc> utc(Byte payload) {
    if ((payload[11] & UTC_NOTA) != UTC_NOTA)
        return std::nullopt;
    return utc_da_data(intero<std::uint16_t>(payload, 4), payload[6], payload[7], payload[8], payload[9], payload[10],
                       intero<std::int32_t>(payload, 16));
}

// The horizontal and the vertical accuracy, combined.
double accuratezza_posizione(Byte payload) {
    return std::hypot(intero<std::uint32_t>(payload, 40), intero<std::uint32_t>(payload, 44)) / MILLE;
}

// Whatever the message holds in mm has room in as many bits of cm.
template <typename Intero>
Intero arrotondato(double valore) {
    return static_cast<Intero>(std::llround(valore));
}

void scrivi(std::span<std::uint8_t> byte, std::size_t da, const Ecef& e) {
    for (const double metri : {e.x, e.y, e.z}) {
        scrivi_intero(byte, da, arrotondato<std::int32_t>(metri * CENTIMETRI));
        da += sizeof(std::int32_t);
    }
}

// Where the message says that the receiver is, whatever the fix; nothing for numbers that are no place.
std::optional<Geodetica> luogo(Byte payload) {
    constexpr double MEZZO_GIRO = 180;
    const Geodetica dove{i32(payload, 28) / DECIMILIONESIMI, i32(payload, 24) / DECIMILIONESIMI,
                         i32(payload, 32) / MILLE};
    const bool sulla_terra = std::fabs(dove.latitudine) <= MEZZO_GIRO / 2 && std::fabs(dove.longitudine) <= MEZZO_GIRO;
    return sulla_terra ? std::optional(dove) : std::nullopt;
}

// North, east and down in the message.
VelocitaLocale velocita(Byte payload) {
    return {i32(payload, 52) / MILLE, i32(payload, 48) / MILLE, -i32(payload, 56) / MILLE};
}

}  // namespace

Soluzione da_nav_pvt(Byte payload) {
    Soluzione soluzione;
    soluzione.settimana_ms = intero<std::uint32_t>(payload, 0);
    soluzione.utc = utc(payload);
    soluzione.fix = payload[20];
    soluzione.satelliti = payload[23];
    if (!con_posizione(soluzione.fix))
        return soluzione;
    soluzione.luogo = luogo(payload);
    if (!soluzione.luogo)
        return soluzione;
    soluzione.velocita = velocita(payload);
    soluzione.accuratezza_posizione = accuratezza_posizione(payload);
    soluzione.accuratezza_velocita = intero<std::uint32_t>(payload, 68) / MILLE;
    return soluzione;
}

std::array<std::uint8_t, NAV_SOL_BYTE> nav_sol_da_pvt(Byte payload) {
    std::array<std::uint8_t, NAV_SOL_BYTE> sol{};
    const auto settimana_ms = intero<std::uint32_t>(payload, 0);
    scrivi_intero(std::span(sol), 0, settimana_ms);
    sol[10] = payload[20];
    sol[11] = payload[21] & FIX_E_DIFFERENZIALE;
    if (const auto ora = utc(payload)) {
        scrivi_intero(std::span(sol), 8, static_cast<std::int16_t>(settimana_gps(*ora, settimana_ms)));
        sol[11] |= SETTIMANA_E_ORA_NOTE;
    }
    if (const auto dove = luogo(payload)) {
        scrivi(sol, 12, ecef(*dove));
        scrivi(sol, 28, velocita_ecef(*dove, velocita(payload)));
    }
    scrivi_intero(std::span(sol), 24, arrotondato<std::uint32_t>(accuratezza_posizione(payload) * CENTIMETRI));
    scrivi_intero(std::span(sol), 40,
                  arrotondato<std::uint32_t>(intero<std::uint32_t>(payload, 68) / MILLE * CENTIMETRI));
    std::copy_n(payload.begin() + 76, 2, sol.begin() + 44);  // position DOP, hundredths in both
    sol[47] = payload[23];
    return sol;
}

}  // namespace kel_registrazioni
