// The end of a command's --help.
#ifndef KELFUN_CLI_ESEMPI_H
#define KELFUN_CLI_ESEMPI_H

#include <string>
#include <vector>

namespace kel::strumento {

/// Texts one after the other, on lines that an 80-column terminal holds.
std::string su_righe(const std::vector<std::string>& testi);

/// Text shown below the options by --help: notes and three command lines that work as they stand.
std::string esempi(const std::string& note, const char* primo, const char* secondo, const char* terzo);

}  // namespace kel::strumento

#endif
