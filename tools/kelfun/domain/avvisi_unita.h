// Warnings about units whose values are not what most people take them for.
#ifndef KELFUN_DOMAIN_AVVISI_UNITA_H
#define KELFUN_DOMAIN_AVVISI_UNITA_H

#include <optional>
#include <string>

#include "IFunzioni.h"

namespace kel::strumento {

/// The warning for a conversion between two units, with one value as an example: a reciprocal unit, which is converted
/// linearly, or HP and CV, whose gains are swapped. Nothing for all other units.
std::optional<std::string> avviso_conversione(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                              const std::string& a, float valore);

/// The warning for a unit that converters show samples in.
std::optional<std::string> avviso_unita(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm);

}  // namespace kel::strumento

#endif
