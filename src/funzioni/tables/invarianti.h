// Rules that the tables keep, proved when they are compiled.
#ifndef KEL_TABLES_INVARIANTI_H
#define KEL_TABLES_INVARIANTI_H

#include <cstddef>
#include <string_view>

#include "kelfunzioni.h"
#include "tables/fid.h"

namespace kel {

// Texts go to displays that know ASCII only, into fields of a fixed width.
constexpr bool ascii(const char* testo, std::size_t lunghezza_max) {
    const std::string_view vista(testo);
    for (const char c : vista)
        if (c < ' ' || c > '~')
            return false;
    return vista.size() <= lunghezza_max;
}

// --- Field descriptors ---------------------------------------------------------------------------------------------

// Look-ups take the row whose index is the value.
template <std::size_t N>
constexpr bool indice_uguale_valore(const s_campo_fid (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        if (tabella[i].valore != static_cast<int>(i))
            return false;
    return true;
}

template <std::size_t N>
constexpr bool xml_unici(const s_campo_fid (&tabella)[N], std::string_view prefisso) {
    for (std::size_t i = 0; i < N; ++i) {
        if (!std::string_view(tabella[i].xml).starts_with(prefisso))
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (std::string_view(tabella[i].xml) == tabella[j].xml)
                return false;
    }
    return true;
}

// Abbreviations fit 6 characters and texts 16; XML names are bounded only by good taste.
template <std::size_t N>
constexpr bool testi_in_misura(const s_campo_fid (&tabella)[N]) {
    for (const s_campo_fid& riga : tabella)
        if (!ascii(riga.xml, 40) || !ascii(riga.breve, 6) || !ascii(riga.testo, 16))
            return false;
    return true;
}

// --- Units ---------------------------------------------------------------------------------------------------------

template <std::size_t N>
constexpr bool decimali_ordinati(const s_udm_associata (&tabella)[N]) {
    for (const s_udm_associata& riga : tabella)
        if (riga.decimali_min < 0 || riga.decimali_min > riga.decimali_default ||
            riga.decimali_default > riga.decimali_max)
            return false;
    return true;
}

// Look-ups by text take the first equal row; conversions divide by the gain.
template <std::size_t N>
constexpr bool unita_distinte(const s_udm_associata (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        const s_converter_data& dati = tabella[i].dati;
        if (!ascii(dati.udm, 7) || !(dati.gain > 0.0f) || (dati.reciproco != 0 && dati.reciproco != 1))
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (std::string_view(dati.udm) == tabella[j].dati.udm)
                return false;
    }
    return true;
}

template <std::size_t N>
constexpr bool base_per_prima(const s_udm_associata (&tabella)[N]) {
    const s_converter_data& base = tabella[0].dati;
    return base.offset == 0.0f && base.gain == 1.0f && base.reciproco == 0;
}

// --- Tables keyed by an identifier ---------------------------------------------------------------------------------

// A walk ends at the marker: it must be there, and nothing may stand behind it.
template <typename Riga, std::size_t N>
constexpr bool fine_solo_in_fondo(const Riga (&tabella)[N], kel_funpos Riga::*chiave) {
    for (std::size_t i = 0; i < N; ++i)
        if ((kelFidFineTabella(tabella[i].*chiave) != 0) != (i == N - 1))
            return false;
    return true;
}

template <typename Riga, std::size_t N>
constexpr bool chiavi_uniche(const Riga (&tabella)[N], kel_funpos Riga::*chiave) {
    for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (tabella[i].*chiave == tabella[j].*chiave)
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

}  // namespace kel

#endif
