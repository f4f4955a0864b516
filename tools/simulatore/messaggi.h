// What the receiver sends for a solution: UBX messages and NMEA sentences.
#ifndef KELSIM_MESSAGGI_H
#define KELSIM_MESSAGGI_H

#include <functional>
#include <string>

#include "kart.h"
#include "wgs84.h"

namespace kel::simulatore {

/// The circuit's place: made up, somewhere in the plain of the Po.
constexpr Geodetiche LUOGO = {44.8231, 10.4107, 62.0};

/// Payload of NAV-SOL, 52 bytes: position in cm and velocity in cm/s, both ECEF.
std::string payloadNavSol(const Istante& istante, const PianoLocale& piano);
/// NAV-SOL (01 06).
std::string navSol(const Istante& istante, const PianoLocale& piano);
/// NAV-POSLLH (01 02): geodetic position.
std::string navPosLlh(const Istante& istante, const PianoLocale& piano);
/// NAV-VELNED (01 12): velocity north, east, down.
std::string navVelNed(const Istante& istante);
/// NAV-STATUS (01 03).
std::string navStatus(const Istante& istante);
/// GGA sentence.
std::string gga(const Istante& istante, const PianoLocale& piano);

/// A whole capture, handed over piece by piece: NAV-SOL among the others, once a second NAV-STATUS and GGA too.
/// The arguments are those of `Kart`.
void registrazione(unsigned giri, unsigned frequenza, std::uint64_t seme,
                   const std::function<void(const std::string&)>& uscita);

}  // namespace kel::simulatore

#endif
