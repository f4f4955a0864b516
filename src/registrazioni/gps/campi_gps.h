// The fields of a solution as columns: the same for a receiver's capture and for a logger's GPS packet.
#ifndef KEL_REGISTRAZIONI_CAMPI_GPS_H
#define KEL_REGISTRAZIONI_CAMPI_GPS_H

#include <optional>
#include <string>

#include "IFunzioni.h"
#include "gps/soluzione.h"
#include "kelregistrazioni.h"

namespace kel_registrazioni {

enum class CampoGps {
    utc,
    fix,
    satelliti,
    latitudine,
    longitudine,
    altezza,
    velocita,
    rotta,
    salita,
    accuratezza_posizione,
    accuratezza_velocita
};

/// All of them, in the order in which they are shown.
inline constexpr CampoGps CAMPI_GPS[] = {CampoGps::utc,
                                         CampoGps::fix,
                                         CampoGps::satelliti,
                                         CampoGps::latitudine,
                                         CampoGps::longitudine,
                                         CampoGps::altezza,
                                         CampoGps::velocita,
                                         CampoGps::rotta,
                                         CampoGps::salita,
                                         CampoGps::accuratezza_posizione,
                                         CampoGps::accuratezza_velocita};

/// What a field is called, and what its numbers are.
struct AspettoGps {
    const char* nome;  ///< the unit not in it
    const char* udm;   ///< of the values; "" for none. That of the speed is the user's choice
    int decimali;      ///< that matter
};

const AspettoGps& aspetto(CampoGps campo);

/// The library's function of a field, where it has one; else 0.
kel_funpos fid_di(CampoGps campo);

/// The number of a field, the speed in m/s. Nothing for UTC, and for what the solution does not have.
std::optional<double> valore_gps(const Soluzione& soluzione, CampoGps campo);

/// The factor from m/s to a unit of the speed.
double da_metri_al_secondo(const IFunzioni& catalogo, const std::string& udm);

}  // namespace kel_registrazioni

#endif
