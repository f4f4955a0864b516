#include "gps/wgs84.h"

#include <GeographicLib/Geocentric.hpp>
#include <cmath>
#include <numbers>
#include <vector>

namespace kel_registrazioni {

namespace {

constexpr double GIRO = 360;

using GeographicLib::Geocentric;

// The axes of a place, east, north and up, as the columns of a matrix of ECEF, row by row.
std::vector<double> assi(const Geodetica& luogo) {
    std::vector<double> matrice(9);
    double x = 0;
    double y = 0;
    double z = 0;
    Geocentric::WGS84().Forward(luogo.latitudine, luogo.longitudine, luogo.altezza, x, y, z, matrice);
    return matrice;
}

}  // namespace

double VelocitaLocale::orizzontale() const {
    return std::hypot(est, nord);
}

double VelocitaLocale::nello_spazio() const {
    return std::hypot(est, nord, su);
}

double VelocitaLocale::rotta() const {
    const double gradi = std::atan2(est, nord) * 180 / std::numbers::pi;
    const double positivi = gradi < 0 ? gradi + GIRO : gradi;
    return positivi < GIRO ? positivi : 0;  // a hair west of north
}

Geodetica geodetica(double x_m, double y_m, double z_m) {
    Geodetica luogo;
    Geocentric::WGS84().Reverse(x_m, y_m, z_m, luogo.latitudine, luogo.longitudine, luogo.altezza);
    return luogo;
}

Ecef ecef(const Geodetica& luogo) {
    Ecef posto;
    Geocentric::WGS84().Forward(luogo.latitudine, luogo.longitudine, luogo.altezza, posto.x, posto.y, posto.z);
    return posto;
}

VelocitaLocale velocita_locale(const Geodetica& luogo, const Ecef& velocita) {
    const std::vector<double> m = assi(luogo);
    const auto [x, y, z] = velocita;
    return {m[0] * x + m[3] * y + m[6] * z, m[1] * x + m[4] * y + m[7] * z, m[2] * x + m[5] * y + m[8] * z};
}

Ecef velocita_ecef(const Geodetica& luogo, const VelocitaLocale& velocita) {
    const std::vector<double> m = assi(luogo);
    const auto [e, n, u] = velocita;
    return {m[0] * e + m[1] * n + m[2] * u, m[3] * e + m[4] * n + m[5] * u, m[6] * e + m[7] * n + m[8] * u};
}

}  // namespace kel_registrazioni
