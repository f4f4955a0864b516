// How the tests of the catalogue write identifiers and floats in their messages.
#ifndef KEL_TEST_AIUTI_H
#define KEL_TEST_AIUTI_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace attesi {

// A number in hexadecimal; not through a stream, whose locale may group digits.
inline std::string esa(std::uint32_t numero) {
    char testo[16];
    std::snprintf(testo, sizeof testo, "0x%08X", static_cast<unsigned>(numero));
    return testo;
}

// An identifier with its fields, as an engineer reads it.
inline std::string descrivi(std::uint32_t fid) {
    return esa(fid) + " (quantity " + std::to_string(fid & 0x7F) + ", object " + std::to_string(fid >> 7 & 0xFF) +
           ", position " + std::to_string(fid >> 15 & 0x1F) + ")";
}

inline std::uint32_t bit(float valore) {
    return std::bit_cast<std::uint32_t>(valore);
}

inline std::string riga(const char* tabella, std::size_t numero) {
    std::string testo = tabella;
    testo += " row ";
    return testo += std::to_string(numero);
}

}  // namespace attesi

#endif
