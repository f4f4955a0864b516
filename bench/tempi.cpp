// Lap times to texts and back.
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#ifdef KEL_PARI_FMT
#include <fmt/compile.h>
#include <fmt/format.h>
#endif
#ifdef KEL_PARI_ABSL
#include <absl/strings/str_format.h>
#endif

#include "CLaptimeAndStrings.h"
#include "comune/funzioni.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

// Laps of 20 seconds to 10 minutes; every sixteenth time is one of more than an hour.
int tempo(Casuale& casuale) {
    const std::uint32_t lungo = sotto(casuale, 16) == 0 ? 3600000 : 0;
    return static_cast<int>(lungo + 20000 + sotto(casuale, 580000));
}

struct Campi {
    unsigned ore;
    unsigned minuti;
    unsigned secondi;
    unsigned millesimi;
};

constexpr Campi campi(int millisecondi) {
    const auto totale = static_cast<unsigned>(millisecondi);
    const unsigned resto = totale % 3600000;
    return {totale / 3600000, resto / 60000, resto % 60000 / 1000, resto % 1000};
}

// Two digits from a table at a time, straight into the string's own buffer.
std::string scritto_a_mano(const int& millisecondi) {
    static const std::string coppie = [] {
        std::string fatte;
        for (char decine = '0'; decine <= '9'; ++decine)
            for (char unita = '0'; unita <= '9'; ++unita)
                fatte += {decine, unita};
        return fatte;
    }();
    const auto coppia = [](std::size_t numero) { return coppie.data() + 2 * numero; };
    const Campi c = campi(millisecondi);
    const std::size_t primo = c.ore != 0 ? c.ore : c.minuti;
    const std::size_t secondo = c.ore != 0 ? c.minuti : c.secondi;
    char testo[12];
    std::size_t n = 0;
    if (primo >= 10)
        testo[n++] = coppia(primo)[0];
    testo[n++] = coppia(primo)[1];
    testo[n++] = ':';
    testo[n++] = coppia(secondo)[0];
    testo[n++] = coppia(secondo)[1];
    testo[n++] = c.ore != 0 ? ':' : '.';
    if (c.ore != 0) {
        testo[n++] = coppia(c.secondi)[0];
        testo[n++] = coppia(c.secondi)[1];
    } else {
        testo[n++] = static_cast<char>('0' + c.millesimi / 100);
        testo[n++] = coppia(c.millesimi % 100)[0];
        testo[n++] = coppia(c.millesimi % 100)[1];
    }
    return {testo, n};
}

std::string con_snprintf(const int& millisecondi) {
    const Campi c = campi(millisecondi);
    char testo[16];
    const int n = c.ore != 0 ? std::snprintf(testo, sizeof testo, "%u:%02u:%02u", c.ore % 100, c.minuti, c.secondi)
                             : std::snprintf(testo, sizeof testo, "%u:%02u.%03u", c.minuti, c.secondi, c.millesimi);
    return {testo, static_cast<std::size_t>(n)};
}

void scrittura() {
    const std::string riga = "lap time to text";
    const auto tempi = genera(tempo);
    concordi(riga, tempi, CLaptimeAndStrings::LapTimeToStringa, scritto_a_mano);
    serie(riga, Ruolo::nostro, "LapTimeToStringa", tempi,
          [](const int& millisecondi) { return CLaptimeAndStrings::LapTimeToStringa(millisecondi); });
    serie(riga, Ruolo::limite, "pairs of digits", tempi, scritto_a_mano);
    serie(riga, Ruolo::pari, "snprintf", tempi, con_snprintf);
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", tempi, [](const int& millisecondi) {
        const Campi c = campi(millisecondi);
        return c.ore != 0 ? fmt::format(FMT_COMPILE("{}:{:02}:{:02}"), c.ore, c.minuti, c.secondi)
                          : fmt::format(FMT_COMPILE("{}:{:02}.{:03}"), c.minuti, c.secondi, c.millesimi);
    });
#endif
#ifdef KEL_PARI_ABSL
    serie(riga, Ruolo::pari, "absl", tempi, [](const int& millisecondi) {
        const Campi c = campi(millisecondi);
        return c.ore != 0 ? absl::StrFormat("%u:%02u:%02u", c.ore, c.minuti, c.secondi)
                          : absl::StrFormat("%u:%02u.%03u", c.minuti, c.secondi, c.millesimi);
    });
#endif
}

// A text as LapTimeToStringa writes it; every fourth one as a user types it.
std::string testo(Casuale& casuale) {
    std::string scritto = CLaptimeAndStrings::LapTimeToStringa(tempo(casuale));
    if (sotto(casuale, 4) != 0)
        return scritto;
    switch (sotto(casuale, 6)) {
        case 0:
            return "  " + scritto;
        case 1:
            return scritto.substr(0, scritto.size() - 1 - sotto(casuale, 3));
        case 2:
            scritto[scritto.find(':')] = '-';
            return scritto;
        case 3:
            return scritto + " s";
        case 4:
            return std::to_string(sotto(casuale, 200));
        default:
            return "abc";
    }
}

constexpr unsigned somma(bool con_millesimi, const unsigned (&campo)[3]) {
    return con_millesimi ? campo[0] * 60000 + campo[1] * 1000 + campo[2]
                         : campo[0] * 3600000 + campo[1] * 60000 + campo[2] * 1000;
}

unsigned con_from_chars(const std::string& ingresso) {
    unsigned campo[3] = {};
    const char* dove = ingresso.data();
    const char* const fine = dove + ingresso.size();
    for (unsigned& uno : campo) {
        dove = std::from_chars(dove, fine, uno).ptr;
        dove += dove != fine ? 1 : 0;
    }
    return somma(ingresso.find('.') != std::string::npos, campo);
}

unsigned con_sscanf(const std::string& ingresso) {
    unsigned campo[3] = {};
    std::sscanf(ingresso.c_str(), "%u%*c%u%*c%u", &campo[0], &campo[1], &campo[2]);
    return somma(ingresso.find('.') != std::string::npos, campo);
}

unsigned con_strtoul(const std::string& ingresso) {
    unsigned campo[3] = {};
    const char* dove = ingresso.c_str();
    for (unsigned& uno : campo) {
        char* fine = nullptr;
        uno = static_cast<unsigned>(std::strtoul(dove, &fine, 10));
        dove = *fine != '\0' ? fine + 1 : fine;
    }
    return somma(ingresso.find('.') != std::string::npos, campo);
}

unsigned con_flusso(const std::string& ingresso) {
    std::istringstream flusso(ingresso);
    unsigned campo[3] = {};
    char separatore = 0;
    flusso >> campo[0] >> separatore >> campo[1] >> separatore >> campo[2];
    return somma(ingresso.find('.') != std::string::npos, campo);
}

// One pass over the characters: a digit belongs to the current field, any other character begins the next.
unsigned letto_a_mano(const std::string& ingresso) {
    unsigned campo[3] = {};
    unsigned quale = 0;
    bool punto = false;
    for (const char c : ingresso) {
        const auto cifra = static_cast<unsigned>(c - '0');
        if (cifra < 10) {
            campo[quale] = campo[quale] * 10 + cifra;
        } else {
            punto |= c == '.';
            quale += quale < 2 ? 1 : 0;
        }
    }
    return somma(punto, campo);
}

void lettura() {
    const std::string riga = "lap time from text";
    const auto testi = genera(testo);
    serie(riga, Ruolo::nostro, "StringaToLapTime", testi,
          [](const std::string& ingresso) { return CLaptimeAndStrings::StringaToLapTime(ingresso); });
    serie(riga, Ruolo::limite, "one pass, not lenient", testi, letto_a_mano);
    serie(riga, Ruolo::pari, "from_chars", testi, con_from_chars);
    serie(riga, Ruolo::pari, "sscanf", testi, con_sscanf);
    serie(riga, Ruolo::pari, "strtoul", testi, con_strtoul);
    serie(riga, Ruolo::pari, "istringstream", testi, con_flusso);
}

}  // namespace

void righe_tempi() {
    scrittura();
    lettura();
}
