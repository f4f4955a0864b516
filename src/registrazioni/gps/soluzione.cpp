#include "gps/soluzione.h"

#include "common/interi.h"

namespace kel_registrazioni {

namespace {

constexpr double CENTO = 100;  // the message counts in cm and cm/s
constexpr std::uint8_t SETTIMANA_NOTA = 0x04;
constexpr std::uint8_t ORA_NOTA = 0x08;

Ecef centimetri(std::span<const std::uint8_t> byte, std::size_t da) {
    return {intero<std::int32_t>(byte, da) / CENTO, intero<std::int32_t>(byte, da + 4) / CENTO,
            intero<std::int32_t>(byte, da + 8) / CENTO};
}

}  // namespace

std::optional<double> Soluzione::altezza() const {
    if (!luogo || !con_altezza(fix))
        return std::nullopt;
    return luogo->altezza;
}

std::optional<double> Soluzione::andatura() const {
    return velocita ? std::optional(velocita->nello_spazio()) : std::nullopt;
}

std::optional<double> Soluzione::rotta() const {
    if (!velocita || velocita->orizzontale() == 0)
        return std::nullopt;
    return velocita->rotta();
}

std::optional<double> Soluzione::salita() const {
    if (!velocita || !con_altezza(fix))
        return std::nullopt;
    return velocita->su;
}

Soluzione da_nav_sol(std::span<const std::uint8_t, NAV_SOL_BYTE> payload) {
    Soluzione soluzione;
    soluzione.settimana_ms = intero<std::uint32_t>(payload, 0);
    soluzione.fix = payload[10];
    soluzione.satelliti = payload[47];
    const std::uint8_t note = payload[11];
    if ((note & SETTIMANA_NOTA) != 0 && (note & ORA_NOTA) != 0)
        soluzione.utc = utc_da_gps(intero<std::int16_t>(payload, 8), soluzione.settimana_ms);
    const auto [x, y, z] = centimetri(payload, 12);
    // Nobody drives at the centre of the earth: there the receiver has written nothing.
    if (!con_posizione(soluzione.fix) || (x == 0 && y == 0 && z == 0))
        return soluzione;
    soluzione.luogo = geodetica(x, y, z);
    soluzione.velocita = velocita_locale(*soluzione.luogo, centimetri(payload, 28));
    soluzione.accuratezza_posizione = intero<std::uint32_t>(payload, 24) / CENTO;
    soluzione.accuratezza_velocita = intero<std::uint32_t>(payload, 40) / CENTO;
    return soluzione;
}

}  // namespace kel_registrazioni
