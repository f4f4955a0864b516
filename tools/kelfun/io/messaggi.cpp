#include "io/messaggi.h"

#include <cstdio>

#include "io/colore.h"
#include "text/mostrabile.h"

namespace kel::strumento {

void messaggio(const std::string& comando, const std::string& testo, std::string_view colore) {
    const std::string chi = comando + ":";
    const std::string prima = colore.empty() ? chi : std::string(colore) + chi + std::string(NORMALE);
    std::fprintf(stderr, "%s %s\n", prima.c_str(), mostrabile(testo).c_str());
}

}  // namespace kel::strumento
