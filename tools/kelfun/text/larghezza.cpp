#include "text/larghezza.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "text/utf8.h"

namespace kel::strumento {

namespace {

struct Intervallo {
    std::uint32_t da;
    std::uint32_t a;
};

// Blocks of marks over the character before, and of characters that show nothing (Unicode 15).
constexpr Intervallo SENZA_LARGHEZZA[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
};

// Blocks that are wide in a terminal (Unicode 15, annex 11, East Asian width W and F).
constexpr Intervallo DOPPI[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xA960, 0xA97F}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

template <std::size_t N>
bool compreso(std::uint32_t codice, const Intervallo (&intervalli)[N]) {
    return std::any_of(std::begin(intervalli), std::end(intervalli),
                       [codice](const Intervallo& i) { return i.da <= codice && codice <= i.a; });
}

}  // namespace

std::vector<Glifo> glifi(std::string_view testo) {
    std::vector<Glifo> tutti;
    while (!testo.empty()) {
        const Carattere carattere = primo_carattere(testo);
        const std::string byte(testo.substr(0, std::max<std::size_t>(carattere.byte, 1)));
        testo.remove_prefix(byte.size());
        if (!compreso(carattere.codice, SENZA_LARGHEZZA))
            tutti.push_back({byte, compreso(carattere.codice, DOPPI) ? 2 : 1});
        else if (!tutti.empty())
            tutti.back().byte += byte;
    }
    return tutti;
}

int larghezza_testo(std::string_view testo) {
    if (std::all_of(testo.begin(), testo.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x80; }))
        return static_cast<int>(testo.size());  // long tables have millions of such texts
    int colonne = 0;
    for (const Glifo& glifo : glifi(testo))
        colonne += glifo.colonne;
    return colonne;
}

std::vector<std::string> a_capo(std::string_view testo, int colonne) {
    std::vector<std::string> righe(1);
    int libere = colonne;
    for (const Glifo& glifo : glifi(testo)) {
        if (glifo.colonne > libere && !righe.back().empty()) {
            std::string& riga = righe.back();
            // The word that does not fit goes down, unless it began the line.
            const std::size_t spazio = glifo.byte == " " ? std::string::npos : riga.rfind(' ');
            std::string resto = spazio == std::string::npos ? "" : riga.substr(spazio + 1);
            if (spazio != std::string::npos)
                riga.erase(spazio);
            libere = colonne - larghezza_testo(resto);
            righe.push_back(std::move(resto));
            if (glifo.byte == " ")
                continue;
        }
        righe.back() += glifo.byte;
        libere -= glifo.colonne;
    }
    return righe;
}

}  // namespace kel::strumento
