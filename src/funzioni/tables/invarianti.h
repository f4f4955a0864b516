// Rules that the tables keep; the compiler proves them.
#ifndef KEL_TABLES_INVARIANTI_H
#define KEL_TABLES_INVARIANTI_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

#include "kelfunzioni.h"
#include "tables/fid.h"

namespace kel {

// Displays know ASCII only, and their fields have a fixed width.
constexpr bool ascii(const char* testo, std::size_t lunghezza_max) {
    const std::string_view vista(testo);
    for (const char c : vista)
        if (c < ' ' || c > '~')
            return false;
    return vista.size() <= lunghezza_max;
}

template <typename Riga, std::size_t N>
constexpr bool testi_entro(const Riga (&tabella)[N], const char* Riga::*testo, std::size_t lunghezza_max) {
    for (const Riga& riga : tabella)
        if (!ascii(riga.*testo, lunghezza_max))
            return false;
    return true;
}

// Whether no two rows have the same value of a field, texts compared by their characters. `campo`: a member, or a
// function of the row.
template <typename Riga, std::size_t N, typename Campo>
constexpr bool valori_unici(const Riga (&tabella)[N], Campo campo) {
    const auto valore = [&](std::size_t i) {
        const auto letto = std::invoke(campo, tabella[i]);
        if constexpr (std::is_same_v<decltype(letto), const char* const>)
            return std::string_view(letto);
        else
            return letto;
    };
    for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (valore(i) == valore(j))
                return false;
    return true;
}

// A look-up by value takes the row of that index.
template <typename Riga, std::size_t N>
constexpr bool indice_uguale_valore(const Riga (&tabella)[N], std::int32_t Riga::*valore) {
    for (std::size_t i = 0; i < N; ++i)
        if (tabella[i].*valore != static_cast<std::int32_t>(i))
            return false;
    return true;
}

// --- Field descriptors ---------------------------------------------------------------------------------------------

// Row i has value i, and an XML name of its own that begins with the field's prefix. Abbreviations have room for 6
// characters and texts for 16; XML names are written to files and need no limit but one that catches a slip.
template <std::size_t N>
constexpr bool campo_in_regola(const s_campo_fid (&tabella)[N], std::string_view prefisso) {
    for (const s_campo_fid& riga : tabella)
        if (!std::string_view(riga.xml).starts_with(prefisso))
            return false;
    return indice_uguale_valore(tabella, &s_campo_fid::valore) && valori_unici(tabella, &s_campo_fid::xml) &&
           testi_entro(tabella, &s_campo_fid::xml, 40) && testi_entro(tabella, &s_campo_fid::breve, 6) &&
           testi_entro(tabella, &s_campo_fid::testo, 16);
}

// --- Tables keyed by an identifier ---------------------------------------------------------------------------------

// A search row by row ends at the first end row: it must be there, and nothing may stand behind it.
template <typename Riga, std::size_t N>
constexpr bool fine_solo_in_fondo(const Riga (&tabella)[N], kel_funpos Riga::*chiave) {
    for (std::size_t i = 0; i < N; ++i)
        if ((kelFidFineTabella(tabella[i].*chiave) != 0) != (i == N - 1))
            return false;
    return true;
}

// Every row but the end row names a quantity, object and position that have descriptors.
template <typename Riga, std::size_t N>
constexpr bool chiavi_note(const Riga (&tabella)[N], kel_funpos Riga::*chiave) {
    for (std::size_t i = 0; i + 1 < N; ++i)
        if (!campi_noti(tabella[i].*chiave))
            return false;
    return true;
}

// What every table keeps whose rows are found by an identifier.
template <typename Riga, std::size_t N>
constexpr bool chiavi_in_regola(const Riga (&tabella)[N], kel_funpos Riga::*chiave) {
    return fine_solo_in_fondo(tabella, chiave) && valori_unici(tabella, chiave) && chiavi_note(tabella, chiave);
}

}  // namespace kel

#endif
