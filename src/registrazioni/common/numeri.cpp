#include "common/numeri.h"

#include <charconv>
#include <iterator>

namespace kel_registrazioni {

std::string con_decimali(double valore, int decimali) {
    char testo[352];  // the longest is a double of 1e308 with 30 decimals
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, std::chars_format::fixed, decimali);
    return {testo, fine.ptr};
}

std::string breve(double valore) {
    char testo[352];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, std::chars_format::fixed);
    return {testo, fine.ptr};
}

std::string contati(std::uint64_t quanti, const char* uno) {
    return std::to_string(quanti) + " " + uno + (quanti == 1 ? "" : "s");
}

}  // namespace kel_registrazioni
