// Comparison of short texts.
#ifndef KEL_UNITS_CONFRONTO_H
#define KEL_UNITS_CONFRONTO_H

namespace kel {

// Unit texts are short and mostly differ in their first character: a call would cost more than the comparison.
constexpr bool uguali(const char* a, const char* b) noexcept {
    for (; *a == *b; ++a, ++b)
        if (*a == '\0')
            return true;
    return false;
}

}  // namespace kel

#endif
