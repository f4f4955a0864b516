// Texts of others, such as arguments and names of files, in a message on a terminal.
#ifndef KELFUN_TEXT_MOSTRABILE_H
#define KELFUN_TEXT_MOSTRABILE_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// A text in UTF-8 as one line that does nothing to a terminal: a question mark stands for each control character and for
/// each byte that is no UTF-8.
std::string mostrabile(std::string_view testo);

}  // namespace kel::strumento

#endif
