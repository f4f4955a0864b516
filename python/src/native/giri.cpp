// Lap times as texts, for Python.
#include <stdexcept>

#include "CLaptimeAndStrings.h"
#include "domain/tempo_scritto.h"
#include "risposta.h"

using kel::python::Json;
using kel::python::rispondi;

namespace {

// Where people mean another time than the library reads, what there is to say of it.
Json letto(int numero, int tempo, const std::optional<std::string>& avviso) {
    return {{"number", numero}, {"ms", tempo}, {"warning", avviso ? Json(*avviso) : Json()}};
}

}  // namespace

KELPYTHON_API char* kelpy_scrivi_tempo(int ms) {
    return rispondi([&] {
        const auto avviso = kel::strumento::avviso_scrittura(ms);
        return Json{{"text", CLaptimeAndStrings::LapTimeToStringa(ms)}, {"warning", avviso ? Json(*avviso) : Json()}};
    });
}

KELPYTHON_API char* kelpy_scrivi_riga(int numero, int ms) {
    return rispondi([&] {
        const auto avviso = kel::strumento::avviso_scrittura(ms);
        return Json{{"text", CLaptimeAndStrings::LapNumAndTimeToStringa(numero, ms)},
                    {"warning", avviso ? Json(*avviso) : Json()}};
    });
}

KELPYTHON_API char* kelpy_leggi_tempo(const char* testo) {
    return rispondi([&] {
        const int ms = CLaptimeAndStrings::StringaToLapTime(testo);
        return letto(0, ms, kel::strumento::avviso_lettura(testo, ms));
    });
}

KELPYTHON_API char* kelpy_leggi_riga(const char* testo) {
    return rispondi([&] {
        int numero = 0;
        int ms = 0;
        try {
            CLaptimeAndStrings::StringaToLapNumAndTime(testo, numero, ms);
        } catch (const std::out_of_range&) {
            throw kel::strumento::ErroreUso("'" + std::string(testo) +
                                            "' is no line of a lap list; accepted: number, hyphen, time, such as "
                                            "'  7 - 1:23.456'");
        }
        return letto(numero, ms, kel::strumento::avviso_riga(testo, numero, ms));
    });
}
