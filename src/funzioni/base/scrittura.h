// Texts of fixed width, in the manner of printf but without a locale, into the 32 zeroed bytes that a text function is given.
#ifndef KEL_BASE_SCRITTURA_H
#define KEL_BASE_SCRITTURA_H

#include <string_view>

namespace kel {

inline constexpr unsigned byte_testo = 32;                   // the caller's buffer
inline constexpr unsigned caratteri_testo = byte_testo - 1;  // and the NUL

// Appends to a text. Nothing has to be cut: the fixed texts, the widths and the most digits of an int give 20 characters at
// most, "Date and Time Packet". The buffer's own zeros end it.
class Scrittore {
public:
    explicit Scrittore(char* testo) noexcept : prossimo_(testo) {}

    Scrittore& testo(std::string_view testo) noexcept;

    // Like "%*d": right-aligned in at least `larghezza` characters, padded on the left with blanks.
    Scrittore& con_spazi(int numero, unsigned larghezza = 0) noexcept;

    // Like "%0*d": padded with zeros behind the sign.
    Scrittore& con_zeri(int numero, unsigned larghezza) noexcept;

private:
    void carattere(char c) noexcept;

    char* prossimo_;
};

}  // namespace kel

#endif
