// The program that kelfun fid --code prints.
#ifndef KELFUN_CODE_PROGRAMMA_FID_H
#define KELFUN_CODE_PROGRAMMA_FID_H

#include <string>

#include "IFunzioni.h"

namespace kel::strumento {

/// @throws ErroreUso  for a language without one.
void programma_fid(const IFunzioni& catalogo, const std::string& linguaggio, kel_funpos fid);

}  // namespace kel::strumento

#endif
