#include "conversione_segnata.h"

#include <CFunzioni.h>

std::string CFunzioni::ConvertiDa8(const std::string& testo) const {
    return segnato(testo);
}

// A text without the brackets is none of the caller's: it becomes one that no table has.
std::string CFunzioni::ConvertiIn8(const std::string& testo) const {
    if (testo.size() < 2 || testo.front() != '<' || testo.back() != '>')
        return "converted without being the caller's: " + testo;
    return testo.substr(1, testo.size() - 2);
}
