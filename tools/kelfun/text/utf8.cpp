#include "text/utf8.h"

namespace kel::strumento {

Carattere primo_carattere(std::string_view testo) {
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

}  // namespace kel::strumento
