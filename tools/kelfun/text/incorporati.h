// Text files that the program carries with it.
#ifndef KELFUN_TEXT_INCORPORATI_H
#define KELFUN_TEXT_INCORPORATI_H

#include <string_view>

namespace kel::strumento {

extern const std::string_view SCHEMA_CATALOGO;   ///< domain/catalogue.schema.json
extern const std::string_view SINONIMI;          ///< domain/sinonimi.txt
extern const std::string_view PROGRAMMI_C;       ///< code/programmi/c.txt
extern const std::string_view PROGRAMMI_CPP;     ///< code/programmi/cpp.txt
extern const std::string_view PROGRAMMI_PYTHON;  ///< code/programmi/python.txt

}  // namespace kel::strumento

#endif
