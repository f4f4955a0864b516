// Texts that kelfun did not write itself: arguments, names of files, names and texts in recordings.
#ifndef KELFUN_TEXT_MOSTRABILE_H
#define KELFUN_TEXT_MOSTRABILE_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// A text as it is shown to people, in tables, CSV, messages and plots alike: one line without control characters,
/// which a terminal would obey. Each byte of a control character, and each byte that is no UTF-8, is written as
/// "\\x1B".
std::string mostrabile(std::string_view testo);

}  // namespace kel::strumento

#endif
