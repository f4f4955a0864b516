// Long and short names of functions.
#ifndef KEL_MODELLO_NOMI_H
#define KEL_MODELLO_NOMI_H

#include <optional>
#include <string>

#include "model/tabelle.h"

namespace modello {

// Name of an identifier that a camera table or the legacy table lists whole.
std::optional<std::string> nome_lungo_elencato(Fid fid);
// Name that the quantity table gives: depends on quantity, object and position alone.
std::optional<std::string> nome_lungo_grandezza(Fid fid);
// Name composed of the fields: the position counts for packets alone, bits 29 to 31 never.
std::string nome_lungo_composto(Fid fid, bool tutti);
// The first of the three that there is.
std::string nome_lungo(Fid fid, bool tutti);

// The same for the short name: no more than 31 characters.
std::optional<std::string> nome_breve_elencato(Fid fid);
std::string nome_breve_composto(Fid fid);
std::string nome_breve(Fid fid);

}  // namespace modello

#endif
