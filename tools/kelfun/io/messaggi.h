// Lines of a command for people, on standard error.
#ifndef KELFUN_IO_MESSAGGI_H
#define KELFUN_IO_MESSAGGI_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// "kelfun convert: ...", whatever the text holds, as one line.
/// @param colore  of the name before it; "" for none.
void messaggio(const std::string& comando, const std::string& testo, std::string_view colore = {});

}  // namespace kel::strumento

#endif
