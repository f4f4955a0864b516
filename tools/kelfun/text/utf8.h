// UTF-8, a character at a time.
#ifndef KELFUN_TEXT_UTF8_H
#define KELFUN_TEXT_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kel::strumento {

struct Carattere {
    std::size_t byte = 0;
    std::uint32_t codice = 0;
};

/// The character that a text, which is not empty, begins with; 0 bytes for anything that is none, such as a longer form
/// of a shorter character, which could hide a control character (Unicode 15, table 3-7).
Carattere primo_carattere(std::string_view testo);

}  // namespace kel::strumento

#endif
