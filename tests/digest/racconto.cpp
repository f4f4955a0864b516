#include "racconto.h"

#include <cinttypes>
#include <cstdio>

namespace digest {

void Racconto::voce(const char* voce) {
    if (piena_)
        return;
    const std::size_t resto = sizeof riga_ - lunga_;
    const char* const separa = lunga_ == 0 ? "" : ", ";
    const int scritti = std::snprintf(riga_ + lunga_, resto, "%s%s", separa, voce);
    piena_ = scritti < 0 || static_cast<std::size_t>(scritti) + 6 > resto;
    if (piena_)
        std::snprintf(riga_ + lunga_, resto, "...");
    else
        lunga_ += static_cast<std::size_t>(scritti);
}

void Racconto::numero(std::uint64_t valore) {
    char testo[24];
    std::snprintf(testo, sizeof testo, "%" PRIu64, valore);
    voce(testo);
}

void Racconto::segno(std::int64_t valore) {
    char testo[24];
    std::snprintf(testo, sizeof testo, "%" PRId64, valore);
    voce(testo);
}

void Racconto::esadecimale(std::uint32_t valore) {
    char testo[16];
    std::snprintf(testo, sizeof testo, "0x%08" PRIX32, valore);
    voce(testo);
}

void Racconto::reale(float valore) {
    char testo[32];
    std::snprintf(testo, sizeof testo, "%.9g", static_cast<double>(valore));
    voce(testo);
}

void Racconto::testo(std::string_view testo) {
    constexpr std::size_t mostrati = 60;
    char scritto[4 * mostrati + 8] = "\"";
    std::size_t lungo = 1;
    for (const char c : testo.substr(0, mostrati)) {
        const auto codice = static_cast<unsigned char>(c);
        const char* const formato = codice < 0x20 || codice > 0x7E || c == '"' || c == '\\' ? "\\x%02X" : "%c";
        lungo += static_cast<std::size_t>(std::snprintf(scritto + lungo, sizeof scritto - lungo, formato, codice));
    }
    std::snprintf(scritto + lungo, sizeof scritto - lungo, "%s\"", testo.size() > mostrati ? "..." : "");
    voce(scritto);
}

void Racconto::byte(const void* dove, std::size_t quanti) {
    constexpr std::size_t mostrati = 16;
    const auto* byte = static_cast<const unsigned char*>(dove);
    char scritto[2 * mostrati + 32] = "";
    std::size_t lungo = 0;
    for (std::size_t i = 0; i < quanti && i < mostrati; i++)
        lungo += static_cast<std::size_t>(std::snprintf(scritto + lungo, sizeof scritto - lungo, "%02x", byte[i]));
    if (quanti > mostrati)
        std::snprintf(scritto + lungo, sizeof scritto - lungo, "... (%zu bytes)", quanti);
    voce(scritto);
}

}  // namespace digest
