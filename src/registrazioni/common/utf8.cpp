#include "common/utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kel_registrazioni {

namespace {

// Bytes of the character at the front; 0 where there is none. RFC 3629: neither overlong forms nor surrogates.
std::size_t primo_carattere(std::string_view testo) {
    const auto byte = [&testo](std::size_t i) { return static_cast<std::uint8_t>(testo[i]); };
    const std::uint8_t primo = byte(0);
    const std::size_t quanti = primo < 0x80   ? 1
                               : primo < 0xC2 ? 0
                               : primo < 0xE0 ? 2
                               : primo < 0xF0 ? 3
                               : primo < 0xF5 ? 4
                                              : 0;
    if (quanti < 2 || testo.size() < quanti)
        return quanti < 2 ? quanti : 0;
    const bool lungo = (primo == 0xE0 && byte(1) < 0xA0) || (primo == 0xF0 && byte(1) < 0x90);
    const bool oltre = (primo == 0xED && byte(1) > 0x9F) || (primo == 0xF4 && byte(1) > 0x8F);
    const bool seguono = std::ranges::all_of(testo.substr(1, quanti - 1),
                                             [](char c) { return (static_cast<std::uint8_t>(c) & 0xC0) == 0x80; });
    return seguono && !lungo && !oltre ? quanti : 0;
}

}  // namespace

std::string come_utf8(std::string_view testo) {
    for (std::string_view resto = testo; !resto.empty();) {
        const std::size_t quanti = primo_carattere(resto);
        if (quanti == 0) {
            std::string uscita(testo);
            std::ranges::replace_if(
                uscita, [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; }, '?');
            return uscita;
        }
        resto.remove_prefix(quanti);
    }
    return std::string(testo);
}

}  // namespace kel_registrazioni
