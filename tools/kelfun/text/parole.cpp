#include "text/parole.h"

namespace kel::strumento {

std::vector<std::string> dividi(std::string_view testo, char separatore) {
    std::vector<std::string> parti;
    do {
        const std::size_t fine = testo.find(separatore);
        parti.emplace_back(testo.substr(0, fine));
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    } while (!testo.empty());
    return parti;
}

std::string senza_bordi(std::string_view testo) {
    constexpr std::string_view bianchi = " \t\n\v\f\r";
    const std::size_t inizio = testo.find_first_not_of(bianchi);
    if (inizio == std::string_view::npos)
        return "";
    return std::string(testo.substr(inizio, testo.find_last_not_of(bianchi) - inizio + 1));
}

std::string normale(std::string_view testo) {
    std::string uscita;
    for (const char c : testo) {
        if (c == ' ' || c == '_' || c == '-')
            uscita += uscita.empty() || uscita.back() == ' ' ? "" : " ";
        else
            uscita += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!uscita.empty() && uscita.back() == ' ')
        uscita.pop_back();
    return uscita;
}

}  // namespace kel::strumento
