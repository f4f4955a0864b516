// The commands of kelfun. Each function adds a command to the program. When its arguments have been read, the command
// prints one document to standard output; it throws when it cannot do what was asked.
#ifndef KELFUN_COMMANDS_COMANDI_H
#define KELFUN_COMMANDS_COMANDI_H

namespace CLI {
class App;
}

namespace kel::strumento {

void aggiungi_fid(CLI::App& programma);
void aggiungi_functions(CLI::App& programma);
void aggiungi_units(CLI::App& programma);
void aggiungi_convert(CLI::App& programma);
void aggiungi_decode(CLI::App& programma);
void aggiungi_match(CLI::App& programma);
void aggiungi_camera(CLI::App& programma);
void aggiungi_lap(CLI::App& programma);
void aggiungi_laps(CLI::App& programma);
void aggiungi_ubx(CLI::App& programma);
void aggiungi_record(CLI::App& programma);
void aggiungi_find(CLI::App& programma);
void aggiungi_catalogue(CLI::App& programma);

}  // namespace kel::strumento

#endif
