// The lap time texts as a string stream makes and reads them: slow, and what the library must agree with to the byte.
#ifndef KEL_TEST_MODELLO_FLUSSO_H
#define KEL_TEST_MODELLO_FLUSSO_H

#include <cstdint>
#include <iomanip>
#include <locale>
#include <sstream>
#include <string>

namespace kel_test {

inline std::string ModelloTempo(int tempo) {
    const int ore = tempo / 3600000;
    const auto resto = static_cast<std::uint32_t>(tempo - ore * 3600000);
    const std::uint32_t minuti = resto / 60000;
    const std::uint32_t secondi = (resto - minuti * 60000) / 1000;
    const std::uint32_t millesimi = resto - minuti * 60000 - secondi * 1000;
    std::ostringstream flusso;
    flusso.imbue(std::locale::classic());
    flusso << std::setfill('0');
    if (ore != 0) {
        flusso << static_cast<std::uint32_t>(ore) << ':' << std::setw(2) << minuti << ':' << std::setw(2) << secondi;
    } else {
        flusso << minuti << ':' << std::setw(2) << secondi << '.' << std::setw(3) << millesimi;
    }
    return flusso.str();
}

inline std::string ModelloRiga(int numero, int tempo) {
    std::ostringstream flusso;
    flusso.imbue(std::locale::classic());
    flusso << std::setw(3) << numero << " - " << ModelloTempo(tempo);
    return flusso.str();
}

inline int ModelloLeggiTempo(const std::string& testo) {
    std::istringstream flusso(testo);
    flusso.imbue(std::locale::classic());
    std::uint32_t campo = 0;
    std::uint32_t campi[3];
    for (int i = 0; i < 3; ++i) {
        if (i > 0) {
            flusso.get();
        }
        flusso >> campo;
        campi[i] = campo;
    }
    const bool punto = testo.find('.') != std::string::npos;
    const std::uint32_t somma = punto ? campi[0] * 60000u + campi[1] * 1000u + campi[2]
                                      : campi[0] * 3600000u + campi[1] * 60000u + campi[2] * 1000u;
    return static_cast<int>(somma);
}

inline int ModelloLeggiNumero(const std::string& testo) {
    std::istringstream flusso(testo);
    flusso.imbue(std::locale::classic());
    int numero = 0;
    flusso >> numero;
    return numero;
}

}  // namespace kel_test

#endif
