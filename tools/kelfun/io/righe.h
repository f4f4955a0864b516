// Arguments that come as lines of text, from a file or standard input.
#ifndef KELFUN_IO_RIGHE_H
#define KELFUN_IO_RIGHE_H

#include <string>
#include <vector>

namespace kel::strumento {

/// The lines of a file, or of standard input for "-", without their ends (line feed, or carriage return and line feed).
/// @throws NonTrovato  when it cannot be read.
std::vector<std::string> leggiRighe(const std::string& nome);

/// Arguments, with the lines of standard input in place of each "-".
std::vector<std::string> conRigheDiIngresso(const std::vector<std::string>& argomenti);

}  // namespace kel::strumento

#endif
