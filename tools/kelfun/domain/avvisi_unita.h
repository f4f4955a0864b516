// What is to be said of units whose numbers are not what a person takes them for.
#ifndef KELFUN_DOMAIN_AVVISI_UNITA_H
#define KELFUN_DOMAIN_AVVISI_UNITA_H

#include <optional>
#include <string>

#include "IFunzioni.h"

namespace kel::strumento {

/// Of a conversion between two units, with what becomes of one value: a reciprocal unit, which the linear conversion does
/// not know as such, and HP and CV, whose gains are swapped. Nothing for all others.
std::optional<std::string> avvisoConversione(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                             const std::string& a, float valore);

/// Of a unit that converters show samples in.
std::optional<std::string> avvisoUnita(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm);

}  // namespace kel::strumento

#endif
