// Cells that several commands show.
#ifndef KELFUN_OUTPUT_CELLE_H
#define KELFUN_OUTPUT_CELLE_H

#include <string>
#include <string_view>

#include "output/documento.h"

namespace kel::strumento {

/// A text of a table; nothing when it is "".
Cella testo_o_vuota(std::string_view testo);

/// A text without the NUL that the object face counts in its length.
std::string senza_nul(std::string testo);

/// A parameter code of the camera: the basic ones are small numbers, the extended ones are known in hexadecimal;
/// nothing for -1, a row without one.
Cella codice_camera(int codice);

}  // namespace kel::strumento

#endif
