// The 32 bits of an identifier as a drawing.
#ifndef KELFUN_DOMAIN_DISEGNO_BIT_H
#define KELFUN_DOMAIN_DISEGNO_BIT_H

#include <string>
#include <vector>

#include "kelfunzioni.h"

namespace kel::strumento {

/// Lines of plain ASCII: the numbers of the bits, the highest on the left, and below them a box for each field with its
/// bits, its name and what its value means.
std::vector<std::string> disegno_bit(kel_funpos fid);

}  // namespace kel::strumento

#endif
