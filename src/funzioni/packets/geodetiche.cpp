#include "packets/geodetiche.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/aritmetica.h"

namespace kel {
namespace {

constexpr double pi = 3.141592653589793;
constexpr double quasi_zero = 1e-10;
constexpr double e2 = 0.00669437999014133;  // first eccentricity squared, WGS 84
constexpr double a = 6378137.0;             // semi-major axis, WGS 84, m

// --- The definition ------------------------------------------------------------------------------------------------

// Geodetic latitude by fixed-point iteration on the ellipsoid of WGS 84. The packet's numbers enter as they are,
// centimetres beside a semi-major axis in metres: the ellipsoid is so small beside them that the result lies between the
// geocentric and the geodetic latitude, up to 0.19 degrees from WGS 84. Recorded data are read with this rule.
double latitudine_iterata(double x, double y, double z) noexcept {
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
        const double t = 1.0 - e2 * s * s;  // never below 0.993, as s is a sine
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

double longitudine_esatta(double x, double y) noexcept {
    return x * x + y * y < quasi_zero ? 0.0 : std::atan2(y, x) * 180.0 / pi;
}

// --- The short way -------------------------------------------------------------------------------------------------
//
// A float has 24 bits: an angle good to 4e-12 of itself gives the same float unless it lies that near to the middle between
// two floats. There, about once in ten thousand positions, the definition is asked.

std::optional<float> se_certo(double gradi) noexcept {
    constexpr double errore = 4e-12;
    const auto sotto = static_cast<float>(gradi * (1.0 - errore));
    const auto sopra = static_cast<float>(gradi * (1.0 + errore));
    return sotto == sopra ? std::optional(sotto) : std::nullopt;
}

// Angle of a point that is not the origin, in degrees, good to 2e-13. The smaller coordinate over the larger is brought near
// 0 by the angle of the nearest eighth, whose tangent is exact; what is left is at most 1/16, where five terms of the series
// of the arc tangent do.
double angolo(double y, double x) noexcept {
    // atan(k/8)
    static constexpr double ottavi[] = {0.0,
                                        0.12435499454676144,
                                        0.24497866312686414,
                                        0.3587706702705722,
                                        0.4636476090008061,
                                        0.5585993153435624,
                                        0.6435011087932844,
                                        0.7188299996216245,
                                        0.7853981633974483};
    // Of the upper half plane, by the larger coordinate and the sign of x: where they begin, and which way they run.
    struct Ottante {
        double inizio, verso;
    };
    static constexpr Ottante ottanti[2][2] = {{{0.0, 1.0}, {pi, -1.0}}, {{pi / 2, -1.0}, {pi / 2, 1.0}}};
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    const double minore = std::min(ax, ay);
    const double maggiore = std::max(ax, ay);
    const int k = (static_cast<int>(static_cast<float>(minore) / static_cast<float>(maggiore) * 16.0f) + 1) / 2;
    const double c = k * 0.125;
    const double t = (minore - c * maggiore) / (maggiore + c * minore);
    const double q = t * t;
    const double radianti =
        ottavi[k] + t * ((1.0 - q * (1.0 / 3)) + q * q * ((1.0 / 5 - q * (1.0 / 7)) + q * q * (1.0 / 9)));
    // Which octant it is cannot be foretold: looked up, not branched on.
    const Ottante ottante = ottanti[ay > ax ? 1 : 0][x < 0.0 ? 1 : 0];
    return std::copysign(ottante.inizio + ottante.verso * radianti, y) * (180.0 / pi);
}

// The iteration's fixed point, zz = z + g(zz) with g(zz) = e2 a zz / sqrt(p2 + (1 - e2) zz^2). Far from the centre g is so
// small beside z, at most 9e-5 of it, that each round gains four digits: one with the root in single precision, one with
// the root corrected by a step of Newton's.
std::optional<float> latitudine_breve(double x, double y, double z) noexcept {
    constexpr double raggio_minimo = 5e8;
    constexpr double z_minimo =
        1e4;  // the iteration stops at a step of 1e-10, which nearer to the equator is not small
    constexpr double g0 = e2 * a;
    const double p2 = x * x + y * y;
    const double r2 = p2 + (1.0 - e2) * z * z;
    if (p2 == 0.0 || r2 < raggio_minimo * raggio_minimo || std::fabs(z) < z_minimo)
        return std::nullopt;
    const double s = 1.0f / std::sqrt(static_cast<float>(r2));
    const double primo = z + g0 * z * s;
    const double meta_q = (0.5 * p2 + (0.5 - 0.5 * e2) * primo * primo) * s * s;
    const double zz = z + g0 * primo * s * (1.5 - meta_q);
    return se_certo(angolo(zz, std::sqrt(p2)));
}

}  // namespace

float latitudine(int32_t x, int32_t y, int32_t z) noexcept {
    const std::optional<float> breve = latitudine_breve(x, y, z);
    return breve ? *breve : static_cast<float>(latitudine_iterata(x, y, z));
}

float longitudine(int32_t x, int32_t y) noexcept {
    const std::optional<float> breve = (x | y) != 0 ? se_certo(angolo(y, x)) : std::nullopt;
    return breve ? *breve : static_cast<float>(longitudine_esatta(x, y));
}

}  // namespace kel
