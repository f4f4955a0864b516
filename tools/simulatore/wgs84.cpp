#include "wgs84.h"

#include <cmath>

namespace kel::simulatore {

namespace {

constexpr double SEMIASSE = 6378137.0;                                      // a of WGS 84, m
constexpr double SCHIACCIAMENTO = 1.0 / 298.257223563;                      // f of WGS 84
constexpr double ECCENTRICITA_2 = SCHIACCIAMENTO * (2.0 - SCHIACCIAMENTO);  // e squared
constexpr double GRADI = 3.14159265358979323846 / 180.0;

}  // namespace

Vettore ecef(const Geodetiche& luogo) {
    const double lat = luogo.latitudine * GRADI;
    const double lon = luogo.longitudine * GRADI;
    const double n = SEMIASSE / std::sqrt(1.0 - ECCENTRICITA_2 * std::sin(lat) * std::sin(lat));
    return {(n + luogo.altezza) * std::cos(lat) * std::cos(lon), (n + luogo.altezza) * std::cos(lat) * std::sin(lon),
            (n * (1.0 - ECCENTRICITA_2) + luogo.altezza) * std::sin(lat)};
}

PianoLocale::PianoLocale(const Geodetiche& origine) : luogo_(origine), origine_(ecef(origine)) {
    const double lat = origine.latitudine * GRADI;
    const double lon = origine.longitudine * GRADI;
    est_ = {-std::sin(lon), std::cos(lon), 0.0};
    nord_ = {-std::sin(lat) * std::cos(lon), -std::sin(lat) * std::sin(lon), std::cos(lat)};
    su_ = {std::cos(lat) * std::cos(lon), std::cos(lat) * std::sin(lon), std::sin(lat)};
}

Vettore PianoLocale::velocita(const Vettore& est_nord_su) const {
    const auto& [e, n, s] = est_nord_su;
    return {est_.x * e + nord_.x * n + su_.x * s, est_.y * e + nord_.y * n + su_.y * s,
            est_.z * e + nord_.z * n + su_.z * s};
}

Vettore PianoLocale::posizione(const Vettore& est_nord_su) const {
    const Vettore d = velocita(est_nord_su);
    return {origine_.x + d.x, origine_.y + d.y, origine_.z + d.z};
}

Vettore PianoLocale::locale(const Vettore& velocita_ecef) const {
    const auto& [x, y, z] = velocita_ecef;
    return {est_.x * x + est_.y * y + est_.z * z, nord_.x * x + nord_.y * y + nord_.z * z,
            su_.x * x + su_.y * y + su_.z * z};
}

// Fixed point of the latitude equation (Heiskanen and Moritz): each round gains a factor e squared.
Geodetiche PianoLocale::geodetiche(const Vettore& est_nord_su) const {
    const Vettore r = posizione(est_nord_su);
    const double p = std::sqrt(r.x * r.x + r.y * r.y);
    double lat = luogo_.latitudine * GRADI;
    double n = SEMIASSE;
    for (int giro = 0; giro < 8; ++giro) {
        n = SEMIASSE / std::sqrt(1.0 - ECCENTRICITA_2 * std::sin(lat) * std::sin(lat));
        lat = std::atan2(r.z + ECCENTRICITA_2 * n * std::sin(lat), p);
    }
    return {lat / GRADI, std::atan2(r.y, r.x) / GRADI, p / std::cos(lat) - n};
}

}  // namespace kel::simulatore
