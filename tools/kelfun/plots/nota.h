// What a plot leaves out, said below it.
#ifndef KELFUN_PLOTS_NOTA_H
#define KELFUN_PLOTS_NOTA_H

#include <cstddef>
#include <string>
#include <vector>

namespace kel::strumento {

/// A line with a list of names in it, which can be cut short where there is little room: "not drawn: a, b and 7 more".
struct Nota {
    std::string prima;
    std::vector<std::string> nomi;
    std::string dopo;

    /// As many names as fit into so many characters, one at least.
    std::string testo(std::size_t caratteri) const;
    /// With all names.
    std::string testo() const { return testo(static_cast<std::size_t>(-1)); }
};

}  // namespace kel::strumento

#endif
