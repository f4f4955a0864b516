// Which row of a table has a key: a perfect hash, which the compiler computes from the table.
//
// The key is multiplied by an odd number, modulo 2^32. The upper bits of the product are a place in the index, and
// there stands the number of the row. For 128 places:
//
//     key * factor:   bits 31..25 place | bits 24..0 not used
//
// The factor is the first of a pseudo-random sequence for which no two keys of the table have the same place. A look-up
// is so two loads and one comparison, where a search compares with up to 43 rows. A key that is not in the table has a
// place too, and leads to some row: so the caller compares the key with that row's.
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

// Gives every key its place; false when two different keys have the same. The rows go from the last to the first, so
// that of equal keys the first row's number stays: the one that a search row by row finds.
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

// The key of a text: 32 bits made of its length and four of its characters. That is enough to give the texts of every
// table different keys. If it ever is not, there is no factor to find, and the compiler gives up the search with an
// error.
//
//     bits 31..24 middle | 23..16 last but one | 15..8 last | 7..0 first, plus the length
constexpr std::uint32_t chiave_testo(std::string_view testo) noexcept {
    const std::size_t n = testo.size();
    if (n == 0)
        return 0;
    const auto byte = [testo](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(testo[i])}; };
    return (static_cast<std::uint32_t>(n) + byte(0)) | byte(n - 1) << 8 | byte(n > 1 ? n - 2 : 0) << 16 |
           byte(n / 2) << 24;
}

// Which row of a table has a text. The lengths of the rows' texts are kept, so that the characters are compared only
// where the lengths are equal.
template <std::size_t Posti, std::size_t Righe>
struct IndiceTesti {
    IndicePerfetto<Posti> chiavi;
    std::uint8_t lunghezze[Righe] = {};

    // The only row that can have the text.
    constexpr std::size_t riga(std::string_view testo) const noexcept { return chiavi.riga(chiave_testo(testo)); }

    // Whether that row has it. `della_riga`: the row's text.
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

// The keys of all rows, in the order of the rows. `chiave`: the key of the row of a number.
template <std::size_t N, typename Chiave>
consteval auto raccogli(Chiave chiave) {
    std::array<decltype(chiave(std::size_t{})), N> chiavi = {};
    for (std::size_t i = 0; i < N; ++i)
        chiavi[i] = chiave(i);
    return chiavi;
}

// Whether an index finds for each key the first row that has it, as a search row by row does.
template <typename Indice, typename Chiave, std::size_t N>
consteval bool come_la_scansione(const Indice& indice, const std::array<Chiave, N>& chiavi) {
    for (const Chiave& chiave : chiavi) {
        std::size_t prima = 0;
        while (chiavi[prima] != chiave)
            ++prima;
        if (indice.riga(chiave) != prima)
            return false;
    }
    return true;
}

}  // namespace kel

#endif
