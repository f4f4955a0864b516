// The library's tables by name.
#ifndef KEL_TEST_TABELLE_H
#define KEL_TEST_TABELLE_H

#include <map>
#include <span>
#include <string>

#include "kelfunzioni.h"

namespace kel_test {

using Campi = std::span<const s_campo_fid>;
using Unita = std::span<const s_udm_associata>;
using Varianti = std::span<const s_variante_posizione>;
using Scelte = std::span<const s_scelta_fid>;
using Sottocampi = std::span<const s_sottocampo>;

const std::map<std::string, Campi>& tabelle_campi();
const std::map<std::string, Unita>& tabelle_unita();
const std::map<std::string, Varianti>& tabelle_varianti();
const std::map<std::string, Scelte>& tabelle_scelte();
const std::map<std::string, Sottocampi>& tabelle_sottocampi();

}  // namespace kel_test

#endif
