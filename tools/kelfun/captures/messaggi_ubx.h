// What a u-blox stream holds that is no solution.
#ifndef KELFUN_CAPTURES_MESSAGGI_UBX_H
#define KELFUN_CAPTURES_MESSAGGI_UBX_H

#include <string>

#include "captures/registrazione.h"

namespace kel::strumento {

/// The kinds of messages by class and id, the most frequent first: "104 of 01 02, 12 of 01 03"; "" where there are none.
std::string elenco_messaggi(const Registrazione& reg);

}  // namespace kel::strumento

#endif
