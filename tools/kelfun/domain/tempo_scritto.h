// Lap times as people write them, beside what the library reads and writes.
#ifndef KELFUN_DOMAIN_TEMPO_SCRITTO_H
#define KELFUN_DOMAIN_TEMPO_SCRITTO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kel::strumento {

/// The milliseconds that a person means by a time: "83.456" is seconds, "1:23" minutes and seconds, "1:23.4" has
/// tenths, "1:23,456" a comma, "1'23\"456" marks, "1:23:456" a colon before thousandths, "1:02:03.5" hours. A fraction
/// finer than thousandths is rounded. Nothing for what is no time.
std::optional<std::int64_t> tempo_inteso(std::string_view testo);

/// For an error about a text that only people read as a time: "did you mean '1:23.456'? ", or nothing.
std::string proposta_tempo(const std::string& testo);

/// The warning for a text that the library reads as another time than a person means; nothing if both are the same.
std::optional<std::string> avviso_lettura(const std::string& testo, int letto);

/// The same of a line of a lap list: number, hyphen, time.
std::optional<std::string> avviso_riga(const std::string& riga, int numero, int letto);

/// The warning for a time whose text leaves a part out, from one hour on, or is not negative as the time is; else
/// nothing.
std::optional<std::string> avviso_scrittura(int millisecondi);

}  // namespace kel::strumento

#endif
