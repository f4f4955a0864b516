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
std::optional<std::string> tabella_pacchetto(unsigned dettagli, unsigned spec);
// By the specialisation of an identifier alone.
std::optional<std::string> tabella_lap(Fid fid);
std::optional<std::string> tabella_gps(Fid fid);

// Index of a subfield's row in a table.
std::optional<std::size_t> riga_sottocampo(const std::string& tabella, Fid fid);
// The same where there may be no table: then there is no row.
std::optional<std::size_t> riga_sottocampo(const std::optional<std::string>& tabella, Fid fid);
bool ha_sottocampo(unsigned dettagli, unsigned spec, Fid fid);

// Identifiers of the subfields of a packet function; empty for any other function.
std::list<Fid> funzioni_interne(Fid fid);

// Default names, added to a map without overwriting.
using NomiCanali = std::map<unsigned, std::pair<std::string, std::string>>;
void canali_gps(NomiCanali& mappa);
void canali_lap_num(NomiCanali& mappa);
void canali_lap_time(NomiCanali& mappa);

}  // namespace modello

#endif
