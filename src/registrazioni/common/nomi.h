// Names and units of columns, as people and programs read them.
#ifndef KEL_REGISTRAZIONI_NOMI_H
#define KEL_REGISTRAZIONI_NOMI_H

#include <cstddef>
#include <string>
#include <string_view>

namespace kel_registrazioni {

/// A text as a name for programs: small letters and digits, everything else one underscore: "Lambda 1 (L)" is "lambda_1_l".
std::string chiave(std::string_view testo);

/// The same into memory that has room for so many characters: how many there are.
std::size_t chiave(std::string_view testo, char* dove, std::size_t capienza);

/// The unit that values are in: nothing for what the catalogue puts in its place where there is none ("#", "gear" and the
/// like), "ms" for the "time" of a lap.
const char* misura(const char* udm);

}  // namespace kel_registrazioni

#endif
