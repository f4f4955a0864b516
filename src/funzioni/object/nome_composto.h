// The long name of a function that no table names.
#ifndef KEL_OBJECT_NOME_COMPOSTO_H
#define KEL_OBJECT_NOME_COMPOSTO_H

#include <string>

#include "CFunzioni.h"

namespace kel {

// The texts of the identifier's fields as a phrase, each through the catalogue's character conversion. `tutti`: also
// those of fields without a value.
std::string nome_composto(const CFunzioni& catalogo, kel_funpos fid, bool tutti);

}  // namespace kel

#endif
