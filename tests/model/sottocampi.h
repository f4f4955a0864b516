// Subfields of packet channels, and the default names of their channels.
#ifndef KEL_MODELLO_SOTTOCAMPI_H
#define KEL_MODELLO_SOTTOCAMPI_H

#include <list>
#include <map>
#include <optional>
#include <string>

#include "model/tabelle.h"

namespace modello {

// Name of the subfield table of a kind of packet.
std::optional<std::string> tabellaPacchetto(unsigned dettagli, unsigned spec);
// By the specialisation of an identifier alone.
std::optional<std::string> tabellaLap(Fid fid);
std::optional<std::string> tabellaGps(Fid fid);

// Index of a subfield's row in a table.
std::optional<std::size_t> rigaSottocampo(const std::string& tabella, Fid fid);
// The same where there may be no table: then there is no row.
std::optional<std::size_t> rigaSottocampo(const std::optional<std::string>& tabella, Fid fid);
bool haSottocampo(unsigned dettagli, unsigned spec, Fid fid);

// Identifiers of the subfields of a packet function; empty for any other function.
std::list<Fid> funzioniInterne(Fid fid);

// Default names, added to a map without overwriting.
using NomiCanali = std::map<unsigned, std::pair<std::string, std::string>>;
void canaliGps(NomiCanali& mappa);
void canaliLapNum(NomiCanali& mappa);
void canaliLapTime(NomiCanali& mappa);

}  // namespace modello

#endif
