// Results of the parts that have run, kept in a folder so that a run can be resumed.
#ifndef KEL_ESAUSTIVO_RISULTATI_H
#define KEL_ESAUSTIVO_RISULTATI_H

#include <map>
#include <string>

#include "exhaustive/spazio.h"

namespace esaustivo {

// One text for the library and everything that judges it in this space: results of anything else are not taken up.
std::string impronta_della_prova(const Spazio& spazio);

class Risultati {
public:
    // An empty folder name keeps nothing. `da_capo`: forget what is kept.
    Risultati(const std::string& cartella, const std::vector<Spazio>& spazi, bool da_capo);

    void aggiungi(const std::string& spazio, unsigned parte, const Esito& esito);

    // By part.
    const std::map<unsigned, Esito>& di(const std::string& spazio) { return esiti_[spazio]; }

private:
    std::string file(const std::string& spazio) const;
    void riprendi(const Spazio& spazio);

    std::string cartella_;
    std::map<std::string, std::map<unsigned, Esito>> esiti_;
};

}  // namespace esaustivo

#endif
