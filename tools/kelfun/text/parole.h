// Texts taken apart.
#ifndef KELFUN_TEXT_PAROLE_H
#define KELFUN_TEXT_PAROLE_H

#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// What stands between the separators: an empty text between two in a row, nothing after the last. Of an empty text it
/// is one empty text.
std::vector<std::string> dividi(std::string_view testo, char separatore);

/// Small letters, words apart by one blank: "FID_OBJ_OIL", "Front-Left" are "fid obj oil", "front left".
std::string normale(std::string_view testo);

/// Texts one after the other: "km/h, mph".
template <typename Testi>
std::string elenco(const Testi& testi) {
    std::string tutti;
    for (const auto& testo : testi)
        tutti += (tutti.empty() ? "" : ", ") + testo;
    return tutti;
}

/// Without the blanks, tabs and line ends around it.
std::string senza_bordi(std::string_view testo);

}  // namespace kel::strumento

#endif
