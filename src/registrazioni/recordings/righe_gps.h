// Solutions as rows of columns.
#ifndef KEL_REGISTRAZIONI_RIGHE_GPS_H
#define KEL_REGISTRAZIONI_RIGHE_GPS_H

#include <cstddef>

#include "gps/campi_gps.h"
#include "kelregistrazioni.h"

namespace kel_registrazioni {

/// What the values of a field are.
eKelValori valori_di(CampoGps campo);
/// What the face calls a field.
eKelCampo campo_di_faccia(CampoGps campo);

/// Writes a field of a row's solution: its value, whether it has one, its text.
/// @param fattore   from m/s to the unit of the speed.
/// @param decimali  of the text.
/// @param riga      from where the reading begins.
void scrivi_campo(const s_kel_lettura& lettura, std::size_t riga, const Soluzione& soluzione, CampoGps campo,
                  double fattore, int decimali);

/// The same for the time of week.
void scrivi_settimana(const s_kel_lettura& lettura, std::size_t riga, const Soluzione& soluzione);

/// All rows without a value, before the fields are written.
void azzera(const s_kel_lettura& lettura, eKelValori valori, std::size_t righe);

}  // namespace kel_registrazioni

#endif
