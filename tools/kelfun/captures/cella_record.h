// Cells of a recording's rows.
#ifndef KELFUN_CAPTURES_CELLA_RECORD_H
#define KELFUN_CAPTURES_CELLA_RECORD_H

#include <span>
#include <vector>

#include "captures/blocco_record.h"
#include "captures/canali_record.h"
#include "output/documento.h"
#include "output/righe_dati.h"

namespace kel::strumento {

/// What is to be read to show some columns.
/// @param testi     texts of the library in place of values.
/// @param persone   for people, who see why there is no value.
std::vector<VoceBlocco> voci_di(std::span<const ColonnaRecord> colonne, bool testi, bool persone);

/// A row's cell of the column that is at the same place of a block.
Cella cella_record(const ColonnaRecord& colonna, const BloccoRecord& blocco, std::size_t voce, std::size_t riga,
                   bool testi);

/// The same, written at once.
void scrivi_record(RigheDati& righe, const ColonnaRecord& colonna, const BloccoRecord& blocco, std::size_t voce,
                   std::size_t riga, bool testi);

}  // namespace kel::strumento

#endif
