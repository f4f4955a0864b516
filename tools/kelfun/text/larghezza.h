// How much room a text takes on a terminal.
#ifndef KELFUN_TEXT_LARGHEZZA_H
#define KELFUN_TEXT_LARGHEZZA_H

#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// A character with the marks that are written over it, such as accents.
struct Glifo {
    std::string byte;  ///< UTF-8
    int colonne = 1;   ///< 1, or 2 for the wide characters of East Asia
};

/// The characters of a text, which `mostrabile` made fit to be shown.
std::vector<Glifo> glifi(std::string_view testo);

/// Columns that a text takes.
int larghezza_testo(std::string_view testo);

/// A text as lines of at most so many columns, broken at blanks where there are any. One line at least.
std::vector<std::string> a_capo(std::string_view testo, int colonne);

}  // namespace kel::strumento

#endif
