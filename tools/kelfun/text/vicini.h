// The right word for a wrong one.
#ifndef KELFUN_TEXT_VICINI_H
#define KELFUN_TEXT_VICINI_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// How many changes of one character, swaps of two neighbours included, make one word of the other. Of the distances of
/// Damerau and Levenshtein the one that changes no place twice.
unsigned distanza(std::string_view a, std::string_view b);

/// The words that a mistyped one may stand for, the nearest first: those with few changes for their length, and those
/// that begin with it. Capitals do not matter, nor whether words stand apart by blanks, underscores or hyphens.
std::vector<std::string> vicini(std::string_view parola, std::span<const std::string> parole, std::size_t quanti);

/// What an error says of the nearest word before it lists what is accepted: "did you mean 'fid'? ", or nothing.
std::string forse(std::string_view parola, std::span<const std::string> parole);

}  // namespace kel::strumento

#endif
