// The columns that show a solution: the same for a receiver's capture and for a logger's GPS packet.
#ifndef KELFUN_CAPTURES_VISTA_GPS_H
#define KELFUN_CAPTURES_VISTA_GPS_H

#include <optional>
#include <string>

#include "IFunzioni.h"
#include "captures/soluzione.h"
#include "output/documento.h"

namespace kel::strumento {

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

/// How a field is written.
struct AspettoGps {
    const char* nome;     ///< of the column, the unit not in it
    const char* testata;  ///< for people: its name, made short
    const char* udm;      ///< of the values; "" for none. That of the speed is the user's choice
    int decimali;         ///< of numbers
    std::size_t larghezza;
};

const AspettoGps& aspetto(CampoGps campo);

/// The library's function of a field, where it has one; else 0.
kel_funpos fidDi(CampoGps campo);

/// The number of a field, the speed in m/s. Nothing for UTC, and for what the solution does not have.
std::optional<double> valoreGps(const Soluzione& soluzione, CampoGps campo);

/// The factor from m/s to a unit of the speed.
double daMetriAlSecondo(const IFunzioni& catalogo, const std::string& udm);

/// A field's cell. A speed is in the unit of `fattore`, with so many decimals for people and all that matter for programs.
Cella cellaGps(const Soluzione& soluzione, CampoGps campo, double fattore, int decimali_velocita);

}  // namespace kel::strumento

#endif
