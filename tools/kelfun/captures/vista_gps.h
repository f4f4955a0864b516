// The columns that show a solution: the same for a receiver's capture and for a logger's GPS packet.
#ifndef KELFUN_CAPTURES_VISTA_GPS_H
#define KELFUN_CAPTURES_VISTA_GPS_H

#include <cstddef>
#include <optional>
#include <string_view>

#include "kelregistrazioni.h"
#include "output/documento.h"

namespace kel::strumento {

/// For people: a field's name, made short.
const char* testata_gps(eKelCampo campo);
/// The characters to keep for it.
std::size_t larghezza_gps(eKelCampo campo);

/// The number that is shown of a field, and with how many decimals for programs.
struct NumeroGps {
    double valore;
    int decimali;
};
/// A speed has all decimals that matter, other numbers those of their field: no "-0.000", and no heading of "360.00".
NumeroGps numero_gps(double valore, eKelCampo campo, int decimali);

/// Whether its numbers are counted.
constexpr bool intero_gps(eKelCampo campo) {
    return campo == KEL_CAMPO_FIX || campo == KEL_CAMPO_SATELLITI;
}

/// A field's cell: of UTC its text, else its number. A speed has so many decimals for people.
Cella cella_gps(std::optional<double> valore, std::string_view testo, eKelCampo campo, int decimali);

}  // namespace kel::strumento

#endif
