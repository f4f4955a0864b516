// Memory that is asked for before anything changes.
#ifndef KEL_REGISTRAZIONI_POSTO_H
#define KEL_REGISTRAZIONI_POSTO_H

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kel_registrazioni {

/// Room for one element more, so that the next push_back cannot fail.
template <typename Elemento>
void fai_posto(std::vector<Elemento>& elementi) {
    constexpr std::size_t PRIMI = 16;
    if (elementi.size() == elementi.capacity())
        elementi.reserve(std::max(PRIMI, 2 * elementi.size()));
}

}  // namespace kel_registrazioni

#endif
