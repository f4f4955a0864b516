// The long name of a function that no table names.
#ifndef KEL_OBJECT_NOME_COMPOSTO_H
#define KEL_OBJECT_NOME_COMPOSTO_H

#include <string>

#include "kelfunzioni.h"

namespace kel {

// The texts of the identifier's fields, through the character conversion; undefined fields only with `tutti`.
std::string nome_composto(kel_funpos fid, bool tutti);

}  // namespace kel

#endif
