// Which row of a table has a key, in two loads: a perfect hash, computed from the table when it is compiled.
//
// A key times an odd number, of which the upper bits are the place of the row's number. The factor is the first of a random
// sequence for which no two keys of the table share a place. Any other key leads to some row too: the caller compares.
#ifndef KEL_TABLES_INDICE_PERFETTO_H
#define KEL_TABLES_INDICE_PERFETTO_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kel {

template <std::size_t Posti>
struct IndicePerfetto {
    static_assert(std::has_single_bit(Posti));

    std::uint32_t moltiplicatore = 0;
    std::uint8_t righe[Posti] = {};

    constexpr std::size_t posto(std::uint32_t chiave) const noexcept {
        return std::uint32_t{chiave * moltiplicatore} >> (33 - std::bit_width(Posti));
    }
    constexpr std::size_t riga(std::uint32_t chiave) const noexcept { return righe[posto(chiave)]; }
};

// Whether the keys find a place each. From the last to the first: of equal keys the first row's stays, as in a walk.
template <std::size_t Posti, std::size_t N>
consteval bool riempi(IndicePerfetto<Posti>& indice, const std::array<std::uint32_t, N>& chiavi) {
    bool occupati[Posti] = {};
    for (std::size_t i = N; i-- > 0;) {
        const std::size_t posto = indice.posto(chiavi[i]);
        if (occupati[posto] && chiavi[indice.righe[posto]] != chiavi[i])
            return false;
        occupati[posto] = true;
        indice.righe[posto] = static_cast<std::uint8_t>(i);
    }
    return true;
}

template <std::size_t Posti, std::size_t N>
consteval IndicePerfetto<Posti> indice_perfetto(const std::array<std::uint32_t, N>& chiavi) {
    static_assert(N <= 0xFF && N < Posti);
    for (std::uint32_t moltiplicatore = 1;; moltiplicatore = moltiplicatore * 747796405 | 1) {
        IndicePerfetto<Posti> indice = {moltiplicatore, {}};
        if (riempi(indice, chiavi))
            return indice;
    }
}

// The key of a text: its length and three of its characters, which tell the legacy identifiers apart.
constexpr std::uint32_t chiave_testo(std::string_view testo) noexcept {
    const std::size_t n = testo.size();
    if (n < 2)
        return static_cast<std::uint32_t>(n);
    const auto byte = [testo](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(testo[i])}; };
    return static_cast<std::uint32_t>(n) | byte(n - 1) << 8 | byte(n - 2) << 16 | byte(n / 2) << 24;
}

}  // namespace kel

#endif
