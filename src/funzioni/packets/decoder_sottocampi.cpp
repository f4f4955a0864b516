// Values computed from several fields of a GPS packet.
#include "packets/decoder_sottocampi.h"

#include <cmath>

#include "base/conversione_lineare.h"
#include "base/lettura.h"
#include "packets/geodetiche.h"
#include "packets/navsol.h"

namespace kel {
namespace {

// Length of the ECEF velocity vector, cm/s.
float velocita_ecef(const void* payload) noexcept {
    const auto vx = static_cast<float>(leggi<int32_t>(payload, NAVSOL_VX));
    const auto vy = static_cast<float>(leggi<int32_t>(payload, NAVSOL_VY));
    const auto vz = static_cast<float>(leggi<int32_t>(payload, NAVSOL_VZ));
    return std::sqrt(vx * vx + vy * vy + vz * vz);
}

const void* payload_di(const void* pacchetto) noexcept {
    return static_cast<const unsigned char*>(pacchetto) + PAYLOAD_IN_GPS_KEL;
}

// A 3D fix of four satellites or more. Without one the receiver's solution drifts, and the speed is shown as 0.
bool fix_utile(const void* payload) noexcept {
    return leggi<uint8_t>(payload, NAVSOL_FIX) >= 3 && leggi<uint8_t>(payload, NAVSOL_SATELLITI) >= 4;
}

float velocita_kmh(const void* payload) noexcept {
    return velocita_ecef(payload) * 0.036f;  // cm/s to km/h: 3600 s/h over 100000 cm/km
}

}  // namespace

float velocita_gps(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const void* payload = payload_di(campione);
    *stato = 0;
    return fix_utile(payload) ? lineare(conv, velocita_kmh(payload)) : 0.0f;
}

float velocita_gps_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    const void* payload = payload_di(campione);
    *stato = 0;
    return fix_utile(payload) ? reciproca(conv, velocita_kmh(payload)) : 0.0f;
}

// The speed of a NAV-SOL payload is in cm/s and not in km/h, and is given without a fix too. It stays so, because
// displays must show the same for a recording in every release.
float velocita_navsol(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    *stato = 0;
    return lineare(conv, velocita_ecef(campione));
}

float velocita_navsol_reciproca(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept {
    *stato = 0;
    return reciproca(conv, velocita_ecef(campione));
}

float latitudine_gps(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    const void* payload = payload_di(campione);
    *stato = 0;
    return latitudine(leggi<int32_t>(payload, NAVSOL_X), leggi<int32_t>(payload, NAVSOL_Y),
                      leggi<int32_t>(payload, NAVSOL_Z));
}

float longitudine_gps(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    const void* payload = payload_di(campione);
    *stato = 0;
    return longitudine(leggi<int32_t>(payload, NAVSOL_X), leggi<int32_t>(payload, NAVSOL_Y));
}

}  // namespace kel
