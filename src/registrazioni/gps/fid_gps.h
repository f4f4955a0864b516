// Functions of the logger's GPS packet.
#ifndef KEL_REGISTRAZIONI_FID_GPS_H
#define KEL_REGISTRAZIONI_FID_GPS_H

#include "kelfunzioni.h"

namespace kel_registrazioni {

constexpr kel_funpos GPS_PACCHETTO = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
constexpr kel_funpos GPS_FIX = kelFidComponi(FID_PHI_CODE, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos GPS_SATELLITI = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_SATELLITE, FID_POS_GPS);
constexpr kel_funpos GPS_VELOCITA = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);
constexpr kel_funpos GPS_LATITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
constexpr kel_funpos GPS_LONGITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);
// No subfield of the packet; the identifier for the altitude that kelfun computes.
constexpr kel_funpos GPS_ALTEZZA = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_ALTITUDE, FID_POS_GPS);
// The packet has only the low bytes of the accuracies, in cm and cm/s. The base units of a position and a velocity are
// mm and km/h, so these values are read and shown without a unit of the catalogue.
constexpr kel_funpos GPS_ACCURATEZZA_POSIZIONE = kelFidComponi(FID_PHI_POSITION, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos GPS_ACCURATEZZA_VELOCITA = kelFidComponi(FID_PHI_VELOCITY, FID_OBJ_ACCURACY, FID_POS_GPS);

/// Below these the library gives the speed 0.
constexpr unsigned GPS_FIX_MINIMO = 3;
constexpr unsigned GPS_SATELLITI_MINIMI = 4;

}  // namespace kel_registrazioni

#endif
