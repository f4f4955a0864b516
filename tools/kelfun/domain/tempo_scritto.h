// Lap times as people write them, beside what the library reads and writes.
#ifndef KELFUN_DOMAIN_TEMPO_SCRITTO_H
#define KELFUN_DOMAIN_TEMPO_SCRITTO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kel::strumento {

/// The milliseconds that a person means by a time: "83.456" is seconds, "1:23" minutes and seconds, "1:23.4" has tenths,
/// "1:23,456" a comma, "1'23\"456" marks, "1:23:456" a colon before thousandths, "1:02:03.5" hours. A fraction finer than
/// thousandths is rounded. Nothing for what is no time.
std::optional<std::int64_t> tempoInteso(std::string_view testo);

/// What an error says of a text that is a time to people alone: "did you mean '1:23.456'? ", or nothing.
std::string propostaTempo(const std::string& testo);

/// What is to be said of a text that the library reads as another time than was meant; nothing where it reads that.
std::optional<std::string> avvisoLettura(const std::string& testo, int letto);

/// The same of a line of a lap list: number, hyphen, time.
std::optional<std::string> avvisoRiga(const std::string& riga, int numero, int letto);

/// What is to be said of the text of a time that does not say all of it; nothing below one hour.
std::optional<std::string> avvisoScrittura(int millisecondi);

}  // namespace kel::strumento

#endif
