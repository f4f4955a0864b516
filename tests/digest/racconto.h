// What one call was given and what came back, as a line for people: filled only when a difference is explained.
#ifndef KEL_DIGEST_RACCONTO_H
#define KEL_DIGEST_RACCONTO_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace digest {

class Racconto {
public:
    /// A word, as it is.
    void voce(const char* voce);
    void numero(std::uint64_t valore);
    void segno(std::int64_t valore);
    void esadecimale(std::uint32_t valore);
    void reale(float valore);
    /// In quotes; what cannot be printed is a backslash, x and two digits.
    void testo(std::string_view testo);
    /// In hexadecimal, the first sixteen.
    void byte(const void* dove, std::size_t quanti);

    const char* riga() const { return riga_; }

private:
    // Plain characters: MemorySanitizer does not see into the C++ library's strings.
    char riga_[1200] = "";
    std::size_t lunga_ = 0;
    bool piena_ = false;
};

}  // namespace digest

#endif
