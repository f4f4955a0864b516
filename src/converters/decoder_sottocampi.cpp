// Values computed from several fields of a GPS packet.
#include "converters/decoder_sottocampi.h"

#include <cmath>

#include "converters/conversione_lineare.h"
#include "converters/lettura.h"
#include "converters/navsol.h"

namespace kel {
namespace {

constexpr double pi = 3.141592653589793;
constexpr double quasi_zero = 1e-10;

// Length of the ECEF velocity vector, cm/s.
float velocita_ecef(const void* payload) noexcept {
    const auto vx = static_cast<float>(leggi<int32_t>(payload, navsol_vx));
    const auto vy = static_cast<float>(leggi<int32_t>(payload, navsol_vy));
    const auto vz = static_cast<float>(leggi<int32_t>(payload, navsol_vz));
    return std::sqrt(vx * vx + vy * vy + vz * vz);
}

const void* payload_di(const void* pacchetto) noexcept {
    return static_cast<const unsigned char*>(pacchetto) + payload_in_gps_kel;
}

// A 3D fix of four satellites or more. Without one the speed is 0, however the solution drifts.
bool fix_utile(const void* payload) noexcept {
    return leggi<uint8_t>(payload, navsol_fix) >= 3 && leggi<uint8_t>(payload, navsol_satelliti) >= 4;
}

float velocita_kmh(const void* payload) noexcept {
    return velocita_ecef(payload) * 0.036f;  // 3600 / 100000: cm/s to km/h
}

// Geodetic latitude, degrees, by fixed-point iteration on the ellipsoid of WGS 84. The packet's numbers enter as they
// are, centimetres beside a semi-major axis in metres: the ellipsoid is so small beside them that the result lies
// between the geocentric and the geodetic latitude, up to 0.19 degrees from WGS 84. Recorded data are read with this rule.
double latitudine(double x, double y, double z) noexcept {
    constexpr double e2 = 0.00669437999014133;  // first eccentricity squared, WGS 84
    constexpr double a = 6378137.0;             // semi-major axis, WGS 84
    constexpr int giri_massimi = 50;
    const double p2 = x * x + y * y;
    double dz = z * e2;
    double zz = 0.0;
    for (int giro = 1;; ++giro) {
        zz = z + dz;
        const double r = std::sqrt(zz * zz + p2);
        if (r < quasi_zero)
            return 0.0;
        const double s = zz / r;
        const double t = 1.0 - e2 * s * s;
        if (t < quasi_zero)
            return 0.0;
        if (giro == giri_massimi)
            break;
        const double precedente = dz;
        dz = e2 * s * (a / std::sqrt(t));
        if (!(std::fabs(dz - precedente) > quasi_zero))
            break;
    }
    if (p2 >= quasi_zero)
        return std::atan2(zz, std::sqrt(p2)) * 180.0 / pi;
    return z > 0.0 ? 90.0 : -90.0;
}

double longitudine(double x, double y) noexcept {
    return x * x + y * y < quasi_zero ? 0.0 : std::atan2(y, x) * 180.0 / pi;
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

// The NAV-SOL table's speed has neither the factor nor the checks of the logger's packet: it shows the raw vector.
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
    return static_cast<float>(latitudine(leggi<int32_t>(payload, navsol_x), leggi<int32_t>(payload, navsol_y),
                                         leggi<int32_t>(payload, navsol_z)));
}

float longitudine_gps(const s_kel_converter*, const void* campione, uint32_t* stato) noexcept {
    const void* payload = payload_di(campione);
    *stato = 0;
    return static_cast<float>(longitudine(leggi<int32_t>(payload, navsol_x), leggi<int32_t>(payload, navsol_y)));
}

}  // namespace kel
