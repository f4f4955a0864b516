// Where a unit stands in the unit table of its quantity, by its text: a hash of the first three characters.
//
// Each row of the quantity table has 16 places; at the place of a text stands the number of a unit. The look-up
// compares that unit's text first and then those behind it. The first comparison finds every unit but two, where a
// search from the first unit on compares up to seven texts. A text that is no unit has a place too, and is then found
// nowhere.
#ifndef KEL_TABLES_POSTI_UDM_H
#define KEL_TABLES_POSTI_UDM_H

#include <cstdint>

#include "tables/righe_grandezze.h"

namespace kel {

inline constexpr unsigned POSTI_PER_GRANDEZZA = 16;

// The place of a text. It is computed without branches, because the units asked for follow in no order that a processor
// could predict.
constexpr unsigned posto_udm(const char* testo) noexcept {
    const auto numero = [](char c) { return unsigned{static_cast<unsigned char>(c)}; };
    // A text of one or two characters: its NUL stands for the characters that it does not have.
    const char* const secondo = testo + (*testo != '\0' ? 1 : 0);
    const char* const terzo = secondo + (*secondo != '\0' ? 1 : 0);
    return (numero(*testo) + 3 * numero(*secondo) + numero(*terzo)) / 2 % POSTI_PER_GRANDEZZA;
}

// For every row of the quantity table the unit at each place. Where units have the same place, it is the first of them;
// at a place that no unit has, it is the base unit.
struct PostiUdm {
    std::uint8_t udm[RIGA_FINE_GRANDEZZE][POSTI_PER_GRANDEZZA];
};

[[gnu::visibility("hidden")]] extern const PostiUdm POSTI_UDM;

}  // namespace kel

#endif
