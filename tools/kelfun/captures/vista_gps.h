// The columns that show a solution: the same for a receiver's capture and for a logger's GPS packet.
#ifndef KELFUN_CAPTURES_VISTA_GPS_H
#define KELFUN_CAPTURES_VISTA_GPS_H

#include <cstddef>

#include "domain/registrazioni.h"
#include "output/documento.h"
#include "registrazioni/gps/campi_gps.h"

namespace kel::strumento {

/// For people: a field's name, made short.
const char* testata_gps(CampoGps campo);
/// The characters to keep for it.
std::size_t larghezza_gps(CampoGps campo);

/// A field's cell. A speed is in the unit of `fattore`, with so many decimals for people and all that matter for programs.
Cella cella_gps(const Soluzione& soluzione, CampoGps campo, double fattore, int decimali_velocita);

}  // namespace kel::strumento

#endif
