#include "packets/geodetiche.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/aritmetica.h"

namespace kel {
namespace {

constexpr double PI = 3.141592653589793;
constexpr double QUASI_ZERO = 1e-10;
constexpr double E2 = 0.00669437999014133;  // first eccentricity squared, WGS 84
constexpr double A = 6378137.0;             // semi-major axis, WGS 84, m

// --- The definition ------------------------------------------------------------------------------------------------

// Geodetic latitude by fixed-point iteration on the ellipsoid of WGS 84.
//
// The latitude is not that of WGS 84: the packet's coordinates are centimetres and the semi-major axis is in metres, so
// the point lies as if 100 times as far from the centre of the Earth, where geodetic and geocentric latitude are almost
// equal. The result is up to 0.19 degrees from the map. It stays, because all devices show this latitude and recordings
// must give the same track everywhere.
double latitudine_iterata(double x, double y, double z) noexcept {
    constexpr int giri_massimi = 50;
    const double p2 = x * x + y * y;
    double dz = z * E2;
    double zz = 0.0;
    for (int giro = 1;; ++giro) {
        zz = z + dz;
        const double r = std::sqrt(zz * zz + p2);
        if (r < QUASI_ZERO)
            return 0.0;
        const double s = zz / r;
        const double t = 1.0 - E2 * s * s;  // never below 0.993, as s is a sine
        if (giro == giri_massimi)
            break;
        const double precedente = dz;
        dz = E2 * s * (A / std::sqrt(t));
        if (!(std::fabs(dz - precedente) > QUASI_ZERO))
            break;
    }
    if (p2 >= QUASI_ZERO)
        return std::atan2(zz, std::sqrt(p2)) * 180.0 / PI;
    return z > 0.0 ? 90.0 : -90.0;
}

// The longitude is that of WGS 84. It is handed out as a float, whose steps beyond 128 degrees are 1.5e-5 degrees,
// 1.7 m on the equator.
double longitudine_esatta(double x, double y) noexcept {
    return x * x + y * y < QUASI_ZERO ? 0.0 : std::atan2(y, x) * 180.0 / PI;
}

// --- The short way -------------------------------------------------------------------------------------------------
//
// The definition takes an arc tangent, and two roots in each of its rounds. The result is a float of 24 bits, for which
// a less exact angle is enough: an angle that is wrong by 4e-12 of itself is rounded to the same float, unless the
// middle between two floats lies that near. Then, about once in ten thousand positions, the definition is computed.
//
// The errors are parts of the angle, and upper bounds; the compiler checks that their sum stays below the limit.
// Measured over 15 million points the short way is wrong by 6.9e-13 at most, the angle alone by 8.3e-14.

constexpr double ERRORE = 4e-12;              // the limit
constexpr double ERRORE_ANGOLO = 2e-13;       // of `angolo`
constexpr double ERRORE_DEFINIZIONE = 2e-14;  // of the definition itself

// The float nearest to an angle whose error is at most `errore`; nothing when the error leaves two floats to choose
// from.
std::optional<float> se_certo(double gradi) noexcept {
    const auto sotto = static_cast<float>(gradi * (1.0 - ERRORE));
    const auto sopra = static_cast<float>(gradi * (1.0 + ERRORE));
    return sotto == sopra ? std::optional(sotto) : std::nullopt;
}

// Angle of a point that is not the origin, in degrees.
//
// The smaller coordinate over the larger is a tangent from 0 to 1. With k the nearest whole number of eighths,
//
//     atan(tangent) = atan(k/8) + atan(t),    t = (tangent - k/8) / (1 + tangent * k/8),    |t| <= 1/16
//
// and of atan(t) five terms of the series are taken. The first one left out is t^11/11, at most 1/16^10/11 = 8.3e-14 of
// atan(t). Each of the roundings, fewer than 20, adds at most 2^-53 of the angle, together 2.3e-15.
double angolo(double y, double x) noexcept {
    constexpr double resto_massimo = 1.0 / 16;
    constexpr double resto_alla_quinta = resto_massimo * resto_massimo * resto_massimo * resto_massimo * resto_massimo;
    static_assert(resto_alla_quinta * resto_alla_quinta / 11 + 20 * 0x1p-53 < ERRORE_ANGOLO);
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
    // The four octants of the upper half plane, by the larger coordinate and the sign of x: the angle is the octant's
    // beginning plus or minus that of the tangent.
    struct Ottante {
        double inizio, verso;
    };
    static constexpr Ottante ottanti[2][2] = {{{0.0, 1.0}, {PI, -1.0}}, {{PI / 2, -1.0}, {PI / 2, 1.0}}};
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
    // Looked up and not branched on: a track runs through the octants in no order that a processor could predict.
    const Ottante ottante = ottanti[ay > ax ? 1 : 0][x < 0.0 ? 1 : 0];
    return std::copysign(ottante.inizio + ottante.verso * radianti, y) * (180.0 / PI);
}

// The fixed point of the iteration is
//
//     zz = z + g(zz),    g(zz) = e2 * a * zz / root,    root = sqrt(p2 + (1 - e2) * zz^2)
//
// Two rounds are enough. From 5e8 cm of distance on, g(zz) is at most 8.6e-5 of zz, and its slope no more: so a round
// reduces the error by that factor, and what is wrong in g counts by that factor only.
//
// - The first round begins with z, 8.6e-5 away from zz, and takes the root in single precision. Three roundings to 24
//   bits, the first of them before the root and so halved, make an error of 2.5 * 2^-24.
// - The second round needs the root of the first one's zz. A step of Newton's method from the first root gives it: an
//   error of d becomes one of 1.5 * d^2.
//
// Where zz is wrong by a part of itself, the latitude is wrong by no larger part. 1e-10 is the last step of the
// iteration, and so its error: from |z| = 1e4 on it is at most 1e-14 of zz.
constexpr double RAGGIO_MINIMO = 5e8;
constexpr double Z_MINIMO = 1e4;
constexpr double G0 = E2 * A;

constexpr double PENDENZA = G0 / RAGGIO_MINIMO;
constexpr double ERRORE_RADICE = PENDENZA + 2.5 * 0x1p-24;  // of the first root, taken for that of the first round's zz
constexpr double ERRORE_PRIMO = PENDENZA * ERRORE_RADICE;
constexpr double ERRORE_SECONDO = PENDENZA * (ERRORE_PRIMO + 1.5 * ERRORE_RADICE * ERRORE_RADICE);
static_assert(PENDENZA < 8.6e-5 && ERRORE_SECONDO < 1.6e-12);
static_assert(QUASI_ZERO / Z_MINIMO < ERRORE_DEFINIZIONE);
static_assert(ERRORE_SECONDO + ERRORE_ANGOLO + ERRORE_DEFINIZIONE < ERRORE);

std::optional<float> latitudine_breve(double x, double y, double z) noexcept {
    const double p2 = x * x + y * y;
    const double r2 = p2 + (1.0 - E2) * z * z;
    if (p2 == 0.0 || r2 < RAGGIO_MINIMO * RAGGIO_MINIMO || std::fabs(z) < Z_MINIMO)
        return std::nullopt;
    const double s = 1.0f / std::sqrt(static_cast<float>(r2));
    const double primo = z + G0 * z * s;
    const double meta_q = (0.5 * p2 + (0.5 - 0.5 * E2) * primo * primo) * s * s;
    const double zz = z + G0 * primo * s * (1.5 - meta_q);
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
