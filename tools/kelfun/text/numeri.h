// Numbers to and from text, with a point in every locale.
#ifndef KELFUN_TEXT_NUMERI_H
#define KELFUN_TEXT_NUMERI_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kel::strumento {

/// With exactly so many digits after the point.
std::string con_decimali(float valore, int decimali);
std::string con_decimali(double valore, int decimali);

/// The shortest text that reads back as the same float: "0.621371", "1000000", "2.77778e-07".
std::string breve(float valore);

/// The double with the same shortest text as a float, so that JSON shows 0.621371 and not 0.6213709712028503.
double come_scritto(float valore);
/// The double of a text that `con_decimali` wrote.
double come_scritto(const std::string& testo);

/// "0x" and at least so many capital hexadecimal digits.
std::string esadecimale(std::uint32_t valore, int cifre);

/// A whole decimal integer within bounds; nothing else before or after it.
std::optional<std::int64_t> leggi_intero(std::string_view testo, std::int64_t minimo, std::int64_t massimo);

/// A finite decimal number; nothing else before or after it.
std::optional<float> leggi_float(std::string_view testo);

/// Bytes written in hexadecimal; blanks, tabs, line ends and colons between bytes and a leading "0x" are let through.
/// Nothing for any other character and for half a byte.
std::optional<std::string> leggi_byte(std::string_view testo);

}  // namespace kel::strumento

#endif
