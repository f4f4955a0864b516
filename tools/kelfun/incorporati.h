// Text files of this folder that the program carries with it.
#ifndef KELFUN_INCORPORATI_H
#define KELFUN_INCORPORATI_H

#include <string_view>

namespace kel::strumento {

extern const std::string_view SCHEMA_CATALOGO;   ///< catalogue.schema.json
extern const std::string_view PROGRAMMI_C;       ///< programmi/c.txt
extern const std::string_view PROGRAMMI_CPP;     ///< programmi/cpp.txt
extern const std::string_view PROGRAMMI_PYTHON;  ///< programmi/python.txt

}  // namespace kel::strumento

#endif
