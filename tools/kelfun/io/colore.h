// Colours, and whether a stream takes them.
#ifndef KELFUN_IO_COLORE_H
#define KELFUN_IO_COLORE_H

#include <cstdio>
#include <string_view>

namespace kel::strumento {

/// Whether it is a terminal that understands control sequences: not if TERM is "dumb" or not set.
bool capisce_comandi(std::FILE* file);

/// "always", "never", or anything else: a terminal that can show colours, unless NO_COLOR is set and not empty. Only
/// "always" overrides that variable.
bool ammette_colori(std::string_view quando, std::FILE* file);

/// Renditions of ECMA-48, SELECT GRAPHIC RENDITION.
constexpr std::string_view GRASSETTO = "\033[1m";
constexpr std::string_view CIANO = "\033[36m";
constexpr std::string_view ROSSO = "\033[31m";
constexpr std::string_view NORMALE = "\033[0m";

}  // namespace kel::strumento

#endif
