#include "common/nomi.h"

#include <algorithm>
#include <iterator>

namespace kel_registrazioni {

namespace {

bool lettera_o_cifra(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

}  // namespace

std::size_t chiave(std::string_view testo, char* dove, std::size_t capienza) {
    std::size_t quanti = 0;
    const auto metti = [&](char c) {
        if (quanti < capienza)
            dove[quanti] = c;
        ++quanti;
    };
    bool staccata = false;  // an underscore is due, if something follows
    for (char c : testo) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (!lettera_o_cifra(c)) {
            staccata = quanti != 0;
            continue;
        }
        if (staccata)
            metti('_');
        staccata = false;
        metti(c);
    }
    return quanti;
}

std::string chiave(std::string_view testo) {
    std::string uscita(testo.size(), '\0');
    uscita.resize(chiave(testo, uscita.data(), uscita.size()));
    return uscita;
}

const char* misura(const char* udm) {
    static constexpr std::string_view SENZA_MISURA[] = {"#", "gear", "Pckt", "Date", "Coord"};
    if (std::ranges::find(SENZA_MISURA, udm) != std::end(SENZA_MISURA))
        return "";
    return std::string_view(udm) == "time" ? "ms" : udm;
}

}  // namespace kel_registrazioni
