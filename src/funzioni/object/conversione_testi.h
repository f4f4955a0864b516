// The character conversion of the object face, `ConvertiIn8` and `ConvertiDa8`: the one place where a build with another
// character type would convert. Texts have 8 bits throughout: both are exact copies.
#ifndef KEL_OBJECT_CONVERSIONE_TESTI_H
#define KEL_OBJECT_CONVERSIONE_TESTI_H

#include <string>

namespace kel {

std::string in_8(const std::string& testo);
std::string da_8(const std::string& testo);
std::string da_8(const char* testo);

// `da_8` at the end of a text, without a copy on the way.
void aggiungi_da_8(std::string& a, const char* testo);

}  // namespace kel

#endif
