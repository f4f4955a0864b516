#include "text/mostrabile.h"

#include <algorithm>
#include <cstdint>

namespace kel::strumento {

namespace {

// Bytes of the UTF-8 character that a text begins with, and its code; none for anything else, such as a longer form of a
// shorter character, which could hide a control character (Unicode 15, table 3-7).
struct Carattere {
    std::size_t byte = 0;
    std::uint32_t codice = 0;
};

Carattere primo(std::string_view testo) {
    static constexpr std::uint32_t MINIMI[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto inizio = static_cast<std::uint8_t>(testo.front());
    if (inizio < 0x80)
        return {1, inizio};
    const std::size_t byte = inizio >= 0xF0 ? 4 : inizio >= 0xE0 ? 3 : 2;
    if (inizio < 0xC0 || inizio >= 0xF8 || testo.size() < byte)
        return {};
    std::uint32_t codice = inizio & (0x7Fu >> byte);
    for (const char c : testo.substr(1, byte - 1)) {
        if ((static_cast<std::uint8_t>(c) & 0xC0) != 0x80)
            return {};
        codice = codice << 6 | (static_cast<std::uint8_t>(c) & 0x3F);
    }
    const bool surrogato = codice >= 0xD800 && codice < 0xE000;
    if (codice < MINIMI[byte] || codice > 0x10FFFF || surrogato)
        return {};
    return {byte, codice};
}

bool diControllo(std::uint32_t codice) {
    return codice < 0x20 || (codice >= 0x7F && codice < 0xA0);
}

}  // namespace

std::string mostrabile(std::string_view testo) {
    std::string uscita;
    while (!testo.empty()) {
        const Carattere carattere = primo(testo);
        if (carattere.byte == 0 || diControllo(carattere.codice))
            uscita += '?';
        else
            uscita += testo.substr(0, carattere.byte);
        testo.remove_prefix(std::max<std::size_t>(carattere.byte, 1));
    }
    return uscita;
}

}  // namespace kel::strumento
