// What the receiver sends for a solution: UBX messages and NMEA sentences.
#ifndef KELSIM_MESSAGGI_H
#define KELSIM_MESSAGGI_H

#include <functional>
#include <string>

#include "kart.h"
#include "wgs84.h"

namespace kel::simulatore {

// Values that are the same in all messages of a solution.
constexpr double GEOIDE = 42.0;  ///< height of the sea above the ellipsoid, m
/// Accuracy in the plane and in height, mm, for each cm of accuracy in space: 6, 8 and 10 are the sides of a
/// right-angled triangle.
constexpr unsigned PIANO_MM = 6;
constexpr unsigned QUOTA_MM = 8;

/// The receiver's velocity: east, north, up where it is, m/s.
Vettore velocita_locale(const Istante& istante, const PianoLocale& piano);
/// Its direction over ground, degrees from north, clockwise.
double rotta(const Vettore& velocita);
/// Position DOP in hundredths.
unsigned dop(const Istante& istante);

/// Appends the geodetic position as NAV-POSLLH and NAV-PVT have it, 24 bytes: longitude, latitude, both heights,
/// accuracies.
void aggiungi_posizione(std::string& dati, const Istante& istante, const PianoLocale& piano);

/// Payload of NAV-SOL, 52 bytes: position in cm and velocity in cm/s, both ECEF.
std::string payload_nav_sol(const Istante& istante, const PianoLocale& piano);
/// NAV-SOL (01 06).
std::string nav_sol(const Istante& istante, const PianoLocale& piano);
/// NAV-POSLLH (01 02): geodetic position.
std::string nav_pos_llh(const Istante& istante, const PianoLocale& piano);
/// NAV-VELNED (01 12): velocity north, east, down.
std::string nav_vel_ned(const Istante& istante, const PianoLocale& piano);
/// NAV-STATUS (01 03).
std::string nav_status(const Istante& istante);
/// GGA sentence.
std::string gga(const Istante& istante, const PianoLocale& piano);

/// Which messages carry the solutions: NAV-SOL of older receivers, NAV-PVT of newer ones, or both.
enum class Soluzioni { sol, pvt, entrambe };

/// A whole capture, handed over piece by piece: the solutions among other messages, once a second NAV-STATUS and GGA
/// too. The first arguments are those of `Kart`.
void registrazione(unsigned giri, unsigned frequenza, std::uint64_t seme,
                   const std::function<void(const std::string&)>& uscita, Soluzioni soluzioni = Soluzioni::sol);

/// The rest of a drive as a capture.
void registrazione(Kart& kart, const PianoLocale& piano, const std::function<void(const std::string&)>& uscita,
                   Soluzioni soluzioni);

}  // namespace kel::simulatore

#endif
