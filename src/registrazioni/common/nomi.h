// Names of columns, compared as people read them.
#ifndef KEL_REGISTRAZIONI_NOMI_H
#define KEL_REGISTRAZIONI_NOMI_H

#include <string>
#include <string_view>

namespace kel_registrazioni {

/// A text as a name for programs: small letters and digits, everything else one underscore: "Lambda 1 (L)" is "lambda_1_l".
std::string chiave(std::string_view testo);

}  // namespace kel_registrazioni

#endif
