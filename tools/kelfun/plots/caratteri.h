// The characters that a picture can show.
#ifndef KELFUN_PLOTS_CARATTERI_H
#define KELFUN_PLOTS_CARATTERI_H

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plots/grafico.h"

namespace kel::strumento {

/// Characters, as ranges of their codes.
class Caratteri {
public:
    /// Sets of fontconfig, one a line: "20-7e a0 1f3c1", hexadecimal. What is no range is left out.
    explicit Caratteri(std::string_view insiemi);

    bool ha(std::uint32_t codice) const;
    bool vuoti() const { return intervalli_.empty(); }

private:
    std::vector<std::pair<std::uint32_t, std::uint32_t>> intervalli_;
};

/// Replaces in all texts of a plot the characters that are not among these by "?".
/// @return  what was replaced, each once.
std::vector<std::string> togli_mancanti(Grafico& grafico, const Caratteri& caratteri);

/// The same for the characters that no font of this machine has. The library that draws PNG and PDF would draw a box
/// for each, which may be larger than the picture. Without fontconfig the fonts are not known, and nothing is replaced.
std::vector<std::string> togli_senza_font(Grafico& grafico);

}  // namespace kel::strumento

#endif
