// The rule of the unit tables: the base unit first, each unit once, and every gain the one that its definition gives.
#ifndef KEL_TABLES_UNITA_IN_REGOLA_H
#define KEL_TABLES_UNITA_IN_REGOLA_H

#include <cstddef>

#include "base/aritmetica.h"
#include "kelfunzioni.h"
#include "tables/invarianti.h"

namespace kel {

// A number to six significant figures, which is how the gains of the tables are written: 14.50377 is 14.5038.
constexpr double a_sei_cifre(double numero) {
    double potenza = 1;
    while (numero * potenza < 100000)
        potenza *= 10;
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): gains are positive, and a compiler cannot call lround
    return static_cast<double>(static_cast<long long>(numero * potenza + 0.5)) / potenza;
}
static_assert(a_sei_cifre(14.503773773) == 14.5038 && a_sei_cifre(2.0 / 3) == 0.666667 &&
              a_sei_cifre(100000) == 100000);

// Gains that are shorter than six figures, and the one that is longer, stand as they are.
constexpr bool gain_derivato(float gain, double esatto) {
    return gain == static_cast<float>(a_sei_cifre(esatto)) || gain == static_cast<float>(esatto);
}

constexpr bool decimali_in_ordine(const s_udm_associata& riga) {
    return 0 <= riga.decimali_min && riga.decimali_min <= riga.decimali_default &&
           riga.decimali_default <= riga.decimali_max;
}

// `gain`: of each row, from the definitions: that of the base unit over that of the row's unit.
template <std::size_t N>
constexpr bool unita_in_regola(const s_udm_associata (&tabella)[N], const double (&gain)[N]) {
    // A recorded value is one in the base unit, so the base unit has no offset and is no reciprocal.
    if (tabella[0].dati.offset != 0.0f || tabella[0].dati.reciproco != 0)
        return false;
    for (std::size_t i = 0; i < N; ++i) {
        const s_converter_data& dati = tabella[i].dati;
        if (!ascii(dati.udm, 7) || (dati.reciproco != 0 && dati.reciproco != 1))
            return false;
        // A conversion between two units divides by the gain of the first one.
        if (!(dati.gain > 0.0f) || !gain_derivato(dati.gain, gain[i]))
            return false;
        if (!decimali_in_ordine(tabella[i]))
            return false;
    }
    // A unit is searched for by its text.
    return valori_unici(tabella, [](const s_udm_associata& riga) { return riga.dati.udm; });
}

// A table of the base unit alone.
constexpr bool unita_in_regola(const s_udm_associata (&tabella)[1]) {
    return unita_in_regola(tabella, {1.0});
}

}  // namespace kel

#endif
