// Which unit of a quantity a text names, in one load: a place for every sum of the text's first three characters.
//
// The caller compares: any other text leads to some row too.
#ifndef KEL_TABLES_POSTI_UDM_H
#define KEL_TABLES_POSTI_UDM_H

#include <cstdint>

#include "tables/righe_grandezze.h"

namespace kel {

inline constexpr unsigned posti_per_grandezza = 16;

// The place of a text. No branch: which unit is asked for cannot be foretold.
constexpr unsigned posto_udm(const char* testo) noexcept {
    const auto numero = [](char c) { return unsigned{static_cast<unsigned char>(c)}; };
    // Where a text has ended, its NUL is read once more.
    const char* const secondo = testo + (*testo != '\0' ? 1 : 0);
    const char* const terzo = secondo + (*secondo != '\0' ? 1 : 0);
    return (numero(*testo) + 3 * numero(*secondo) + numero(*terzo)) / 2 % posti_per_grandezza;
}

// For every row of the quantity table: the unit at each place. A place that units share is the first one's, and one
// that no unit has leads to the base unit.
struct PostiUdm {
    std::uint8_t udm[riga_fine_grandezze][posti_per_grandezza];
};

[[gnu::visibility("hidden")]] extern const PostiUdm posti_udm;

}  // namespace kel

#endif
