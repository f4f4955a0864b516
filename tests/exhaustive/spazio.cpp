#include "exhaustive/spazio.h"

#include <bit>
#include <cstdio>

namespace esaustivo {

std::string esadecimale(std::uint32_t numero) {
    char testo[16];
    std::snprintf(testo, sizeof testo, "0x%08X", numero);
    return testo;
}

std::string Conta::citato(std::string_view testo) {
    std::string uscita = "\"";
    for (const char c : testo) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '"' && c != '\\') {
            uscita += c;
        } else {
            char fuga[8];
            std::snprintf(fuga, sizeof fuga, "\\x%02X", static_cast<unsigned>(byte));
            uscita += fuga;
        }
    }
    return uscita + "\"";
}

std::string Conta::esatto(float numero) {
    char testo[64];
    std::snprintf(testo, sizeof testo, "%.9g (0x%08X)", static_cast<double>(numero),
                  std::bit_cast<std::uint32_t>(numero));
    return testo;
}

}  // namespace esaustivo
