// The commands of kelfun. Each function adds a command to the program. When its arguments have been read, the command
// prints one document to standard output; it throws when it cannot do what was asked.
#ifndef KELFUN_COMMANDS_COMANDI_H
#define KELFUN_COMMANDS_COMANDI_H

namespace CLI {
class App;
}

namespace kel::strumento {

void aggiungiFid(CLI::App& programma);
void aggiungiFunctions(CLI::App& programma);
void aggiungiUnits(CLI::App& programma);
void aggiungiConvert(CLI::App& programma);
void aggiungiDecode(CLI::App& programma);
void aggiungiMatch(CLI::App& programma);
void aggiungiCamera(CLI::App& programma);
void aggiungiLap(CLI::App& programma);
void aggiungiLaps(CLI::App& programma);
void aggiungiUbx(CLI::App& programma);
void aggiungiRecord(CLI::App& programma);
void aggiungiFind(CLI::App& programma);
void aggiungiCatalogue(CLI::App& programma);

}  // namespace kel::strumento

#endif
