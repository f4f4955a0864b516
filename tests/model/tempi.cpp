#include "model/tempi.h"

#include <iomanip>
#include <locale>
#include <sstream>

namespace modello {

std::string tempo(std::int32_t millisecondi) {
    const std::int32_t ore = millisecondi / 3600000;
    const auto resto = static_cast<std::uint32_t>(millisecondi - ore * 3600000);
    const std::uint32_t minuti = resto / 60000;
    const std::uint32_t sotto = resto - minuti * 60000;
    const std::uint32_t secondi = sotto / 1000;
    const std::uint32_t millesimi = sotto - secondi * 1000;

    std::ostringstream flusso;
    flusso.imbue(std::locale::classic());
    flusso << std::setfill('0');
    if (ore != 0)
        flusso << static_cast<std::uint32_t>(ore) << ":" << std::setw(2) << minuti << ":" << std::setw(2) << secondi;
    else
        flusso << minuti << ":" << std::setw(2) << secondi << "." << std::setw(3) << millesimi;
    return flusso.str();
}

std::string riga_giro(std::int32_t numero, std::int32_t millisecondi) {
    std::ostringstream flusso;
    flusso.imbue(std::locale::classic());
    flusso << std::setw(3) << numero << " - " << tempo(millisecondi);
    return flusso.str();
}

std::int32_t leggi_tempo(const std::string& testo) {
    std::istringstream flusso(testo);
    flusso.imbue(std::locale::classic());
    std::uint32_t campo = 0;
    char separatore = 0;
    flusso >> campo;
    const std::uint32_t a = campo;
    flusso.get(separatore);
    flusso >> campo;
    const std::uint32_t b = campo;
    flusso.get(separatore);
    flusso >> campo;
    const std::uint32_t c = campo;
    if (testo.find('.') != std::string::npos)
        return static_cast<std::int32_t>(a * 60000U + b * 1000U + c);
    return static_cast<std::int32_t>(a * 3600000U + b * 60000U + c * 1000U);
}

Giro leggi_giro(const std::string& testo) {
    std::istringstream flusso(testo);
    flusso.imbue(std::locale::classic());
    Giro giro{0, std::nullopt};
    flusso >> giro.numero;
    if (testo.size() >= 6)
        giro.tempo = leggi_tempo(testo.substr(6));
    return giro;
}

}  // namespace modello
