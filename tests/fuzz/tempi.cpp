// Lap time texts: any text read, any time written.
//
// Proves that times and lines are written and read as a string stream writes and reads them, whatever the text holds,
// NULs included; that a text that is too short throws and leaves the time alone; and that what was written reads back.
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "CLaptimeAndStrings.h"
#include "bersaglio.h"
#include "ingredienti.h"
#include "model/tempi.h"

namespace {

using fuzz::pretendi;

void leggi(const std::string& testo) {
    pretendi(CLaptimeAndStrings::StringaToLapTime(testo) == modello::leggi_tempo(testo),
             "a time is read as a stream reads it", [&] { return "'" + testo + "'"; });
    int numero = 12345;
    int tempo = 67890;
    bool corto = false;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(testo, numero, tempo);
    } catch (const std::out_of_range&) {
        corto = true;
    }
    const modello::Giro giro = modello::leggi_giro(testo);
    pretendi(corto == !giro.tempo, "a line of fewer than 6 characters throws");
    pretendi(numero == giro.numero, "a number is read as a stream reads it");
    pretendi(tempo == giro.tempo.value_or(67890), "the time of a line is read");
}

void scrivi(int numero, int tempo) {
    const std::string testo = CLaptimeAndStrings::LapTimeToStringa(tempo);
    const std::string riga = CLaptimeAndStrings::LapNumAndTimeToStringa(numero, tempo);
    pretendi(testo == modello::tempo(tempo), "a time is written as a stream writes it",
             [&] { return "'" + testo + "'"; });
    pretendi(riga == modello::riga_giro(numero, tempo), "a line is written as a stream writes it");
    if (tempo >= 0)  // from an hour on the milliseconds are cut
        pretendi(CLaptimeAndStrings::StringaToLapTime(testo) == (tempo < 3600000 ? tempo : tempo / 1000 * 1000),
                 "what was written reads back", [&] { return "'" + testo + "'"; });
    if (numero >= 0 && numero <= 999) {
        int letto = -1;
        int tempo_letto = -1;
        CLaptimeAndStrings::StringaToLapNumAndTime(riga, letto, tempo_letto);
        pretendi(letto == numero && tempo_letto == CLaptimeAndStrings::StringaToLapTime(testo), "a line reads back",
                 [&] { return "'" + riga + "'"; });
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    leggi({byte, byte + quanti});
    fuzz::Ingredienti da(byte, quanti);
    const int tempo = static_cast<int>(da.u32());
    scrivi(static_cast<int>(da.u32()), tempo);
    return 0;
}
