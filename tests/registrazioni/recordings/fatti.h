// Channel records and samples made up here.
#ifndef KEL_TEST_REGISTRAZIONI_FATTI_H
#define KEL_TEST_REGISTRAZIONI_FATTI_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "kelfunzioni.h"

namespace fatti {

using Byte = std::vector<std::uint8_t>;

template <typename Intero>
void metti(Byte& byte, std::size_t da, Intero valore) {
    for (std::size_t i = 0; i < sizeof valore; ++i)
        byte[da + i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(valore) >> 8 * i);
}

template <typename Intero>
void aggiungi(Byte& byte, Intero valore) {
    byte.resize(byte.size() + sizeof valore);
    metti(byte, byte.size() - sizeof valore, valore);
}

/// Adds a channel behind those that are there, its samples behind theirs.
inline void canale(Byte& canali, kel_funpos fid, std::uint32_t tipo, std::string_view nome) {
    std::uint32_t offset = 0;
    for (std::size_t i = 72; i < canali.size(); i += 112)
        offset += canali[i];
    Byte uno(112);
    metti(uno, 12, fid);
    metti(uno, 20, tipo);
    std::copy(nome.begin(), nome.end(), uno.begin() + 32);
    metti(uno, 68, offset);
    metti(uno, 72, std::uint32_t{kelFunGetSamplSize(tipo)});
    canali.insert(canali.end(), uno.begin(), uno.end());
}

/// A channel alone.
inline Byte canale(kel_funpos fid, std::uint32_t tipo, std::string_view nome) {
    Byte uno;
    canale(uno, fid, tipo, nome);
    return uno;
}

}  // namespace fatti

#endif
