// What time the records of a recording have, as a user says it.
#ifndef KELFUN_CAPTURES_TEMPO_RECORD_H
#define KELFUN_CAPTURES_TEMPO_RECORD_H

#include <string>

#include "cli/opzioni.h"
#include "kelregistrazioni.h"

namespace kel::strumento {

/// --time and --rate as they are written.
struct SceltaTempo {
    std::string orario = "auto";
    std::string frequenza;
};
void aggiungi_tempo(Comando& comando, SceltaTempo& scelta);

/// How a recording is to be opened: its framing, its rate, and the words of its messages.
/// @throws ErroreUso  for a framing or a rate that there is not.
s_kel_apertura apertura_di(const SceltaTempo& scelta);

/// Digits behind the point of the seconds: those that the stamps have, or the rate asks for.
int decimali_tempo(eKelOrario orario, double frequenza);

}  // namespace kel::strumento

#endif
