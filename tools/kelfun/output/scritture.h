// Texts as JSON and CSV have them.
#ifndef KELFUN_OUTPUT_SCRITTURE_H
#define KELFUN_OUTPUT_SCRITTURE_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// In quotes; what is no UTF-8 is replaced.
std::string testo_json(std::string_view testo);

/// What a terminal would obey made visible, and in quotes where it has commas or quotes.
std::string campo_csv(std::string_view testo);

/// In quotes where it has commas or quotes.
std::string citato_csv(std::string_view testo);

}  // namespace kel::strumento

#endif
