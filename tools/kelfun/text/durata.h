// Times of a recording to and from text: minutes and seconds.
#ifndef KELFUN_TEXT_DURATA_H
#define KELFUN_TEXT_DURATA_H

#include <optional>
#include <string>
#include <string_view>

namespace kel::strumento {

/// "1:05", with decimals "1:05.25"; with hours "1:01:05". Seconds below zero have a minus sign.
std::string testo_durata(double secondi, int decimali, bool ore);

/// Seconds of "65", "65.25", "1:05.25" or "1:01:05"; minutes and seconds behind a colon are below 60. Nothing for any
/// other text.
std::optional<double> leggi_durata(std::string_view testo);

}  // namespace kel::strumento

#endif
