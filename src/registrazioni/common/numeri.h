// Numbers as text, with a point in every locale.
#ifndef KEL_REGISTRAZIONI_NUMERI_H
#define KEL_REGISTRAZIONI_NUMERI_H

#include <cstdint>
#include <string>

namespace kel_registrazioni {

/// With exactly so many digits after the point, 0 to 30.
std::string con_decimali(double valore, int decimali);

/// The shortest text that reads back as the same number, with a point and no exponent: "350", "12.5".
std::string breve(double valore);

/// "1 byte", "2 bytes".
std::string contati(std::uint64_t quanti, const char* uno);

}  // namespace kel_registrazioni

#endif
