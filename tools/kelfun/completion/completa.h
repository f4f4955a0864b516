// What a shell offers when the user presses its completion key.
#ifndef KELFUN_COMPLETION_COMPLETA_H
#define KELFUN_COMPLETION_COMPLETA_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kel::strumento {

/// Prints what may stand in place of the last word, one candidate a line: the word, a tab, what it is. Nothing when
/// there is nothing to offer. A line ":files" asks the shell for the names of its files.
///
/// Commands, options and the words that they accept are read from the application: a new command needs nothing here as
/// long as its arguments and values have names that the completion knows (see completa.cpp).
///
/// @param programma  with all its commands.
/// @param parole     the words after the program's name, the last one being completed; it may be empty.
void completa(const CLI::App& programma, const std::vector<std::string>& parole);

}  // namespace kel::strumento

#endif
