// The character conversion of the object face, `ConvertiIn8` and `ConvertiDa8`: the one place where a build with another
// character type would convert. Texts have 8 bits throughout: both are exact copies.
#ifndef KEL_CATALOGUE_CONVERSIONE_TESTI_H
#define KEL_CATALOGUE_CONVERSIONE_TESTI_H

#include <string>
#include <string_view>

namespace kel {

inline std::string in_8(std::string_view testo) {
    return std::string(testo);
}

inline std::string da_8(std::string_view testo) {
    return std::string(testo);
}

// `da_8` at the end of a text, without a copy on the way.
inline void aggiungi_da_8(std::string& a, std::string_view testo) {
    a += testo;
}

}  // namespace kel

#endif
