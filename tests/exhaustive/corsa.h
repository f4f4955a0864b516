// Runs parts of spaces on all cores.
#ifndef KEL_ESAUSTIVO_CORSA_H
#define KEL_ESAUSTIVO_CORSA_H

#include "exhaustive/risultati.h"
#include "exhaustive/spazio.h"

namespace esaustivo {

struct Compito {
    const Spazio* spazio;
    unsigned parte;
};

// Runs the tasks that have no result yet; shows progress with the time left when standard error is a terminal.
void corri(const std::vector<Compito>& compiti, Risultati& risultati, unsigned lavoratori, std::size_t da_mostrare);

}  // namespace esaustivo

#endif
