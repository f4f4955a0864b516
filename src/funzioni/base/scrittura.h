// Texts of fixed width, as printf writes them but without a locale, in the 32 zeroed bytes that a text function is
// given.
#ifndef KEL_BASE_SCRITTURA_H
#define KEL_BASE_SCRITTURA_H

#include <string_view>

namespace kel {

inline constexpr unsigned BYTE_TESTO = 32;                   // of the caller's buffer
inline constexpr unsigned CARATTERI_TESTO = BYTE_TESTO - 1;  // of the longest text: one byte is the NUL's

// Appends to a text. It checks no limit, because no text comes near one: the longest, "Date and Time Packet", has 20
// characters. It writes no NUL, because the buffer's zeros end the text.
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
