// The whole catalogue as one JSON document.
#ifndef KELFUN_DOMAIN_CATALOGO_JSON_H
#define KELFUN_DOMAIN_CATALOGO_JSON_H

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "IFunzioni.h"

namespace kel::strumento {

/// The form of the document: grows by one when a member changes its meaning or goes away, not when one is added.
constexpr int FORMA_CATALOGO = 1;

/// Everything that the library knows, members and elements in a fixed order; catalogue.schema.json describes it.
/// @param versione  of the library, "0.1.0".
nlohmann::ordered_json catalogo_json(IFunzioni& catalogo, const std::string& versione);

}  // namespace kel::strumento

#endif
