// Texts of channel records and samples, which may hold any bytes, as UTF-8.
#ifndef KEL_REGISTRAZIONI_UTF8_H
#define KEL_REGISTRAZIONI_UTF8_H

#include <string>
#include <string_view>

namespace kel_registrazioni {

/// The text itself where it is UTF-8; else with a question mark for each byte beyond ASCII.
std::string come_utf8(std::string_view testo);

}  // namespace kel_registrazioni

#endif
