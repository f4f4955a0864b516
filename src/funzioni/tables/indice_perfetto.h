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
#include <cstring>
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

// The key of a text: its length and four of its characters, which tell legacy identifiers and units apart.
constexpr std::uint32_t chiave_testo(std::string_view testo) noexcept {
    const std::size_t n = testo.size();
    if (n == 0)
        return 0;
    const auto byte = [testo](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(testo[i])}; };
    return (static_cast<std::uint32_t>(n) + byte(0)) | byte(n - 1) << 8 | byte(n > 1 ? n - 2 : 0) << 16 |
           byte(n / 2) << 24;
}

// Which row of a table has a text. Lengths are kept, so that of texts that differ in length no character is compared.
template <std::size_t Posti, std::size_t Righe>
struct IndiceTesti {
    IndicePerfetto<Posti> chiavi;
    std::uint8_t lunghezze[Righe] = {};

    // The only row that may have the text.
    constexpr std::size_t riga(std::string_view testo) const noexcept { return chiavi.riga(chiave_testo(testo)); }

    // Whether it has: `della_riga` is the row's text.
    bool uguale(std::size_t riga, const char* della_riga, std::string_view testo) const noexcept {
        return testo.size() == lunghezze[riga] && std::memcmp(testo.data(), della_riga, testo.size()) == 0;
    }
};

template <std::size_t Posti, std::size_t N>
consteval IndiceTesti<Posti, N> indice_testi(const std::array<std::string_view, N>& testi) {
    std::array<std::uint32_t, N> chiavi = {};
    IndiceTesti<Posti, N> indice;
    for (std::size_t i = 0; i < N; ++i) {
        chiavi[i] = chiave_testo(testi[i]);
        indice.lunghezze[i] = static_cast<std::uint8_t>(testi[i].size());
    }
    indice.chiavi = indice_perfetto<Posti>(chiavi);
    return indice;
}

}  // namespace kel

#endif
