// Numbers as JSON and CSV have them, written straight into a buffer.
#ifndef KELFUN_OUTPUT_CIFRE_H
#define KELFUN_OUTPUT_CIFRE_H

#include <cstddef>
#include <cstdint>

namespace kel::strumento {

/// Room that one number takes at most.
constexpr std::size_t CIFRE_MASSIME = 32;

// Each writes from `dove` on and gives what is behind the last character. A number that is no integer has a point and at least
// one decimal, an exponent from 1e15 on and below 0.0001; what is no number is "null".

/// The shortest decimals that read back as the same double.
char* scrivi_double(char* dove, double valore);

/// The shortest decimals that read back as the same float; of a whole number from 16777216 on all of its digits.
char* scrivi_float(char* dove, float valore);
/// Rounded to so many decimals, 0 to 9, without trailing zeros.
char* scrivi_arrotondato(char* dove, double valore, int decimali);
char* scrivi_intero(char* dove, std::int64_t valore);

}  // namespace kel::strumento

#endif
