#include "text/mostrabile.h"

#include <algorithm>
#include <cstdint>

#include "text/numeri.h"
#include "text/utf8.h"

namespace kel::strumento {

namespace {

bool di_controllo(std::uint32_t codice) {
    return codice < 0x20 || (codice >= 0x7F && codice < 0xA0);
}

}  // namespace

std::string mostrabile(std::string_view testo) {
    std::string uscita;
    while (!testo.empty()) {
        const Carattere carattere = primo_carattere(testo);
        if (carattere.byte == 0 || di_controllo(carattere.codice))
            for (const char byte : testo.substr(0, std::max<std::size_t>(carattere.byte, 1)))
                uscita += "\\x" + esadecimale(static_cast<std::uint8_t>(byte), 2).substr(2);
        else
            uscita += testo.substr(0, carattere.byte);
        testo.remove_prefix(std::max<std::size_t>(carattere.byte, 1));
    }
    return uscita;
}

}  // namespace kel::strumento
