// Lap times and lap numbers as texts, both ways, with standard streams.
#ifndef KEL_MODELLO_TEMPI_H
#define KEL_MODELLO_TEMPI_H

#include <cstdint>
#include <optional>
#include <string>

namespace modello {

std::string tempo(std::int32_t millisecondi);
std::string riga_giro(std::int32_t numero, std::int32_t millisecondi);

std::int32_t leggi_tempo(const std::string& testo);

struct Giro {
    std::int32_t numero;
    std::optional<std::int32_t> tempo;  // without value: the text is too short, which is thrown
};
Giro leggi_giro(const std::string& testo);

}  // namespace modello

#endif
