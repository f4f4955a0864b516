// Numbers to texts of a width, as the peers write them.
#ifndef KEL_BENCH_SCRITTURE_H
#define KEL_BENCH_SCRITTURE_H

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>

#ifdef KEL_PARI_FMT
#include <fmt/compile.h>
#include <fmt/format.h>
#endif
#ifdef KEL_PARI_DOUBLE_CONVERSION
#include <double-conversion/double-conversion.h>
#endif
#ifdef KEL_PARI_ABSL
#include <absl/strings/str_format.h>
#endif

#include "comune/convertitore.h"
#include "comune/prova.h"

namespace prova {

/// Characters of a text, the point counted.
constexpr unsigned caratteri(const Forma& forma) {
    return forma.larghezza + (forma.decimali != 0 ? 1 : 0);
}

/// Moves a text of `lunghezza` characters to the right end of the form's and closes it.
inline void allinea(char* testo, std::size_t lunghezza, const Forma& forma) {
    const std::size_t tutti = caratteri(forma);
    if (lunghezza < tutti) {
        std::memmove(testo + (tutti - lunghezza), testo, lunghezza);
        std::memset(testo, ' ', tutti - lunghezza);
        lunghezza = tutti;
    }
    testo[lunghezza] = '\0';
}

inline void con_snprintf(char* testo, float valore, const Forma& forma) {
    std::snprintf(testo, 32, "%*.*f", static_cast<int>(caratteri(forma)), static_cast<int>(forma.decimali),
                  static_cast<double>(valore));
}

inline void con_to_chars(char* testo, float valore, const Forma& forma) {
    const auto fine =
        std::to_chars(testo, testo + 31, valore, std::chars_format::fixed, static_cast<int>(forma.decimali)).ptr;
    allinea(testo, static_cast<std::size_t>(fine - testo), forma);
}

#ifdef KEL_PARI_FMT
/// The form known when the client is compiled.
template <unsigned Larghezza, unsigned Decimali>
struct FormatoFisso : fmt::detail::compiled_string {
    using char_type = char;
    static constexpr char CARATTERI[] = {'{', ':', '0' + Larghezza + (Decimali != 0 ? 1 : 0), '.', '0' + Decimali,
                                         'f', '}'};
    explicit constexpr operator fmt::string_view() const { return {CARATTERI, sizeof CARATTERI}; }
};

template <unsigned Larghezza, unsigned Decimali>
void con_fmt_fisso(char* testo, float valore) {
    *fmt::format_to(testo, FormatoFisso<Larghezza, Decimali>(), valore) = '\0';
}

/// The form known when the program runs.
inline void con_fmt(char* testo, float valore, const Forma& forma) {
    *fmt::format_to(testo, FMT_COMPILE("{:{}.{}f}"), valore, caratteri(forma), forma.decimali) = '\0';
}
#endif

#ifdef KEL_PARI_DOUBLE_CONVERSION
inline void con_double_conversion(char* testo, float valore, const Forma& forma) {
    const auto& conversione = double_conversion::DoubleToStringConverter::EcmaScriptConverter();
    double_conversion::StringBuilder costruttore(testo, 32);
    conversione.ToFixed(static_cast<double>(valore), static_cast<int>(forma.decimali), &costruttore);
    const auto lunghezza = static_cast<std::size_t>(costruttore.position());
    costruttore.Finalize();
    allinea(testo, lunghezza, forma);
}
#endif

#ifdef KEL_PARI_ABSL
inline void con_absl(char* testo, float valore, const Forma& forma) {
    absl::SNPrintF(testo, 32, "%*.*f", caratteri(forma), forma.decimali, valore);
}
#endif

/// Registers the peers that every numeric text has. `valore` gives the number that an input stands for.
template <typename Ingresso, typename Valore, typename DellaForma>
void pari_testo(const std::string& riga, const Ingressi<Ingresso>& ingressi, Valore valore, DellaForma forma) {
    const auto con = [&](const char* nome, void (*scrive)(char*, float, const Forma&)) {
        serie(riga, Ruolo::pari, nome, ingressi, [=](const Ingresso& ingresso) {
            Testo testo;
            scrive(testo.data(), valore(ingresso), forma(ingresso));
            return testo;
        });
    };
    con("snprintf", con_snprintf);
    con("to_chars", con_to_chars);
#ifdef KEL_PARI_DOUBLE_CONVERSION
    con("double-conversion", con_double_conversion);
#endif
#ifdef KEL_PARI_ABSL
    con("absl", con_absl);
#endif
}

}  // namespace prova

#endif
