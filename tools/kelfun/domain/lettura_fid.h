// An identifier from one word: its digits, its legacy identifier, or its name.
#ifndef KELFUN_DOMAIN_LETTURA_FID_H
#define KELFUN_DOMAIN_LETTURA_FID_H

#include <optional>
#include <string_view>

#include "IFunzioni.h"

namespace kel::strumento {

/// What an error says of identifiers.
constexpr const char* FID_ACCETTATI =
    "accepted: hexadecimal (0x10), decimal (16) up to 32 bits, a legacy identifier (REF_SPEED), a name ('Oil "
    "Pressure'), "
    "or fields (--quantity speed)";

/// Hexadecimal with "0x", decimal, or a legacy identifier, capitals or not; nothing for any other text. Where two
/// legacy identifiers differ by capitals alone, the one as it is written.
std::optional<kel_funpos> fid_da_numero_o_vecchio(IFunzioni& catalogo, std::string_view testo);

/// The same, or a name or short name that one function alone has, as `kelfun find` shows them. Capitals do not matter,
/// nor whether words stand apart by blanks, underscores or hyphens.
/// @throws ErroreUso   for what cannot be any of them, and for a name that several functions have, with those.
/// @throws NonTrovato  for a name that no function has, with the nearest.
kel_funpos leggi_fid(IFunzioni& catalogo, std::string_view testo);

}  // namespace kel::strumento

#endif
