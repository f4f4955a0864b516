// Columns read with the loops of one instruction set.
#ifndef KEL_COLUMNS_COLONNE_H
#define KEL_COLUMNS_COLONNE_H

#include <cstddef>

#include "columns/nuclei.h"
#include "kelregistrazioni.h"

namespace kel_colonne {

// Below so many samples, finding out how to read them takes longer than reading them.
inline constexpr std::size_t POCHI = 64;

// Any number of samples, one after the other.
void leggi_poche(const void* record, std::size_t passo, std::size_t numero, const s_kel_colonna* colonne,
                 unsigned num_colonne) noexcept;

void leggi_colonne(const Nuclei& nuclei, const void* record, std::size_t passo, std::size_t numero,
                   const s_kel_colonna* colonne, unsigned num_colonne) noexcept;

}  // namespace kel_colonne

#endif
