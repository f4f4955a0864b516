// What a run found, for people: a table with the first differences, or a table of Markdown.
#ifndef KEL_ESAUSTIVO_RESOCONTO_H
#define KEL_ESAUSTIVO_RESOCONTO_H

#include "exhaustive/corsa.h"

namespace esaustivo {

// Both print the results of the tasks and return the number of differences.
std::uint64_t riferisci(const std::vector<Spazio>& spazi, const std::vector<Compito>& compiti, Risultati& risultati,
                        std::size_t da_mostrare);
std::uint64_t riferisci_markdown(const std::vector<Spazio>& spazi, const std::vector<Compito>& compiti,
                                 Risultati& risultati);

}  // namespace esaustivo

#endif
