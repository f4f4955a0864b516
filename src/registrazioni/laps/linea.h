// A line across the track that is passed in one direction: the finish, or a split.
#ifndef KEL_REGISTRAZIONI_LINEA_H
#define KEL_REGISTRAZIONI_LINEA_H

#include <optional>
#include <string>
#include <string_view>

namespace kel_registrazioni {

struct Linea {
    static constexpr double LARGHEZZA = 30;  ///< m; a wide track, and the receiver's error

    double latitudine = 0;  ///< of its middle, degrees, WGS 84
    double longitudine = 0;
    double rotta = 0;              ///< in which it is passed, degrees from north, clockwise
    double larghezza = LARGHEZZA;  ///< from end to end, m
};

/// Whether its numbers are a place, a direction and a width of up to 1000 m.
bool valida(const Linea& linea);

/// "LAT,LON,HEADING" or "LAT,LON,HEADING,WIDTH"; nothing for any other text.
std::optional<Linea> leggi_linea(std::string_view testo);

/// The text that reads back as a line; its width only where it is not the usual one.
std::string testo(const Linea& linea);

}  // namespace kel_registrazioni

#endif
